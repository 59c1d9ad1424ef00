// The monthly budget, and the month to which a transaction is booked.

#include "data/clsDatabase.h"
#include "engine/EngineError.h"

namespace clb {
namespace {

std::string BudgetOf(Month month)
{
    return "SELECT * FROM Budget WHERE Year = " + std::to_string(month.year) +
           " AND Period = " + std::to_string(month.period);
}

std::string CategoryIs(const std::string& category)
{
    return "Category = '" + clsDatabase::ToSqlString(category) + "'";
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
    const Month to{targetYear, targetPeriod};
    Recordset source;
    source.Open(BudgetOf({sourceYear, sourcePeriod}), connection_, CursorKind::Keyset,
                LockKind::ReadOnly);
    Recordset target;
    target.Open(BudgetOf(to), connection_, CursorKind::Keyset, LockKind::Pessimistic);
    if (source.Empty())
        return;
    RefuseQuotes(source, target);
    CopyLines(source, target, to);
    if (!target.AtEnd()) {
        CreateBudgetEntry("(none)", to.year, to.period, "(none)", Money());
        target.MoveFirst();
    }
    DropLines(source, target, to);
}

/// A category that goes stands in a statement as it is (see DropLines), so a quote in its name is a
/// syntax error there, or another statement. It is refused before anything is written.
void clsDatabase::RefuseQuotes(Recordset& source, Recordset& target)
{
    for (; !target.AtEnd(); target.MoveNext()) {
        const std::string category = ToText(target.Get("Category"));
        if (category.find('\'') != std::string::npos && !CanFind(source, CategoryIs(category)))
            throw EngineError(engine_errors::Syntax, "Syntax error near ''' in the statement.");
    }
    source.MoveFirst();
}

void clsDatabase::CopyLines(Recordset& source, Recordset& target, Month to)
{
    for (; !source.AtEnd(); source.MoveNext()) {
        const std::string category = ToText(source.Get("Category"));
        if (!CanFind(target, CategoryIs(category))) {
            target.AddNew();
            target.Set("Year", to.year);
            target.Set("Period", to.period);
            target.Set("Category", category);
        }
        target.Set("CategoryGroup", source.Get("CategoryGroup"));
        target.Set("Amount", source.Get("Amount"));
        target.Update();
    }
}

void clsDatabase::DropLines(Recordset& source, Recordset& target, Month to)
{
    for (; !target.AtEnd(); target.MoveNext()) {
        const std::string category = ToText(target.Get("Category"));
        if (category == "(none)" || CanFind(source, CategoryIs(category)))
            continue;
        Recordset transactions;
        // On purpose the category stands in this statement as it is; one with a quote was refused.
        transactions.Open("SELECT Category FROM Trans WHERE Year = " + std::to_string(to.year) +
                              " AND Period = " + std::to_string(to.period) + " AND Category = '" +
                              category + "'",
                          connection_, CursorKind::Keyset, LockKind::Pessimistic);
        for (; !transactions.AtEnd(); transactions.MoveNext()) {
            transactions.Set("Category", std::string("(none)"));
            transactions.Update();
        }
        target.Delete();
    }
}

void clsDatabase::MoveMonth(std::int32_t sequence, std::int32_t subSequence, std::int32_t direction)
{
    Lock();
    RequireShownRow();
    Recordset piece;
    piece.Open("SELECT Year, Period FROM Trans WHERE Trans.Sequence = " + std::to_string(sequence) +
                   " AND Trans.SubSequence = " + std::to_string(subSequence),
               connection_, CursorKind::Keyset, LockKind::Pessimistic);
    RequireOnePiece(piece, sequence);
    const Month from{ToLong(piece.Get("Year")), ToLong(piece.Get("Period"))};
    const Month to = direction == 1 ? from.Next() : from.Previous();
    CreateBudgetEntry(ToText(row_.ColumnValue(5)), to.year, to.period, "(none)", Money());
    piece.Set("Year", to.year);
    piece.Set("Period", to.period);
    piece.Update();
    piece.Close();
    RequeryRows();
}

}  // namespace clb
