#include "tests/stress/RawBook.h"

#include <sqlite3.h>

#include <stdexcept>

namespace clb {
namespace {

struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

constexpr int kPatience = 60000;

Statement Prepare(sqlite3* file, const std::string& sql)
{
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(file, sql.c_str(), -1, &raw, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(file));
    return Statement(raw);
}

bool NextRow(sqlite3* file, const Statement& statement)
{
    const int code = sqlite3_step(statement.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        throw std::runtime_error(sqlite3_errmsg(file));
    return code == SQLITE_ROW;
}

std::string Text(const Statement& statement, int column)
{
    const auto* text = sqlite3_column_text(statement.get(), column);
    return text ? reinterpret_cast<const char*>(text) : "";
}

}  // namespace

void RawBook::Close::operator()(sqlite3* file) const
{
    sqlite3_close(file);
}

RawBook::RawBook(const std::string& folder)
{
    sqlite3* raw = nullptr;
    const std::string path = folder + "/db/clb.mdb";
    const int code = sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
    file_.reset(raw);
    if (code != SQLITE_OK)
        throw std::runtime_error("cannot open " + path);
    sqlite3_busy_timeout(raw, kPatience);
}

std::vector<std::string> RawBook::Rows(const std::string& sql)
{
    const Statement statement = Prepare(file_.get(), sql);
    std::vector<std::string> rows;
    while (NextRow(file_.get(), statement)) {
        std::string row;
        for (int column = 0; column < sqlite3_column_count(statement.get()); ++column)
            row += (column > 0 ? "|" : "") + Text(statement, column);
        rows.push_back(row);
    }
    return rows;
}

std::string RawBook::One(const std::string& sql)
{
    const std::vector<std::string> rows = Rows(sql);
    if (rows.size() != 1)
        throw std::runtime_error(std::to_string(rows.size()) + " rows: " + sql);
    return rows.front();
}

std::map<std::int32_t, Transaction> RawBook::Transactions()
{
    const Statement statement =
        Prepare(file_.get(),
                "SELECT Sequence, SubSequence, AccountID, Description, Amount, Category, "
                "PayeeName, Year, Period, FITID, PostDate FROM Trans");
    std::map<std::int32_t, Transaction> transactions;
    while (NextRow(file_.get(), statement)) {
        sqlite3_stmt* const row = statement.get();
        transactions[sqlite3_column_int(row, 0)][sqlite3_column_int(row, 1)] = {
            .account = Text(statement, 2),
            .description = Text(statement, 3),
            .amount = sqlite3_column_int64(row, 4),
            .category = Text(statement, 5),
            .notes = Text(statement, 6),
            .month = {sqlite3_column_int(row, 7), sqlite3_column_int(row, 8)},
            .fitid = Text(statement, 9),
            .date = Text(statement, 10)};
    }
    return transactions;
}

std::vector<std::string> RawBook::Faults()
{
    // A piece is described as its transaction with " (split #1)" after it.
    const std::string origin =
        "CASE instr(Description, ' (split #') WHEN 0 THEN Description ELSE "
        "substr(Description, 1, instr(Description, ' (split #') - 1) END";
    const std::vector<std::pair<std::string, std::string>> questions = {
        {"piece twice",
         "SELECT Sequence, SubSequence, group_concat(Description, ' and ') FROM Trans GROUP BY "
         "Sequence, SubSequence HAVING COUNT(*) > 1"},
        {"number of two transactions",
         "SELECT Sequence, group_concat(Description, ' and ') FROM Trans GROUP BY Sequence HAVING "
         "COUNT(DISTINCT AccountID || ' ' || " +
             origin + ") > 1"},
        {"no number", "SELECT Description FROM Trans WHERE Sequence IS NULL OR Sequence < 1"},
        {"statement row twice in the account",
         "SELECT AccountID, FITID, group_concat(Sequence, ' and ') FROM Trans WHERE FITID <> '' "
         "GROUP BY AccountID, FITID HAVING COUNT(DISTINCT Sequence) > 1"},
        {"balance is not the sum of the rows",
         "SELECT AccountID, CurrentBalance, (SELECT TOTAL(Amount) FROM Trans WHERE "
         "Trans.AccountID = Account.AccountID) AS Total FROM Account WHERE Type IN ('Bank', "
         "'Cash', 'Credit Card') AND CurrentBalance <> Total"},
        {"category without a budget line",
         "SELECT Sequence, SubSequence, Category, Year, Period FROM Trans WHERE NOT EXISTS (SELECT "
         "1 FROM Budget WHERE Budget.Year = Trans.Year AND Budget.Period = Trans.Period AND "
         "Budget.Category = Trans.Category)"},
        {"budget line twice",
         "SELECT Year, Period, Category FROM Budget GROUP BY Year, Period, Category HAVING "
         "COUNT(*) > 1"},
        {"account twice", "SELECT AccountID FROM Account GROUP BY AccountID HAVING COUNT(*) > 1"},
        {"damage", "SELECT * FROM pragma_integrity_check WHERE integrity_check <> 'ok'"}};
    std::vector<std::string> faults;
    for (const auto& [fault, sql] : questions)
        for (const std::string& row : Rows(sql))
            faults.push_back(fault + ": " + row);
    return faults;
}

}  // namespace clb
