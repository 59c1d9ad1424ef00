#include "data/clsDatabase.h"

#include <limits>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "data/MonthBudget.h"
#include "data/SchemaVersion.h"
#include "data/WrongAmount.h"
#include "engine/storage/EngineError.h"

namespace clb {

clsDatabase::clsDatabase(const std::string& folder, const IShownState& shown, ICurrentRow& row)
    : shown_(shown), row_(row), monthBudget_(std::make_unique<MonthBudget>(connection_))
{
    connection_.Open("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + folder +
                     "\\db\\clb.mdb;Persist Security Info=False");
    try {
        schemaVersion_ = UpgradeSchema(connection_);
    } catch (const EngineError& error) {
        // Each step is complete in itself. The steps before the refused one are kept.
        if (error.Trouble() == FileTrouble::None)
            connection_.Settle();
        throw;
    }
    connection_.Settle();
}

clsDatabase::~clsDatabase() = default;

void clsDatabase::Execute(const std::string& sql)
{
    connection_.Execute(sql);
}

void clsDatabase::Lock()
{
    if (connection_.Locked())
        return;
    connection_.Lock();
    // Nobody else can write from here on, so this notices all earlier writes.
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
    const Value& largest = records.Get("NextSequence");
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

Value clsDatabase::Total(const std::string& sql, const std::string& column,
                         const SummedAmounts& amounts)
{
    try {
        Recordset records;
        Fill(records, sql, true);
        return records.Get(column);
    } catch (const EngineError& error) {
        ThrowWithPlace(connection_, amounts, error);
    }
}

const MonthBudget* clsDatabase::BudgetOf(Month month)
{
    return monthBudget_->Read(month) ? monthBudget_.get() : nullptr;
}

Money clsDatabase::Sum(const std::string& sql, const std::string& column,
                       const SummedAmounts& amounts)
{
    return ToMoney(Total(sql, column, amounts));
}

}  // namespace clb
