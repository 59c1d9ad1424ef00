// What a person searches for among the transactions, as typed into one line.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/FoldedText.h"
#include "search/SearchAmounts.h"
#include "search/SearchDays.h"

namespace clb {

/// The texts of a transaction that a search looks into.
enum class SearchField : std::uint8_t {
    Any,
    Description,
    Notes,
    CheckNumber,
    Category,
    Account  ///< the account's name, not its number
};

/// One condition. It holds if one of its readings holds: "2026" may be a text, an amount or a year.
/// Without any reading it never holds, such as "<0".
struct SearchTerm {
    bool without = false;  ///< the reverse: it must not hold
    SearchField field = SearchField::Any;
    std::string word;                  ///< a folded text; empty: it is not read as a text
    std::vector<AmountRange> amounts;  ///< it holds for an amount in any of them
    std::optional<DayRange> days;      ///< it holds for a date in it
    bool operator==(const SearchTerm&) const = default;
};

/// A search as a person types it: terms with spaces between them, which must all hold.
///
/// - A word is found anywhere in description, notes, category, cheque number and account name,
///   folded (see base/FoldedText.h). "two words" in double quotes are one text with the spaces in
///   it, and never anything but a text; a missing end quote ends at the end. A quote within a word
///   is a character like any other.
/// - account: category: payee: (the description) notes: before a word or a quoted text restrict it
///   to that text. It is always a text then. The case of the prefix does not matter.
/// - "-" before a term means without it: -word, -"two words", -category:food, ->100, -2026-03,
///   -2020..2024. But what can be read as an amount or a range of amounts with its sign is that:
///   -49.90, -2026, -20..-10.
/// - Amounts, ranges of them and sizes: see search/SearchAmounts.h. A whole number of digits alone
///   is a text or an amount, from 1900 to 2099 also a year. No-break and narrow spaces between
///   digits belong to the number. A comparison sign takes the amount after a space: "> 100".
/// - Dates and ranges of them, of PostDate: see search/SearchDays.h.
/// - Anything else is a text.
///
/// What is only begun is no condition, so that a list does not flicker while one types: a prefix
/// without a value, an empty quoted text, and "-", "+", "<", "<=", ">", ">=" and ".." alone.
class SearchQuery {
public:
    SearchQuery() = default;
    explicit SearchQuery(std::string_view text);

    /// Whether there is no condition.
    [[nodiscard]] bool Empty() const { return terms_.empty(); }
    [[nodiscard]] const std::vector<SearchTerm>& Terms() const& { return terms_; }
    [[nodiscard]] const std::vector<SearchTerm>& Terms() const&& = delete;
    /// Where the sought words are in a cell's text, from the left, without overlaps; for marking
    /// them. Terms that must not hold are not sought. field: the cell's, not Any.
    [[nodiscard]] std::vector<TextSpan> MarksIn(SearchField field, std::string_view text) const;

    bool operator==(const SearchQuery&) const = default;

private:
    std::vector<SearchTerm> terms_;
};

}  // namespace clb
