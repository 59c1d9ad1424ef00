#include "data/clsDatabase.h"

#include <limits>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "data/SchemaVersion.h"
#include "engine/EngineError.h"

namespace clb {

clsDatabase::clsDatabase(const std::string& folder, const IShownState& shown, ICurrentRow& row)
    : shown_(shown), row_(row)
{
    connection_.Open("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + folder +
                     "\\db\\clb.mdb;Persist Security Info=False");
    try {
        UpgradeSchema();
    } catch (const EngineError& error) {
        // Each step stands by itself: those before the one that is refused stay.
        if (error.Trouble() == FileTrouble::None)
            connection_.Settle();
        throw;
    }
    connection_.Settle();
}

std::int16_t clsDatabase::ReadSchemaVersion()
{
    if (const auto version = SchemaVersionOf(connection_))
        return *version;
    connection_.Execute("CREATE TABLE _SchemaVersion (0 LONG)");
    return 0;
}

void clsDatabase::UpgradeSchema()
{
    std::int16_t version = SchemaVersionOf(connection_).value_or(0);
    if (version == 0 || version == 1) {
        // Another program may be bringing the same file up to date.
        connection_.Lock();
        version = ReadSchemaVersion();
    }
    schemaVersion_ = version;
    if (version == 0)
        connection_.Execute("ALTER TABLE Loan ALTER COLUMN InterestRate Single");
    if (version == 0 || version == 1) {
        connection_.Execute(
            "ALTER TABLE Account ADD COLUMN BudgetInclude YESNO NOT NULL DEFAULT YES");
        connection_.Execute("UPDATE Account SET BudgetInclude = YES");
        connection_.Execute("ALTER TABLE _SchemaVersion DROP COLUMN " + std::to_string(version));
        // The new version is fixed, whatever the old one was.
        connection_.Execute("ALTER TABLE _SchemaVersion ADD  COLUMN 2 LONG");
        schemaVersion_ = kSchemaVersion;
    }
}

void clsDatabase::Execute(const std::string& sql)
{
    connection_.Execute(sql);
}

void clsDatabase::Lock()
{
    if (connection_.Locked())
        return;
    connection_.Lock();
    // Now that nobody else can write, what was written before is known for certain.
    WritesElsewhere();
}

std::uint64_t clsDatabase::WritesElsewhere()
{
    if (connection_.ChangedElsewhere())
        ++writesElsewhere_;
    return writesElsewhere_;
}

void clsDatabase::RequireShownRow()
{
    const StoredRow row = RowsOutdated() ? row_.Reread() : StoredRow::Same;
    if (row == StoredRow::Gone)
        throw RuntimeError(errors::InvalidCall,
                           "Another program has deleted this record meanwhile. Nothing was done.");
    if (row == StoredRow::Changed)
        throw RuntimeError(errors::InvalidCall,
                           "Another program has changed this record meanwhile. Nothing was done. "
                           "Please look at it again and repeat the command.");
}

void clsDatabase::RequeryRows()
{
    rows_.Requery();
    RowsRead();
}

std::string clsDatabase::ToSqlString(std::string_view text)
{
    return Replace(text, "'", "''");
}

std::string clsDatabase::TruncateString(std::string_view text, std::int32_t length)
{
    const auto kept = static_cast<std::size_t>(length < 0 ? 0 : length);
    return std::string(TrimRight(Left(TrimLeft(text), kept)));
}

std::int32_t clsDatabase::GetNextSequence()
{
    Recordset records;
    Fill(records, "SELECT MAX( Sequence ) AS NextSequence FROM Trans", true);
    const Value& largest = records.Get(0);
    if (IsNull(largest))
        return 1;
    if (ToLong(largest) == std::numeric_limits<std::int32_t>::max())
        throw NumbersUsedUp(
            "No number is left for a new transaction: one has the largest already.");
    return ToLong(largest) + 1;
}

void clsDatabase::Fill(Recordset& records, const std::string& sql, bool readOnly)
{
    if (readOnly)
        records.Open(sql, connection_, CursorKind::ForwardOnly, LockKind::ReadOnly);
    else
        records.Open(sql, connection_, CursorKind::Keyset, LockKind::Optimistic);
}

bool clsDatabase::CanFind(Recordset& records, const std::string& criterion)
{
    if (records.Empty())
        return false;
    records.MoveFirst();
    records.Find(criterion);
    return !records.AtEnd();
}

bool clsDatabase::RowExists(const std::string& table, const std::string& condition)
{
    Recordset records;
    Fill(records, "SELECT COUNT( 1 ) AS [Count] FROM " + table + " WHERE " + condition, true);
    return ToLong(records.Get("Count")) > 0;
}

std::string clsDatabase::ShownAccount() const
{
    return ToSqlString(shown_.AccountID());
}

std::string clsDatabase::RowsStatement() const
{
    switch (shown_.View()) {
        case vwNetWorth:
            return "SELECT Description, Type, AccountID, OpeningBalance, (OpeningBalance + "
                   "CurrentBalance) as TotBalance, Sequence FROM Account ORDER BY Type, "
                   "Description";
        case vwBudget:
            return "SELECT Budget.Category, Budget.Amount, Budget.Sequence, Budget.Year, "
                   "Budget.Period, Budget.CategoryGroup FROM Budget WHERE Budget.Year = " +
                   std::to_string(shown_.Year()) +
                   " AND Budget.Period = " + std::to_string(shown_.Period()) +
                   " ORDER BY Budget.CategoryGroup, Budget.Category";
        case vwAccountType:
            return "SELECT Description, AccountID, OpeningBalance, (OpeningBalance + "
                   "CurrentBalance) as TotBalance, Sequence, Type FROM Account WHERE Type = '" +
                   shown_.AccountType() + "' ORDER BY Description";
        case vwAccount:
            return "SELECT PostDate, Description, Amount, CheckID, Category, PayeeName AS Notes, "
                   "AccountID, Year, Period, FITID, Sequence, SubSequence FROM Trans WHERE "
                   "AccountID = '" +
                   ShownAccount() + "' AND Period = " + std::to_string(shown_.Period()) +
                   " AND Year = " + std::to_string(shown_.Year()) +
                   " ORDER BY PostDate DESC, Sequence DESC, SubSequence";
        case vwInvestment:
            return "SELECT StockSymbol, StockName, PurchaseDate, Quantity, PurchasePrice, "
                   "LastPrice, Total, AccountID, Sequence FROM Investment WHERE AccountID = '" +
                   ShownAccount() + "' ORDER BY PurchaseDate";
        case vwLoan:
            return "SELECT Description, OriginalAmount, PaidAmount, InterestRate, AccountID, "
                   "Sequence FROM Loan WHERE AccountID = '" +
                   ShownAccount() + "' ORDER BY Description";
        default:
            // No view: sent as it stands, for the engine to refuse.
            return "SELECT  FROM  ORDER BY ";
    }
}

Recordset& clsDatabase::GetRows()
{
    const std::string sql = RowsStatement();
    if (rows_.IsOpen())
        rows_.Close();
    RowsRead();
    rows_.Open(sql, connection_, CursorKind::Keyset, LockKind::Pessimistic);
    return rows_;
}

}  // namespace clb
