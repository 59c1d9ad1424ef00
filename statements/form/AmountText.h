// Amounts as banks write them.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "base/Money.h"

namespace clb {

/// What says beside an amount which way the money went.
enum class AmountMark : std::uint8_t {
    None,
    Plus,
    Minus,   ///< a minus sign on either side, or parentheses
    Credit,  ///< "CR", "C" or "H" after it: positive
    Debit    ///< "DR", "D", "S" or "OD" after it: negative
};

/// An amount as it is written.
struct WrittenAmount {
    Money amount;
    AmountMark mark = AmountMark::None;
    std::string_view currency;  ///< its sign or code, a part of the text; empty if there is none
};

/// Reads an amount like ReadAmount, with its mark and currency.
[[nodiscard]] std::optional<WrittenAmount> ReadWrittenAmount(std::string_view text, char decimal);

/// Reads an amount with this decimal mark, '.' or ','. Marks of thousands are those that the
/// decimal mark leaves: the other of '.' and ',', spaces of every kind, apostrophes; only between
/// groups of thousands (or of lakhs: "1,23,456.00"). A sign before or after the number ("-5", "5-",
/// a minus of typography), or parentheses for a negative one; currency signs and codes around it
/// ("EUR 5,00", "5.00 kr"), and "CR" or "DR" after it. "5,-" has no decimals. Returns nothing for
/// other texts, and for an amount that has more decimals than money can hold exactly (4, zeros
/// after them aside) or is out of range.
[[nodiscard]] std::optional<Money> ReadAmount(std::string_view text, char decimal);

/// Settles the decimal mark from all amounts of a file.
class DecimalMarks {
public:
    /// Takes an amount's text. Empty and other texts settle nothing.
    void Add(std::string_view text);
    /// The marks under which all amounts that were added can be read: none, one or both. Both with
    /// Same() true if they mean the same amounts.
    [[nodiscard]] std::vector<char> Possible() const;
    /// Whether every amount means the same under both marks, as "5" does.
    [[nodiscard]] bool Same() const;
    /// The mark in the amounts that mean something else under each: '.' or ','; 0 if there are none
    /// or both marks occur.
    [[nodiscard]] char Mark() const;

private:
    std::size_t point_ = 0;  ///< amounts that can be read with a point only
    std::size_t comma_ = 0;
    std::size_t differPoint_ = 0;  ///< with a point, that mean something else under each
    std::size_t differComma_ = 0;
};

}  // namespace clb
