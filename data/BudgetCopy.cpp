#include "data/BudgetCopy.h"

#include "data/NoCategory.h"
#include "data/clsDatabase.h"
#include "engine/storage/EngineError.h"

namespace clb {
namespace {

std::string InMonth(Month month)
{
    return " WHERE Year = " + std::to_string(month.year) +
           " AND Period = " + std::to_string(month.period);
}

std::string CategoryIs(const std::string& category)
{
    return "Category = '" + clsDatabase::ToSqlString(category) + "'";
}

/// The name of a removed category goes into a query unescaped (see RemoveOtherLines). A
/// quote in it would be a syntax error there, or start another query. So such names are refused
/// before the first write.
void RefuseQuotes(Recordset& source, Recordset& target)
{
    for (; !target.AtEnd(); target.MoveNext()) {
        const std::string category = ToText(target.Get("Category"));
        if (category.find('\'') != std::string::npos &&
            !clsDatabase::CanFind(source, CategoryIs(category)))
            throw EngineError(engine_errors::Syntax, "Syntax error near ''' in the statement.");
    }
    source.MoveFirst();
}

void CopyLines(Recordset& source, Recordset& target, Month to)
{
    for (; !source.AtEnd(); source.MoveNext()) {
        const std::string category = ToText(source.Get("Category"));
        if (!clsDatabase::CanFind(target, CategoryIs(category))) {
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

void RemoveOtherLines(clsDatabase& store, Recordset& source, Recordset& target, Month to)
{
    for (; !target.AtEnd(); target.MoveNext()) {
        const std::string category = ToText(target.Get("Category"));
        if (category == kNoCategory || clsDatabase::CanFind(source, CategoryIs(category)))
            continue;
        Recordset transactions;
        // On purpose the category is not escaped in this query; see RefuseQuotes.
        transactions.Open(
            "SELECT Category FROM Trans" + InMonth(to) + " AND Category = '" + category + "'",
            store.Database(), CursorKind::Keyset, LockKind::Pessimistic);
        for (; !transactions.AtEnd(); transactions.MoveNext()) {
            transactions.Set("Category", std::string(kNoCategory));
            transactions.Update();
        }
        target.Delete();
    }
}

}  // namespace

void CopyBudgetLines(clsDatabase& store, Month from, Month to)
{
    Recordset source;
    source.Open("SELECT * FROM Budget" + InMonth(from), store.Database(), CursorKind::Keyset,
                LockKind::ReadOnly);
    Recordset target;
    target.Open("SELECT * FROM Budget" + InMonth(to), store.Database(), CursorKind::Keyset,
                LockKind::Pessimistic);
    if (source.Empty())
        return;
    RefuseQuotes(source, target);
    CopyLines(source, target, to);
    if (!target.AtEnd()) {
        store.CreateBudgetEntry(kNoCategory, to.year, to.period, kNoCategory, Money());
        target.MoveFirst();
    }
    RemoveOtherLines(store, source, target, to);
}

}  // namespace clb
