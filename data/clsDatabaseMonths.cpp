// The monthly budget, and the month and the pieces of a transaction.

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "data/BudgetCopy.h"
#include "data/NoCategory.h"
#include "data/ViewColumns.h"
#include "data/clsDatabase.h"
#include "engine/storage/EngineError.h"

namespace clb {
namespace {

constexpr std::size_t kDescriptionLength = 50;

/// The number is appended before the text is cut, so a long description loses the end of it.
std::string PieceDescription(const std::string& description, std::int32_t piece)
{
    return Left(Left(description, kDescriptionLength) + " (split #" + std::to_string(piece) + ")",
                kDescriptionLength);
}

}  // namespace

void clsDatabase::CreateBudgetEntry(const std::string& category, std::int32_t year,
                                    std::int32_t period, const std::string& categoryGroup,
                                    Money amount)
{
    Lock();
    Recordset records;
    Fill(records,
         "SELECT Year, Period, Category, CategoryGroup, Amount FROM Budget WHERE Budget.Year = " +
             std::to_string(year) + " AND Budget.Period = " + std::to_string(period) +
             " AND Budget.Category = '" + ToSqlString(category) + "'",
         false);
    if (!records.Empty())
        return;
    records.AddNew();
    records.Set("Year", year);
    records.Set("Period", period);
    records.Set("Category", category);
    records.Set("CategoryGroup", categoryGroup);
    records.Set("Amount", amount);
    records.Update();
}

void clsDatabase::CopyBudget(std::int32_t sourceYear, std::int32_t sourcePeriod,
                             std::int32_t targetYear, std::int32_t targetPeriod)
{
    Lock();
    CopyBudgetLines(*this, {sourceYear, sourcePeriod}, {targetYear, targetPeriod});
}

void clsDatabase::OpenPiece(Recordset& piece, const std::string& columns, std::int32_t sequence,
                            std::int32_t subSequence)
{
    piece.Open("SELECT " + columns +
                   " FROM Trans WHERE Trans.Sequence = " + std::to_string(sequence) +
                   " AND Trans.SubSequence = " + std::to_string(subSequence),
               connection_, CursorKind::Keyset, LockKind::Pessimistic);
    if (piece.RecordCount() > 1)
        throw RuntimeError(errors::InvalidCall,
                           "Two transactions have the number " + std::to_string(sequence) +
                               ", so it is not clear which one is meant. \"clb check --repair\" "
                               "gives the later one a number of its own.");
}

void clsDatabase::MoveMonth(std::int32_t sequence, std::int32_t subSequence, std::int32_t direction)
{
    Lock();
    RequireShownRow();
    Recordset piece;
    OpenPiece(piece, "Year, Period", sequence, subSequence);
    const Month from{ToLong(piece.Get("Year")), ToLong(piece.Get("Period"))};
    const Month to = direction == 1 ? from.Next() : from.Previous();
    CreateBudgetEntry(ToText(row_.ColumnValue(Register::Category)), to.year, to.period, kNoCategory,
                      Money());
    piece.Set("Year", to.year);
    piece.Set("Period", to.period);
    piece.Update();
    piece.Close();
    RequeryRows();
}

std::int32_t clsDatabase::NextPiece(const std::string& sequence)
{
    try {
        Recordset next;
        Fill(next,
             "SELECT MAX( SubSequence ) + 1 AS NextSubSequence FROM Trans WHERE Trans.Sequence = " +
                 sequence,
             true);
        return ToLong(next.Get("NextSubSequence"));
    } catch (const EngineError& error) {
        if (error.Number() != engine_errors::Overflow)
            throw;
        throw NumbersUsedUp("No number is left for a new piece of transaction " + sequence +
                            ": one of its pieces has the largest already.");
    }
}

void clsDatabase::SplitTransaction(std::int32_t sequence, std::int32_t subSequence,
                                   Money firstAmount, Money secondAmount)
{
    Lock();
    RequireShownRow();
    const std::int32_t number = NextPiece(ToText(row_.ColumnValue(Register::Sequence)));

    Recordset split;
    OpenPiece(split, "*", sequence, subSequence);
    split.Set("Amount", firstAmount);
    split.Update();

    Recordset added;
    added.Open("SELECT * FROM Trans WHERE false", connection_, CursorKind::Keyset,
               LockKind::Pessimistic);
    added.AddNew();
    for (std::size_t field = 0; field < split.Fields().size(); ++field)
        added.Set(field, split.Get(field));
    added.Set("Amount", secondAmount);
    added.Set("SubSequence", number);
    added.Set("Description", PieceDescription(ToText(split.Get("Description")), number));
    added.Update();
    RequeryRows();
}

}  // namespace clb
