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

/// The sum of one account's rows, without limits while it is made.
class RowSum {
public:
    /// In 1/10000 units.
    void Add(std::int64_t scaled) { sum_ += scaled; }
    void Subtract(std::int64_t scaled) { sum_ -= scaled; }
    /// One of the rows holds something that is not an amount.
    void Spoil() { spoilt_ = true; }
    [[nodiscard]] bool Spoilt() const { return spoilt_; }
    /// Nothing when it is more than an amount can be.
    [[nodiscard]] std::optional<Money> Total() const;

private:
    __extension__ using Wide = __int128;

    Wide sum_ = 0;
    bool spoilt_ = false;
};

struct AccountRows : RowGroup {
    RowSum sum;
};

/// Year, month and category; nothing where the cell is empty.
using BudgetPlace = std::tuple<std::optional<std::int64_t>, std::optional<std::int64_t>,
                               std::optional<std::string>>;

/// Reads one table from its first row to its last, once: looks at every cell, and gathers what the
/// other checks need of the rows. Throws EngineError when the table cannot be read to its end; what
/// was found so far stays.
class CheckRows {
public:
    /// expected: the table as the program delivers it; of its columns those are read that the file
    /// has. All borrowed.
    CheckRows(RawSql& raw, const TableInfo& expected, FindingList& findings);

    void Run();

    /// The rows by account number; the rows without one under nothing.
    [[nodiscard]] const std::map<std::optional<std::string>, AccountRows>& ByAccount() const
    {
        return accounts_;
    }
    /// The rows by month and category, where the table has these.
    [[nodiscard]] const std::map<BudgetPlace, RowGroup>& ByPlace() const { return places_; }
    /// Rows booked to months that do not exist.
    FindingList& Months() { return months_; }

private:
    [[nodiscard]] int Place(const char* column) const;
    [[nodiscard]] std::string Sql() const;
    void TakeRow(const RawSql::Row& row);
    void CheckCell(const RawSql::Row& row, int at, const ColumnInfo& column);
    void CheckNumber(const RawSql::Row& row);
    [[nodiscard]] std::string StatementFor(const RawSql::Row& row, int at) const;
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
    std::vector<const ColumnInfo*> columns_;  ///< column n of the rows read is number n - 1 here
    int sequence_;                            ///< places in the rows read; 0: none
    int piece_;
    int account_;
    int year_;
    int period_;
    int category_;
    int amount_;
    int paid_;  ///< taken off the amount
    std::map<std::optional<std::string>, AccountRows> accounts_;
    AccountRows* lastAccount_ = nullptr;
    std::string lastNumber_;
    std::map<BudgetPlace, RowGroup> places_;
};

/// "2006-03", and "2006-13" for a month that does not exist; "month 3 of an empty year" and the
/// like for what cannot be written so.
std::string MonthText(const BudgetPlace& place);

/// Whether the month is one that the program can show.
bool IsMonth(const BudgetPlace& place);

}  // namespace clb
