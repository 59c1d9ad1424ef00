// Settles from a whole file how its rows are to be read.
#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "statements/csv/AmountSigns.h"
#include "statements/csv/CsvColumns.h"
#include "statements/csv/CsvTable.h"
#include "statements/csv/RowBalanceChain.h"

namespace clb {

/// All that is needed to read the rows.
struct CsvSolution {
    CsvColumns columns;
    DateText::Order order = DateText::Order::YearMonthDay;
    char decimal = '.';
    bool inverted = false;
    std::optional<AmountSigns> amounts;
    std::optional<std::size_t> balance{};
    std::optional<BalanceStep> step{};
    bool byCurrency = true;  ///< rows in several currencies form an account each
    bool severalCurrencies = false;
    std::string currency{};                ///< of rows that name none
    std::string account{};                 ///< of rows that name none
    std::optional<std::size_t> cutLine{};  ///< of the row in which the file breaks off
    std::unordered_set<std::uint64_t> identifiersGivenTwice;
    std::vector<OpenQuestion> questions;
};

/// Goes through the table. What it leaves open is asked, and set as proposed.
[[nodiscard]] CsvSolution Solve(const CsvTable& table, const StatementAnswers& answers);

/// Reads the status of rows. Remembers the last cell of each column: most rows have the same.
class RowStatus {
public:
    explicit RowStatus(const CsvColumns& columns)
        : columns_(columns.statuses.begin(), columns.statuses.end())
    {
    }
    /// Pending or Void if a column says so, else None.
    [[nodiscard]] CellStatus Of(const CsvRecord& record);

private:
    struct Column {
        explicit Column(std::size_t at) : index(at) {}
        std::size_t index;
        std::string cell{};
        CellStatus status = CellStatus::None;
    };
    std::vector<Column> columns_;
};

/// The currency that a row names: in its own column or beside its amount. Empty if it names none.
[[nodiscard]] std::string CurrencyOfRow(const CsvSolution& solution, const CsvRecord& record);
/// The account and the currency of a row as one text, for telling accounts apart.
[[nodiscard]] std::string AccountKey(const CsvSolution& solution, const CsvRecord& record,
                                     bool byCurrency);
[[nodiscard]] std::uint64_t HashOf(std::string_view text);

}  // namespace clb
