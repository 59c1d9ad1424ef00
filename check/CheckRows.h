// Checks the rows of a table.
#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "base/Money.h"
#include "check/CheckFindings.h"
#include "engine/rows/RawSql.h"

namespace clb {

/// A number of rows: how many, and their first and last Sequence.
struct RowGroup {
    std::int64_t count = 0;
    std::int64_t row = 0;  ///< the storage's number of the first one
    std::optional<std::int64_t> first{};
    std::optional<std::int64_t> last{};

    void Add(std::int64_t rowId, std::optional<std::int64_t> sequence);
    /// "number 5" or "numbers 5 to 17".
    [[nodiscard]] std::string Numbers() const;
};

/// The sum of one account's rows. The running total has no limit.
class RowSum {
public:
    /// In 1/10000 units.
    void Add(std::int64_t scaled) { sum_ += scaled; }
    void Subtract(std::int64_t scaled) { sum_ -= scaled; }
    /// Whether one of the rows contains something that is not an amount.
    void Spoil() { spoilt_ = true; }
    [[nodiscard]] bool Spoilt() const { return spoilt_; }
    /// Returns nothing if the sum does not fit in an amount.
    [[nodiscard]] std::optional<Money> Total() const;

private:
    __extension__ using Wide = __int128;

    Wide sum_ = 0;
    bool spoilt_ = false;
};

struct AccountRows : RowGroup {
    RowSum sum;
};

/// Year, month and category. Nothing for an empty cell.
using BudgetPlace = std::tuple<std::optional<std::int64_t>, std::optional<std::int64_t>,
                               std::optional<std::string>>;

/// Reads one table once: checks every cell, and collects what the other checks need of the rows.
/// Throws EngineError if the table cannot be read to its end. Findings up to there remain.
class CheckRows {
public:
    /// expected: the table as the program delivers it. Reads those of its columns that the file
    /// has. Borrows all arguments.
    CheckRows(RawSql& raw, const TableInfo& expected, FindingList& findings);

    void Run();

    /// The rows by account number. Rows without one are under nothing.
    [[nodiscard]] const std::map<std::optional<std::string>, AccountRows>& ByAccount() const
    {
        return accounts_;
    }
    /// The rows by month and category, if the table has these.
    [[nodiscard]] const std::map<BudgetPlace, RowGroup>& ByPlace() const { return places_; }
    /// Rows booked to months that do not exist.
    FindingList& Months() { return months_; }

private:
    [[nodiscard]] int Place(const char* column) const;
    [[nodiscard]] std::string Sql() const;
    void TakeRow(const RawSql::Row& row);
    void CheckCell(const RawSql::Row& row, int at, const ColumnInfo& column);
    void CheckNumber(const RawSql::Row& row);
    [[nodiscard]] std::string QueryFor(const RawSql::Row& row, int at) const;
    [[nodiscard]] const ColumnInfo& Column(int at) const;
    void AddToAccount(const RawSql::Row& row);
    void AddAmount(const RawSql::Row& row, RowSum& sum) const;
    void AddToPlace(const RawSql::Row& row);
    [[nodiscard]] std::string Name(const RawSql::Row& row) const;
    [[nodiscard]] std::optional<std::int64_t> Sequence(const RawSql::Row& row) const;

    RawSql& raw_;
    const TableInfo& expected_;
    FindingList& findings_;
    FindingList months_;
    std::vector<const ColumnInfo*> columns_;  ///< column n of the query has index n - 1 here
    int sequence_;                            ///< columns of the query; 0: none
    int piece_;
    int account_;
    int year_;
    int period_;
    int category_;
    int amount_;
    int paid_;  ///< subtracted from the amount
    std::map<std::optional<std::string>, AccountRows> accounts_;
    AccountRows* lastAccount_ = nullptr;
    std::string lastNumber_;
    std::map<BudgetPlace, RowGroup> places_;
};

/// Returns "2006-03", also "2006-13" for a month that does not exist, or words such as "month 3 of
/// an empty year" if it cannot be written that way.
std::string MonthText(const BudgetPlace& place);

/// Whether the program can show the month.
bool IsMonth(const BudgetPlace& place);

}  // namespace clb
