#include "data/NoticedBalances.h"

#include "data/clsDatabase.h"
#include "engine/storage/EngineError.h"

namespace clb::noticed_balances {
namespace {

std::string Quoted(const std::string& text)
{
    return "'" + clsDatabase::ToSqlString(text) + "'";
}

std::string Amount(const std::optional<Money>& amount)
{
    return amount ? amount->ToText() : "NULL";
}

std::string TextOrNull(const std::string& text)
{
    return text.empty() ? "NULL" : Quoted(text);
}

std::string Equals(const std::string& column, const std::optional<Money>& amount)
{
    return column + (amount ? " = " + amount->ToText() : " IS NULL");
}

std::string Literal(const Date& date)
{
    return "#" + date.ToIso() + "#";
}

struct Column {
    const char* name;
    const char* type;
};

constexpr Column kColumns[] = {{"At", "DATETIME"},       {"AccountID", "TEXT"},
                               {"Stored", "MONEY"},      {"Total", "MONEY"},
                               {"NoticedBy", "TEXT"},    {"TakenNoteOf", "DATETIME"},
                               {"StoredInstead", "TEXT"}};

/// Whether the list exists and has these columns.
bool HasList(Connection& connection, const std::string& columns)
{
    try {
        connection.Execute("SELECT " + columns + " FROM CvBalance WHERE false");
        return true;
    } catch (const EngineError& error) {
        if (error.Number() == engine_errors::NoSuchTable ||
            error.Number() == engine_errors::NoSuchColumn)
            return false;
        throw;
    }
}

/// Whether there is a list that can be read. The column that was added last may be missing.
bool HasList(Connection& connection)
{
    return HasList(connection, "At, AccountID, Stored, Total, NoticedBy, TakenNoteOf");
}

/// Makes the list, or the columns that it lacks because an older program made it.
void ProvideList(Connection& connection)
{
    const bool there = HasList(connection, "1");
    std::string all;
    for (const Column& column : kColumns) {
        const std::string declared = std::string(column.name) + " " + column.type;
        all += (all.empty() ? "" : ", ") + declared;
        if (there && !HasList(connection, column.name))
            connection.Execute("ALTER TABLE CvBalance ADD COLUMN " + declared);
    }
    if (!there)
        connection.Execute("CREATE TABLE CvBalance (" + all + ")");
}

bool IsListed(Connection& connection, const OddBalance& odd)
{
    return !connection
                .Execute("SELECT At FROM CvBalance WHERE TakenNoteOf IS NULL AND AccountID = " +
                         Quoted(odd.accountID) + " AND " + Equals("Stored", odd.stored) + " AND " +
                         Equals("Total", odd.sum) + " AND StoredInstead " +
                         (odd.instead.empty() ? "IS NULL" : "= " + Quoted(odd.instead)))
                .Empty();
}

}  // namespace

std::string OccasionOf(std::string_view by)
{
    if (by == "window")
        return "a change of its rows worked the balance out again";
    if (by == "start")
        return "the program was started";
    return std::string(by == "repair" ? "a repair" : "an import") +
           " worked the balances out again";
}

void Note(Connection& connection, const std::vector<OddBalance>& odd, const std::string& by,
          const Date& now)
{
    if (odd.empty())
        return;
    const Connection::Untraced untraced(connection);
    ProvideList(connection);
    for (const OddBalance& balance : odd)
        if (!IsListed(connection, balance))
            connection.Execute(
                "INSERT INTO CvBalance (At, AccountID, Stored, Total, NoticedBy, StoredInstead) "
                "VALUES (" +
                Literal(now) + ", " + Quoted(balance.accountID) + ", " + Amount(balance.stored) +
                ", " + Amount(balance.sum) + ", " + Quoted(by) + ", " +
                TextOrNull(balance.instead) + ")");
}

std::int32_t CountOpen(Connection& connection)
{
    const Connection::Untraced untraced(connection);
    if (!HasList(connection))
        return 0;
    return ToLong(
        connection.Execute("SELECT COUNT(*) AS Found FROM CvBalance WHERE TakenNoteOf IS NULL")
            .Get(0));
}

std::int32_t TakeNote(Connection& connection, const Date& now)
{
    const Connection::Untraced untraced(connection);
    const std::int32_t open = CountOpen(connection);
    if (open > 0)
        connection.Execute("UPDATE CvBalance SET TakenNoteOf = " + Literal(now) +
                           " WHERE TakenNoteOf IS NULL");
    return open;
}

void FollowAccount(Connection& connection, const std::string& from, const std::string& to)
{
    const Connection::Untraced untraced(connection);
    if (from == to || !HasList(connection))
        return;
    const std::string here = " WHERE AccountID = " + Quoted(from);
    if (!connection.Execute("SELECT Sequence FROM Account" + here).Empty())
        return;
    if (!connection.Execute("SELECT At FROM CvBalance" + here).Empty())
        connection.Execute("UPDATE CvBalance SET AccountID = " + Quoted(to) + here);
}

}  // namespace clb::noticed_balances
