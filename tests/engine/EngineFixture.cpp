#include "tests/engine/EngineFixture.h"

#include <stdlib.h>

#include <filesystem>

namespace clb {

const char* const kTestSchema = R"(
CREATE TABLE Account (
    AccountID TEXT, Description TEXT, Type TEXT,
    OpeningBalance MONEY DEFAULT 0, CurrentBalance MONEY DEFAULT 0,
    Sequence INTEGER PRIMARY KEY AUTOINCREMENT,
    BudgetInclude YESNO NOT NULL DEFAULT 1);
CREATE TABLE Trans (
    Sequence LONG DEFAULT 0, SubSequence LONG DEFAULT 0, AccountID TEXT, PostDate DATETIME,
    Description TEXT, Amount MONEY DEFAULT 0, CheckID TEXT, Category TEXT(50), PayeeName TEXT,
    Year LONG DEFAULT 0, Period LONG DEFAULT 0, FITID TEXT);
CREATE TABLE Budget (
    Sequence INTEGER PRIMARY KEY AUTOINCREMENT, Year LONG DEFAULT 0, Period LONG DEFAULT 0,
    CategoryGroup TEXT(50), Category TEXT(50), Amount MONEY DEFAULT 0);
CREATE TABLE Investment (
    StockSymbol TEXT, StockName TEXT, PurchaseDate DATETIME, Quantity DOUBLE,
    PurchasePrice MONEY DEFAULT 0, LastPrice MONEY DEFAULT 0, Total MONEY DEFAULT 0,
    AccountID TEXT, Sequence INTEGER PRIMARY KEY AUTOINCREMENT);
CREATE TABLE Loan (
    Description TEXT, OriginalAmount MONEY DEFAULT 0, PaidAmount MONEY DEFAULT 0,
    InterestRate SINGLE, AccountID TEXT, Sequence INTEGER PRIMARY KEY AUTOINCREMENT);
CREATE TABLE _SchemaVersion ("2" LONG);
CREATE INDEX TransSequence ON Trans (Sequence, SubSequence);
CREATE INDEX TransAccount ON Trans (AccountID, Year, Period);
CREATE TRIGGER AccountFollow AFTER UPDATE OF AccountID ON Account
WHEN NEW.AccountID <> OLD.AccountID
 AND NOT EXISTS (SELECT 1 FROM Account WHERE AccountID = OLD.AccountID)
BEGIN
    UPDATE Trans SET AccountID = NEW.AccountID WHERE AccountID = OLD.AccountID;
    UPDATE Loan SET AccountID = NEW.AccountID WHERE AccountID = OLD.AccountID;
END;
)";

EngineTest::EngineTest()
{
    std::string name = (std::filesystem::temp_directory_path() / "clb-engine-XXXXXX").string();
    folder_ = ::mkdtemp(name.data());
    std::filesystem::create_directories(folder_ + "/db");
    path_ = folder_ + "/db/clb.mdb";
    Connection::CreateFile(path_, kTestSchema);
    connection_.Open(ConnectionText());
}

EngineTest::~EngineTest()
{
    connection_ = Connection();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::string EngineTest::ConnectionText() const
{
    return "Provider=Test;Data Source=" + folder_ + R"(\db\clb.mdb;Persist Security Info=False)";
}

Connection EngineTest::Another() const
{
    Connection other;
    other.Open(ConnectionText());
    return other;
}

void EngineTest::KillAndReopen()
{
    connection_ = Connection();
    connection_.Open(ConnectionText());
}

void EngineTest::RunAll(const std::vector<std::string>& queries)
{
    for (const std::string& query : queries)
        Run(query);
}

Recordset EngineTest::Opened(std::string_view sql, LockKind lock)
{
    Recordset rows;
    rows.Open(sql, connection_, CursorKind::Keyset, lock);
    return rows;
}

std::vector<std::string> EngineTest::Rows(std::string_view sql)
{
    Recordset rows = Opened(sql, LockKind::ReadOnly);
    return RowsOf(rows);
}

Value EngineTest::Single(std::string_view sql)
{
    const Recordset rows = Opened(sql, LockKind::ReadOnly);
    return rows.Get(0);
}

std::string EngineTest::FieldsOf(std::string_view sql)
{
    std::string text;
    const Recordset rows = Opened(sql, LockKind::ReadOnly);
    for (const Field& field : rows.Fields())
        text += (text.empty() ? "" : ",") + field.name + ":" + TypeName(field.type);
    return text;
}

std::vector<std::string> RowsOf(Recordset& rows)
{
    std::vector<std::string> lines;
    for (; !rows.AtEnd(); rows.MoveNext()) {
        std::string line;
        for (std::size_t i = 0; i < rows.Fields().size(); ++i) {
            const Value& value = rows.Get(i);
            line += (i > 0 ? "|" : "") + (IsNull(value) ? std::string("-") : ToText(value));
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace clb
