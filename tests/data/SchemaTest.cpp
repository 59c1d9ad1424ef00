#include "base/RuntimeError.h"
#include "engine/storage/EngineError.h"
#include "tests/data/StoreFixture.h"

namespace clb {
namespace {

class SchemaTest : public StoreTest {
protected:
    std::vector<std::string> Opening()
    {
        Connection before;
        before.Open("Data Source=" + folder_.Path() + "/db/clb.mdb");
        for (const std::string& statement : statements_)
            before.Execute(statement);
        before.Settle();
        return {};
    }
    void Prepare(std::vector<std::string> statements)
    {
        statements_ = std::move(statements);
        Opening();
    }
    std::string VersionColumns()
    {
        Recordset version;
        Store().Fill(version, "SELECT * FROM _SchemaVersion", true);
        std::string names;
        for (const Field& field : version.Fields())
            names += field.name + ";";
        EXPECT_EQ(version.RecordCount(), 0);
        return names;
    }
    FieldType TypeOf(const std::string& table, const std::string& field)
    {
        Recordset records;
        Store().Fill(records, "SELECT * FROM " + table, true);
        return records.Fields()[records.FieldIndex(field)].type;
    }

    std::vector<std::string> statements_;
};

TEST_F(SchemaTest, TheDeliveredFileHasTheCurrentVersion)
{
    EXPECT_EQ(VersionColumns(), "2;");
    EXPECT_EQ(TypeOf("Loan", "InterestRate"), FieldType::Single);
    EXPECT_EQ(TypeOf("Account", "BudgetInclude"), FieldType::Boolean);
    EXPECT_EQ(TypeOf("Trans", "Amount"), FieldType::Money);
    EXPECT_EQ(TypeOf("Investment", "Quantity"), FieldType::Double);
    EXPECT_EQ(TypeOf("Trans", "PostDate"), FieldType::Date);
}

TEST_F(SchemaTest, AFileWithoutVersionGetsBothSteps)
{
    Prepare({"DROP TABLE _SchemaVersion", "ALTER TABLE Account DROP COLUMN BudgetInclude",
             "ALTER TABLE Loan ALTER COLUMN InterestRate DOUBLE",
             "INSERT INTO Account (AccountID, Description, Type) VALUES ('10', 'Old', 'Bank')",
             "INSERT INTO Loan (Description, InterestRate, AccountID) VALUES ('Car', 4.75, '20')"});

    EXPECT_EQ(VersionColumns(), "2;");
    EXPECT_EQ(Store().SchemaVersion(), 2);
    EXPECT_EQ(TypeOf("Loan", "InterestRate"), FieldType::Single);
    EXPECT_EQ(Rows("SELECT AccountID, BudgetInclude FROM Account"),
              (std::vector<std::string>{"10|True"}));
    EXPECT_EQ(Rows("SELECT Description, InterestRate FROM Loan"),
              (std::vector<std::string>{"Car|4.75"}));
}

TEST_F(SchemaTest, VersionOneGetsOnlyTheBudgetFlag)
{
    Prepare({"DROP TABLE _SchemaVersion", "CREATE TABLE _SchemaVersion (1 LONG)",
             "ALTER TABLE Account DROP COLUMN BudgetInclude",
             "ALTER TABLE Loan ALTER COLUMN InterestRate DOUBLE"});

    EXPECT_EQ(VersionColumns(), "2;");
    EXPECT_EQ(TypeOf("Loan", "InterestRate"), FieldType::Double);
    EXPECT_EQ(TypeOf("Account", "BudgetInclude"), FieldType::Boolean);
}

TEST_F(SchemaTest, ALaterVersionIsLeftAsItIs)
{
    Prepare({"DROP TABLE _SchemaVersion", "CREATE TABLE _SchemaVersion (7 LONG)",
             "ALTER TABLE Account DROP COLUMN BudgetInclude"});

    EXPECT_EQ(VersionColumns(), "7;");
    EXPECT_EQ(Store().SchemaVersion(), 7);
    EXPECT_THROW(Rows("SELECT BudgetInclude FROM Account"), EngineError);
}

TEST_F(SchemaTest, AHalfUpgradedFileFailsWithTheEnginesMessageAndKeepsItsVersion)
{
    Prepare({"DROP TABLE _SchemaVersion", "CREATE TABLE _SchemaVersion (1 LONG)"});

    EXPECT_THROW(Store(), EngineError);

    Connection after;
    after.Open("Data Source=" + folder_.Path() + "/db/clb.mdb");
    EXPECT_EQ(after.Execute("SELECT * FROM _SchemaVersion").Fields().at(0).name, "1");
}

TEST_F(SchemaTest, WhatRanBeforeAFailingStepStays)
{
    Prepare({"DROP TABLE _SchemaVersion", "ALTER TABLE Loan ALTER COLUMN InterestRate DOUBLE"});

    for (int start = 0; start < 2; ++start) {
        EXPECT_THROW(Store(), EngineError);

        Connection after;
        after.Open("Data Source=" + folder_.Path() + "/db/clb.mdb");
        EXPECT_EQ(after.Execute("SELECT * FROM _SchemaVersion").Fields().at(0).name, "0");
        EXPECT_EQ(after.Execute("SELECT InterestRate FROM Loan").Fields().at(0).type,
                  FieldType::Single);
    }
}

TEST_F(SchemaTest, AVersionBeyondSixteenBitsIsAnErrorAndChangesNothing)
{
    for (const char* version : {"65536", "65537", "40000"}) {
        SCOPED_TRACE(version);
        Prepare({"DROP TABLE _SchemaVersion",
                 "CREATE TABLE _SchemaVersion (" + std::string(version) + " LONG)"});

        try {
            Store();
            ADD_FAILURE() << "no error";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), errors::Overflow);
        }

        Connection after;
        after.Open("Data Source=" + folder_.Path() + "/db/clb.mdb");
        EXPECT_EQ(after.Execute("SELECT * FROM _SchemaVersion").Fields().at(0).name, version);
    }
}

TEST_F(SchemaTest, AMissingFileIsAnErrorAndNotCreated)
{
    std::filesystem::remove(folder_.Path("db/clb.mdb"));

    EXPECT_THROW(Store(), EngineError);
    EXPECT_FALSE(folder_.Holds("db/clb.mdb"));
}

TEST_F(SchemaTest, AddedAccountsCountInTheBudgetAndNumberThemselves)
{
    AddAccount("10", "Bank");
    AddAccount("20", "Cash");

    EXPECT_EQ(Rows("SELECT AccountID, Sequence, BudgetInclude, OpeningBalance FROM Account"),
              (std::vector<std::string>{"10|1|True|0", "20|2|True|0"}));
}

TEST_F(SchemaTest, RowsFollowTheNumberOfTheirAccount)
{
    AddAccount("10", "Bank");
    AddTransaction(1, "10", "5", 2006, 3);
    Execute("INSERT INTO Investment (AccountID, StockSymbol) VALUES ('10', 'ACME')");
    Execute("INSERT INTO Loan (AccountID, Description) VALUES ('10', 'Car')");

    Execute("UPDATE Account SET AccountID = '99' WHERE AccountID = '10'");

    for (const char* table : {"Trans", "Investment", "Loan"})
        EXPECT_EQ(Rows(std::string("SELECT AccountID FROM ") + table),
                  (std::vector<std::string>{"99"}))
            << table;
}

TEST_F(SchemaTest, RowsStayWhileAnotherAccountHasTheOldNumber)
{
    AddAccount("10", "Bank");
    AddAccount("10", "Cash");
    AddTransaction(1, "10", "5", 2006, 3);

    Execute("UPDATE Account SET AccountID = '99' WHERE Type = 'Bank'");

    EXPECT_EQ(Rows("SELECT AccountID FROM Trans"), (std::vector<std::string>{"10"}));
}

}  // namespace
}  // namespace clb
