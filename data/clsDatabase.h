// The data store: the program's one connection, and what it reads and writes through it.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/Date.h"
#include "base/Money.h"
#include "base/RuntimeError.h"
#include "data/IShownState.h"
#include "engine/rows/Connection.h"
#include "engine/rows/Recordset.h"

namespace clb {

class MonthBudget;
struct SummedAmounts;

/// Thrown if a transaction or a piece already has the largest number, so that no more can be made
/// (errors::Overflow).
class NumbersUsedUp : public RuntimeError {
public:
    explicit NumbersUsedUp(const std::string& message) : RuntimeError(errors::Overflow, message) {}
};

/// The data store: every query and update the program runs. Owns the only connection, opened for
/// the whole run, and the one result set that the grid shows.
///
/// Other programs may write to the same file. An operation that bases a write on what it reads
/// takes the write lock before its first read; the lock is released when the connection settles.
///
/// No error is caught here: an EngineError reaches the caller with the engine's number and message.
/// An incomplete row is not an error: ValidRow returns false.
class clsDatabase {
public:
    /// Opens folder/db/clb.mdb and brings an older schema up to date. shown and row are borrowed
    /// and outlive the store; they are not called during construction. Throws EngineError.
    clsDatabase(const std::string& folder, const IShownState& shown, ICurrentRow& row);
    ~clsDatabase();

    /// Runs one query.
    void Execute(const std::string& sql);
    /// Removes what belongs to the row that is about to be deleted. gridRow true: the grid's
    /// current row is being deleted; in the budget view the month's transactions of its category
    /// become "(none)". gridRow false: in views 4 to 6 the shown account's row is deleted, its
    /// other rows stay. Always returns true.
    bool DeleteRow(bool gridRow);
    /// Checks the grid's current row and completes it: account, month, number, category. Returns
    /// false if the row may not be saved, with the offending column (from 1) and the message for
    /// the user.
    bool ValidRow(std::int32_t& errorColumn, std::string& errorMessage);

    /// Makes the target month hold the source month's categories, groups and amounts, and "(none)".
    /// Transactions of removed categories become "(none)". An empty source month changes nothing.
    /// Throws EngineError, with nothing changed, if a removed category has a single quote in its
    /// name.
    void CopyBudget(std::int32_t sourceYear, std::int32_t sourcePeriod, std::int32_t targetYear,
                    std::int32_t targetPeriod);
    /// Moves one piece of a transaction to the next month (direction 1) or the previous month (any
    /// other direction). Makes a budget line there for the category of the grid's current row, and
    /// reads the grid's rows again. Throws EngineError if there is no such piece.
    void MoveMonth(std::int32_t sequence, std::int32_t subSequence, std::int32_t direction);
    /// Makes sure that the category has a budget line in the month; an existing line stays as it
    /// is.
    void CreateBudgetEntry(const std::string& category, std::int32_t year, std::int32_t period,
                           const std::string& categoryGroup, Money amount);

    /// The rows of the shown view, in the one shared result set: an earlier result is closed.
    Recordset& GetRows();
    /// The shown view's totals. A total that the view does not use stays as passed.
    void CalcTotals(Money& first, Money& second);
    /// Stores the sum of one account's activity in Account.CurrentBalance; no activity stores 0,
    /// the opening balance is not in it. view -1 and an empty accountID mean the ones shown now;
    /// both are written back. Does nothing for views 1 to 3. Throws EngineError if no account has
    /// this number.
    void UpdateBalance(std::int32_t& view, std::string& accountID);

    /// Turns one piece of a transaction into two: the piece keeps the first amount, a copy with the
    /// next piece number gets the second amount and a numbered description. Reads the grid's rows
    /// again. Throws EngineError if there is no such piece, and NumbersUsedUp; writes before an
    /// error stay.
    void SplitTransaction(std::int32_t sequence, std::int32_t subSequence, Money firstAmount,
                          Money secondAmount);

    /// The text with every single quote doubled.
    static std::string ToSqlString(std::string_view text);
    /// Trims spaces on the left, cuts the text to at most `length` characters, then trims spaces on
    /// the right.
    static std::string TruncateString(std::string_view text, std::int32_t length);
    /// Largest transaction number plus one; 1 if there are no transactions. Throws NumbersUsedUp.
    std::int32_t GetNextSequence();
    /// Opens a closed result set on the SELECT.
    void Fill(Recordset& records, const std::string& sql, bool readOnly);
    /// Moves to the first row that meets the criterion. Returns false if none does.
    static bool CanFind(Recordset& records, const std::string& criterion);
    /// Whether a row of the table meets the condition.
    bool RowExists(const std::string& table, const std::string& condition);
    /// The sum in a column of a SELECT's first row; null if nothing was added up. Throws
    /// EngineError, which names the cell if one of the amounts is something else.
    Value Total(const std::string& sql, const std::string& column, const SummedAmounts& amounts);
    /// The same as an amount; 0 if nothing was added up.
    Money Sum(const std::string& sql, const std::string& column, const SummedAmounts& amounts);

    /// The month's sums, read at once. Null if each sum must be read by its own query; see
    /// MonthBudget::Read. Valid until the next call. Throws EngineError.
    const MonthBudget* BudgetOf(Month month);

    /// Takes the write lock for a command that will write, before its first read; it is kept until
    /// the connection settles. Waits for another program for a short time, then throws
    /// EngineError.
    void Lock();
    /// A number that grows when another program writes to the file. Never waits for a program that
    /// is writing at the moment.
    std::uint64_t WritesElsewhere();
    /// Whether another program has written since the rows of the shown view were read.
    bool RowsOutdated() { return WritesElsewhere() != rowsReadAt_; }
    /// Call this after reading the rows of the shown view again.
    void RowsRead() { rowsReadAt_ = WritesElsewhere(); }

    /// The file's schema version, at least 2 here; a later program's file has a later one.
    [[nodiscard]] std::int16_t SchemaVersion() const { return schemaVersion_; }

    /// The connection: for settling, tracing, and queries from outside.
    Connection& Database() { return connection_; }

private:
    /// Throws RuntimeError if another program has changed or deleted the grid's current row since
    /// it was shown: the user's decision was about the row as shown.
    void RequireShownRow();
    /// Opens one piece of a transaction for writing. Throws RuntimeError if an older program gave
    /// the number to two transactions.
    void OpenPiece(Recordset& piece, const std::string& columns, std::int32_t sequence,
                   std::int32_t subSequence);
    /// The number for a new piece of a transaction.
    std::int32_t NextPiece(const std::string& sequence);
    void RequeryRows();

    const IShownState& shown_;
    ICurrentRow& row_;
    Connection connection_;
    std::int16_t schemaVersion_ = 0;
    Recordset rows_;
    std::unique_ptr<MonthBudget> monthBudget_;
    std::uint64_t writesElsewhere_ = 0;
    std::uint64_t rowsReadAt_ = 0;  ///< WritesElsewhere when the rows of the view were read
};

}  // namespace clb
