// Which column of a table holds what.
#pragma once
#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "statements/csv/CsvTable.h"

namespace clb {

/// What the cells of a column hold, counted over the rows that have a date.
struct ColumnFacts {
    std::size_t filled = 0;
    std::size_t dates = 0;
    std::size_t amounts = 0;
    std::size_t plainAmounts = 0;  ///< with decimals, a sign or a currency
    std::size_t fractions = 0;     ///< with decimals
    std::size_t nonzero = 0;       ///< amounts other than zero
    std::size_t marksIn = 0;
    std::size_t marksOut = 0;
    std::size_t currencies = 0;
    std::size_t digits = 0;  ///< digits only
    std::size_t letters = 0;
    std::size_t ibans = 0;
    std::size_t longest = 0;
    std::size_t shortest = 0;
    std::set<std::string, std::less<>> values;  ///< different ones, up to a limit

    std::size_t dashes = 0;  ///< cells of one dash: empty, or a mark if others are "+"

    void Add(std::string_view cell);
    /// Counts the dashes as marks if the other cells are plus signs.
    void SettleDashes();
    [[nodiscard]] bool Mostly(std::size_t count) const
    {
        return count > 0 && count * 5 >= filled * 3;
    }
    [[nodiscard]] bool AreDates() const { return Mostly(dates); }
    [[nodiscard]] bool AreAmounts() const { return Mostly(amounts); }
    [[nodiscard]] bool AreMarks() const { return filled > 0 && marksIn + marksOut == filled; }
    [[nodiscard]] bool AreCurrencies() const { return Mostly(currencies); }
};

/// Where the amount of a row is.
struct AmountSource {
    std::optional<std::size_t> amount{};
    std::optional<std::size_t> mark{};  ///< says of the amount whether it comes in
    std::optional<std::size_t> in{};
    std::optional<std::size_t> out{};
    std::optional<std::size_t> fee{};
    bool feeAdds = false;  ///< the fee is added as it is written, else its size is taken off
    bool negated = false;
    bool unnamed = false;  ///< no name says that this is the amount, or which column comes in
    friend bool operator==(const AmountSource&, const AmountSource&) = default;
};

struct CsvColumns {
    std::vector<std::size_t> dates;  ///< the best one first; the others fill its gaps
    std::optional<std::size_t> valueDate{};
    std::vector<AmountSource> sources;  ///< the likeliest first
    std::size_t equals = 1;             ///< of the sources from the first on: equal in merit
    bool sourceGiven = false;
    std::vector<std::size_t> balances;
    bool balanceGiven = false;
    std::optional<std::size_t> currency{};
    std::optional<std::size_t> category{};
    std::optional<std::size_t> check{};
    std::optional<std::size_t> id{};
    std::optional<std::size_t> account{};
    std::vector<std::size_t> statuses;
    std::vector<std::size_t> names;  ///< of the other party, the best first
    std::vector<std::size_t> texts;
};

/// Counts what the columns hold.
[[nodiscard]] std::vector<ColumnFacts> FactsOf(const CsvTable& table);

/// Finds the columns by their names and cells; those that the answers name are taken. Throws
/// NotAStatement if the answers name a column that the table does not have.
[[nodiscard]] CsvColumns ChooseColumns(const CsvTable& table, const std::vector<ColumnFacts>& facts,
                                       const StatementAnswers& answers);

}  // namespace clb
