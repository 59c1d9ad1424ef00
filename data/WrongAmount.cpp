#include "data/WrongAmount.h"

#include "engine/rows/Connection.h"
#include "engine/rows/RawSql.h"
#include "engine/storage/EngineError.h"

namespace clb {
namespace {

/// "number 5, piece 2 (account 'A1')". Columns 1 to 3 of the row are Sequence, SubSequence and
/// AccountID; a table without one of them has NULL there.
std::string NameOf(const RawSql::Row& row)
{
    std::string name = row.IsNull(1) ? "row " + std::to_string(row.Integer(0))
                                     : "number " + std::string(row.Text(1));
    if (!row.IsNull(1) && !row.IsNull(2))
        name += ", piece " + std::string(row.Text(2));
    if (!row.IsNull(3))
        name += " (account '" + std::string(row.Text(3)) + "')";
    return name;
}

/// Empty if the column holds amounts only.
std::string FirstWrong(Connection& connection, const SummedAmounts& amounts,
                       const std::string& column)
{
    RawSql raw(connection);
    const TableInfo* const table = raw.Find(amounts.table);
    if (!table)
        return {};
    const auto orNull = [&](const char* name) {
        return std::string(table->Find(name) ? name : "NULL");
    };
    std::string sentence;
    raw.Select("SELECT rowid, " + orNull("Sequence") + ", " + orNull("SubSequence") + ", " +
                   orNull("AccountID") + ", " + column + " FROM " + amounts.table +
                   " WHERE typeof(" + column + ") NOT IN ('integer', 'null')" +
                   (amounts.condition.empty() ? "" : " AND (" + amounts.condition + ")") +
                   " ORDER BY rowid LIMIT 1",
               [&](const RawSql::Row& row) {
                   sentence = amounts.table + "." + column + " of " + NameOf(row) + " holds " +
                              row.Describe(4) + ", which is not an amount.";
               });
    return sentence;
}

}  // namespace

void ThrowWithPlace(Connection& connection, const SummedAmounts& amounts, const EngineError& error)
{
    if (error.Number() == engine_errors::Overflow)
        throw EngineError(error.Number(),
                          "The rows of the " +
                              (amounts.account.empty() ? "table " + amounts.table
                                                       : "account '" + amounts.account + "'") +
                              " add up to more than an amount can be.");
    if (error.Number() != engine_errors::TypeMismatch)
        throw error;
    for (const std::string& column : amounts.columns) {
        const std::string sentence = FirstWrong(connection, amounts, column);
        if (!sentence.empty())
            throw EngineError(error.Number(), sentence);
    }
    throw error;
}

}  // namespace clb
