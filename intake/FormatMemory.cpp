#include "intake/FormatMemory.h"

#include <vector>

#include "base/Value.h"
#include "data/clsDatabase.h"
#include "engine/rows/RawSql.h"
#include "intake/Digest.h"
#include "statements/form/FileDates.h"

namespace clb {
namespace {

using Order = DateText::Order;

std::string OrderText(const StatementAnswers& answers)
{
    return answers.dateOrder ? KeyOf(*answers.dateOrder) : std::string();
}

std::string DecimalText(const StatementAnswers& answers)
{
    return answers.decimal ? std::string(1, *answers.decimal) : std::string();
}

std::string SignText(const StatementAnswers& answers)
{
    return !answers.inverted ? "" : *answers.inverted ? "inverted" : "normal";
}

StatementAnswers AnswersOf(const std::string& order, const std::string& decimal,
                           const std::string& sign, std::string columns)
{
    StatementAnswers answers;
    for (const Order one : {Order::DayMonthYear, Order::MonthDayYear, Order::YearMonthDay})
        if (order == KeyOf(one))
            answers.dateOrder = one;
    if (decimal == "." || decimal == ",")
        answers.decimal = decimal.front();
    if (sign == "normal" || sign == "inverted")
        answers.inverted = sign == "inverted";
    answers.columns = std::move(columns);
    return answers;
}

}  // namespace

bool FormatMemory::Exists()
{
    bool found = false;
    RawSql(database_.Database())
        .Select("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = 'CvFormat'",
                [&found](const RawSql::Row&) { found = true; });
    return found;
}

std::int64_t FormatMemory::SequenceOf(const std::string& accountID)
{
    std::int64_t sequence = 0;
    RawSql(database_.Database())
        .Select("SELECT Sequence FROM Account WHERE AccountID = '" +
                    clsDatabase::ToSqlString(accountID) + "' ORDER BY Sequence LIMIT 1",
                [&sequence](const RawSql::Row& row) { sequence = row.Integer(0); });
    return sequence;
}

std::optional<FormatMemory::Remembered> FormatMemory::Find(const std::string& shape,
                                                           const std::string& accountID)
{
    std::optional<Remembered> found;
    if (shape.empty() || !Exists())
        return found;
    RawSql(database_.Database())
        .Select(
            "SELECT DateOrder, DecimalMark, Sign, Columns, (SELECT AccountID FROM Account WHERE "
            "Account.Sequence = CvFormat.Account) FROM CvFormat WHERE Shape = '" +
                Sha256(shape) + "' ORDER BY Account = " + std::to_string(SequenceOf(accountID)) +
                " DESC, Format DESC LIMIT 1",
            [&found](const RawSql::Row& row) {
                const auto text = [&row](int column) { return std::string(row.Text(column)); };
                found = {AnswersOf(text(0), text(1), text(2), text(3)), text(4)};
            });
    return found;
}

void FormatMemory::Keep(const std::string& shape, const std::string& accountID,
                        const StatementAnswers& answers)
{
    const auto last = Find(shape, {});
    const StatementAnswers kept =
        AnswersOf(OrderText(answers), DecimalText(answers), SignText(answers), answers.columns);
    if (shape.empty() || (last && last->accountID == accountID && last->answers == kept))
        return;
    RawSql sql(database_.Database());
    if (!Exists())
        sql.Write(
            "CREATE TABLE CvFormat (Format INTEGER PRIMARY KEY, Shape TEXT, Account INTEGER, "
            "DateOrder TEXT, DecimalMark TEXT, Sign TEXT, Columns TEXT)");
    const std::vector<Value> key = {Sha256(shape),
                                    static_cast<std::int32_t>(SequenceOf(accountID))};
    sql.Write("DELETE FROM CvFormat WHERE Shape = ?1 AND Account = ?2", key);
    sql.Write(
        "INSERT INTO CvFormat (Shape, Account, DateOrder, DecimalMark, Sign, Columns) "
        "VALUES (?1, ?2, ?3, ?4, ?5, ?6)",
        {key[0], key[1], OrderText(answers), DecimalText(answers), SignText(answers),
         answers.columns});
}

}  // namespace clb
