// Every query of the program, word for word, with sample values.
#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

using Lines = std::vector<std::string>;

class ProgramQueriesTest : public EngineTest {
protected:
    ProgramQueriesTest()
    {
        Run("INSERT INTO Account (AccountID, Description, Type, OpeningBalance, CurrentBalance) "
            "VALUES ('100', 'Checking', 'Bank', 500.25, -45.5)");
        Run("INSERT INTO Account (AccountID, Description, Type, BudgetInclude) "
            "VALUES ('200', 'alpha', 'Bank', NO)");
        Run("INSERT INTO Account (AccountID, Description, Type) VALUES ('O''Neil', 'Car', 'Loan')");
        Run("INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Description, Amount, "
            "CheckID, Category, PayeeName, Year, Period, FITID) VALUES (1, 1, '100', #2006-01-15#, "
            "'Grocer', -45.5, '', 'Food', 'milk', 2006, 1, 'F1')");
        Run("INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Description, Amount, "
            "CheckID, Category, PayeeName, Year, Period, FITID) VALUES (2, 0, '100', #2006-02-01#, "
            "'Baker', -4.75, '7', 'Food', 'bread', 2006, 2, 'F2')");
        Run("INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Description, Amount, "
            "CheckID, Category, PayeeName, Year, Period, FITID) VALUES (3, 0, '200', #2006-01-20#, "
            "'Secret', -1000, '', 'Food', '', 2006, 1, 'F3')");
        Run("INSERT INTO Budget (Year, Period, CategoryGroup, Category, Amount) "
            "VALUES (2006, 1, 'Living', 'Food', 250)");
        Run("INSERT INTO Budget (Year, Period, CategoryGroup, Category, Amount) "
            "VALUES (2006, 1, 'living', 'Clothes', 80)");
        Run("INSERT INTO Investment (StockSymbol, StockName, PurchaseDate, Quantity, "
            "PurchasePrice, "
            "LastPrice, Total, AccountID) VALUES ('ACME', 'Acme', #2005-03-01#, 2.5, 10, 12.5, "
            "31.25, '300')");
        Run("INSERT INTO Loan (Description, OriginalAmount, PaidAmount, InterestRate, AccountID) "
            "VALUES ('Car', 10000, 2500.5, 6.25, 'O''Neil')");
    }
};

struct Example {
    const char* sql;
    const char* fields;
    Lines rows;
};

TEST_F(ProgramQueriesTest, EveryQueryGivesItsFieldsAndRows)
{
    const Example queries[] = {
        {"SELECT * FROM _SchemaVersion", "2:long", {}},
        {"SELECT Description, Type, AccountID, OpeningBalance, (OpeningBalance + CurrentBalance) "
         "as "
         "TotBalance, Sequence FROM Account ORDER BY Type, Description",
         "Description:text,Type:text,AccountID:text,OpeningBalance:money,TotBalance:money,"
         "Sequence:long",
         {"alpha|Bank|200|0|0|2", "Checking|Bank|100|500.25|454.75|1", "Car|Loan|O'Neil|0|0|3"}},
        {"SELECT Budget.Category, Budget.Amount, Budget.Sequence, Budget.Year, Budget.Period, "
         "Budget.CategoryGroup FROM Budget WHERE Budget.Year = 2006 AND Budget.Period = 1 ORDER BY "
         "Budget.CategoryGroup, Budget.Category",
         "Category:text,Amount:money,Sequence:long,Year:long,Period:long,CategoryGroup:text",
         {"Food|250|1|2006|1|Living", "Clothes|80|2|2006|1|living"}},
        {"SELECT Description, AccountID, OpeningBalance, (OpeningBalance + CurrentBalance) as "
         "TotBalance, Sequence, Type FROM Account WHERE Type = 'Bank' ORDER BY Description",
         "Description:text,AccountID:text,OpeningBalance:money,TotBalance:money,Sequence:long,"
         "Type:text",
         {"alpha|200|0|0|2|Bank", "Checking|100|500.25|454.75|1|Bank"}},
        {"SELECT PostDate, Description, Amount, CheckID, Category, PayeeName AS Notes, AccountID, "
         "Year, Period, FITID, Sequence, SubSequence FROM Trans WHERE AccountID = '100' AND Period "
         "= 1 AND Year = 2006 ORDER BY PostDate DESC, Sequence DESC, SubSequence",
         "PostDate:date,Description:text,Amount:money,CheckID:text,Category:text,Notes:text,"
         "AccountID:text,Year:long,Period:long,FITID:text,Sequence:long,SubSequence:long",
         {"2006-01-15|Grocer|-45.5||Food|milk|100|2006|1|F1|1|1"}},
        {"SELECT StockSymbol, StockName, PurchaseDate, Quantity, PurchasePrice, LastPrice, Total, "
         "AccountID, Sequence FROM Investment WHERE AccountID = '300' ORDER BY PurchaseDate",
         "StockSymbol:text,StockName:text,PurchaseDate:date,Quantity:double,PurchasePrice:money,"
         "LastPrice:money,Total:money,AccountID:text,Sequence:long",
         {"ACME|Acme|2005-03-01|2.5|10|12.5|31.25|300|1"}},
        {"SELECT Description, OriginalAmount, PaidAmount, InterestRate, AccountID, Sequence FROM "
         "Loan WHERE AccountID = 'O''Neil' ORDER BY Description",
         "Description:text,OriginalAmount:money,PaidAmount:money,InterestRate:single,"
         "AccountID:text,Sequence:long",
         {"Car|10000|2500.5|6.25|O'Neil|1"}},
        {"SELECT MAX( Sequence ) AS NextSequence FROM Trans", "NextSequence:long", {"3"}},
        {"SELECT COUNT( 1 ) AS [Count] FROM Account WHERE AccountID = '100' AND Sequence <> 1",
         "Count:long",
         {"0"}},
        {"SELECT COUNT( 1 ) AS [Count] FROM Trans WHERE Trans.Category = 'Food' AND Year = 2006 "
         "AND "
         "Period = 1",
         "Count:long",
         {"2"}},
        {"SELECT COUNT( 1 ) AS [Count] FROM Account WHERE AccountID = 'New Account (2)'",
         "Count:long",
         {"0"}},
        {"SELECT SUM( OpeningBalance ) AS TotOpn, SUM( CurrentBalance ) AS TotCur FROM Account",
         "TotOpn:money,TotCur:money",
         {"500.25|-45.5"}},
        {"SELECT SUM( OpeningBalance ) AS TotOpn, SUM( CurrentBalance ) AS TotCur FROM Account "
         "WHERE Type = 'Cash'",
         "TotOpn:money,TotCur:money",
         {"-|-"}},
        {"SELECT SUM( Amount ) AS TotAmount FROM Budget WHERE Year = 2006 AND Period = 1",
         "TotAmount:money",
         {"330"}},
        {"SELECT SUM( Amount ) AS TotAmount FROM Account INNER JOIN Trans ON Account.AccountID = "
         "Trans.AccountID WHERE Account.BudgetInclude = TRUE AND Year = 2006 AND Period = 1",
         "TotAmount:money",
         {"-45.5"}},
        {"SELECT OpeningBalance FROM Account WHERE AccountID = '100'",
         "OpeningBalance:money",
         {"500.25"}},
        {"SELECT SUM( Amount ) AS TotAmount FROM Trans WHERE AccountID = '100' AND ( Year < 2006 "
         "OR "
         "( Year = 2006 AND Period <= 1) )",
         "TotAmount:money",
         {"-45.5"}},
        {"SELECT sum( Total ) AS TotAmount FROM Investment WHERE AccountID = '300'",
         "TotAmount:money",
         {"31.25"}},
        {"SELECT SUM( OriginalAmount - PaidAmount ) AS TotAmount FROM Loan",
         "TotAmount:money",
         {"7499.5"}},
        {"SELECT SUM( Amount ) AS TotAmount FROM Trans WHERE AccountID = '100'",
         "TotAmount:money",
         {"-50.25"}},
        {"SELECT sum( OriginalAmount - PaidAmount ) AS TotAmount FROM Loan WHERE AccountID = "
         "'O''Neil'",
         "TotAmount:money",
         {"7499.5"}},
        {"SELECT CurrentBalance FROM Account WHERE AccountID = '100'",
         "CurrentBalance:money",
         {"-45.5"}},
        {"SELECT Year, Period, Category, CategoryGroup, Amount FROM Budget WHERE Budget.Year = "
         "2006 "
         "AND Budget.Period = 1 AND Budget.Category = 'Food'",
         "Year:long,Period:long,Category:text,CategoryGroup:text,Amount:money",
         {"2006|1|Food|Living|250"}},
        {"SELECT * FROM Budget WHERE Year = 2006 AND Period = 1",
         "Sequence:long,Year:long,Period:long,CategoryGroup:text,Category:text,Amount:money",
         {"1|2006|1|Living|Food|250", "2|2006|1|living|Clothes|80"}},
        {"SELECT Category FROM Trans WHERE Year = 2006 AND Period = 1 AND Category = 'Food'",
         "Category:text",
         {"Food", "Food"}},
        {"SELECT Year, Period FROM Trans WHERE Trans.Sequence = 2 AND Trans.SubSequence = 0",
         "Year:long,Period:long",
         {"2006|2"}},
        {"SELECT MAX( SubSequence ) + 1 AS NextSubSequence FROM Trans WHERE Trans.Sequence = 1",
         "NextSubSequence:long",
         {"2"}},
        {"SELECT * FROM Trans WHERE Trans.Sequence = 2 AND Trans.SubSequence = 0",
         "Sequence:long,SubSequence:long,AccountID:text,PostDate:date,Description:text,"
         "Amount:money,CheckID:text,Category:text,PayeeName:text,Year:long,Period:long,FITID:text",
         {"2|0|100|2006-02-01|Baker|-4.75|7|Food|bread|2006|2|F2"}},
        {"SELECT * FROM Trans WHERE false",
         "Sequence:long,SubSequence:long,AccountID:text,PostDate:date,Description:text,"
         "Amount:money,CheckID:text,Category:text,PayeeName:text,Year:long,Period:long,FITID:text",
         {}},
        {"SELECT * FROM Account ORDER BY Type, Description",
         "AccountID:text,Description:text,Type:text,OpeningBalance:money,CurrentBalance:money,"
         "Sequence:long,BudgetInclude:boolean",
         {"200|alpha|Bank|0|0|2|False", "100|Checking|Bank|500.25|-45.5|1|True",
          "O'Neil|Car|Loan|0|0|3|True"}},
        {"SELECT Category FROM Budget WHERE Budget.Year = 2006 AND Period = 1",
         "Category:text",
         {"Food", "Clothes"}},
        {"SELECT SUM( Amount ) AS TotActual FROM Account INNER JOIN Trans ON Account.AccountID = "
         "Trans.AccountID WHERE Account.BudgetInclude = TRUE AND Year = 2006 AND Period = 1 AND "
         "Category = 'Food'",
         "TotActual:money",
         {"-45.5"}},
        {"SELECT PostDate, Trans.Description, Amount FROM Account INNER JOIN Trans ON "
         "Account.AccountID = Trans.AccountID WHERE Account.BudgetInclude = TRUE AND Year = 2006 "
         "AND Period = 1 AND Trans.Category = 'Food'",
         "PostDate:date,Description:text,Amount:money",
         {"2006-01-15|Grocer|-45.5"}},
        {"SELECT SUM( Amount ) AS TotAmount FROM Budget WHERE Year = 2006 AND Period = 1 AND "
         "CategoryGroup = 'Living'",
         "TotAmount:money",
         {"250"}},
        {"SELECT SUM( Trans.Amount ) AS TotAmount FROM Account INNER JOIN (Budget INNER JOIN Trans "
         "ON Budget.Category = Trans.Category AND Budget.Year = Trans.Year AND Budget.Period = "
         "Trans.Period) ON Account.AccountID = Trans.AccountID WHERE Account.BudgetInclude = TRUE "
         "AND Trans.Year = 2006 AND Trans.Period = 1 AND CategoryGroup = 'Living'",
         "TotAmount:money",
         {"-45.5"}},
        {"SELECT AccountID, Type FROM Account",
         "AccountID:text,Type:text",
         {"100|Bank", "200|Bank", "O'Neil|Loan"}},
        {"SELECT AccountID, PostDate, Amount, Description, FITID, CheckID, Period, Year, Category, "
         "PayeeName AS Notes, Sequence FROM Trans WHERE AccountID = '100'",
         "AccountID:text,PostDate:date,Amount:money,Description:text,FITID:text,CheckID:text,"
         "Period:long,Year:long,Category:text,Notes:text,Sequence:long",
         {"100|2006-01-15|-45.5|Grocer|F1||1|2006|Food|milk|1",
          "100|2006-02-01|-4.75|Baker|F2|7|2|2006|Food|bread|2"}},
        {"SELECT AccountID, FITID, PostDate, Amount, Description, CheckID, Period, Year, Category, "
         "PayeeName AS Notes, Sequence FROM Trans WHERE AccountID = '100' AND PostDate = "
         "#2006-01-15# AND Amount = -45.5 AND PayeeName = 'milk' AND FITID <> 'QIF1'",
         "AccountID:text,FITID:text,PostDate:date,Amount:money,Description:text,CheckID:text,"
         "Period:long,Year:long,Category:text,Notes:text,Sequence:long",
         {"100|F1|2006-01-15|-45.5|Grocer||1|2006|Food|milk|1"}},
        {"SELECT AccountID, FITID, PostDate, Amount, Description, CheckID, Period, Year, Category, "
         "PayeeName AS Notes, Sequence FROM Trans WHERE AccountID = '100' AND PostDate = "
         "#2006-02-01# AND Amount = -4.75 AND CheckID = '7' AND PayeeName = 'bread' AND FITID <> "
         "'F2'",
         "AccountID:text,FITID:text,PostDate:date,Amount:money,Description:text,CheckID:text,"
         "Period:long,Year:long,Category:text,Notes:text,Sequence:long",
         {}},
        {"SELECT Description FROM Account", "Description:text", {"Checking", "alpha", "Car"}},
        {"SELECT AccountID, Description, Type FROM Account",
         "AccountID:text,Description:text,Type:text",
         {"100|Checking|Bank", "200|alpha|Bank", "O'Neil|Car|Loan"}},
        {"SELECT AccountID FROM Account WHERE Description = 'Car'", "AccountID:text", {"O'Neil"}},
        {"select * from Trans where AccountID = '200'",
         "Sequence:long,SubSequence:long,AccountID:text,PostDate:date,Description:text,"
         "Amount:money,CheckID:text,Category:text,PayeeName:text,Year:long,Period:long,FITID:text",
         {"3|0|200|2006-01-20|Secret|-1000||Food||2006|1|F3"}},
        {"SELECT StockSymbol, LastPrice FROM Investment",
         "StockSymbol:text,LastPrice:money",
         {"ACME|12.5"}},
    };
    for (const Example& query : queries) {
        SCOPED_TRACE(query.sql);
        EXPECT_EQ(FieldsOf(query.sql), query.fields);
        EXPECT_EQ(Rows(query.sql), query.rows);
    }
}

TEST_F(ProgramQueriesTest, TheUpdatesAndDeletionsChangeTheirRowsOnly)
{
    Run("UPDATE Trans SET Category = '(none)' WHERE Trans.Category = 'Food' AND Year = 2006 AND "
        "Period = 1");
    Run("UPDATE Account SET BudgetInclude = TRUE WHERE AccountID = '200' AND NOT BudgetInclude = "
        "TRUE");
    Run("UPDATE Account SET BudgetInclude = FALSE WHERE AccountID = '100' AND NOT BudgetInclude = "
        "FALSE");
    Run("UPDATE Account SET AccountID = '555' WHERE Description = 'Car'");
    Run("DELETE FROM Account WHERE AccountID = '100'");

    EXPECT_EQ(Rows("SELECT Sequence, Category FROM Trans"),
              (Lines{"1|(none)", "2|Food", "3|(none)"}));
    EXPECT_EQ(Rows("SELECT AccountID, BudgetInclude FROM Account"),
              (Lines{"200|True", "555|True"}));
    EXPECT_EQ(Rows("SELECT AccountID FROM Loan"), Lines{"555"});
}

TEST_F(ProgramQueriesTest, AnUnknownViewsEmptyPartsAreASyntaxError)
{
    const auto error = ErrorOf([&] { Opened("SELECT  FROM  ORDER BY "); });

    EXPECT_EQ(error.Number(), engine_errors::Syntax);
    EXPECT_STREQ(error.what(), "Syntax error near 'FROM' in the statement.");
}

TEST_F(ProgramQueriesTest, AFileThatWasNeverVersionedIsUpgraded)
{
    RunAll({"DROP TABLE _SchemaVersion", "DROP TABLE Loan", "DROP TABLE Account",
            "CREATE TABLE Loan (Description TEXT, InterestRate DOUBLE, Sequence COUNTER)",
            "CREATE TABLE Account (AccountID TEXT, Sequence COUNTER)",
            "INSERT INTO Account (AccountID) VALUES ('1')",
            "INSERT INTO Loan (Description, InterestRate) VALUES ('Car', 6.1)"});
    EXPECT_EQ(ErrorOf([&] { Run("SELECT * FROM _SchemaVersion"); }).Number(), -2147217865);

    Run("CREATE TABLE _SchemaVersion (0 LONG)");
    EXPECT_EQ(FieldsOf("SELECT * FROM _SchemaVersion"), "0:long");
    Run("ALTER TABLE Loan ALTER COLUMN InterestRate Single");
    Run("ALTER TABLE Account ADD COLUMN BudgetInclude YESNO NOT NULL DEFAULT YES");
    Run("UPDATE Account SET BudgetInclude = YES");
    Run("ALTER TABLE _SchemaVersion DROP COLUMN 0");
    EXPECT_EQ(FieldsOf("SELECT * FROM _SchemaVersion"), "");
    Run("ALTER TABLE _SchemaVersion ADD  COLUMN 2 LONG");

    EXPECT_EQ(FieldsOf("SELECT * FROM _SchemaVersion"), "2:long");
    EXPECT_EQ(FieldsOf("SELECT InterestRate FROM Loan"), "InterestRate:single");
    EXPECT_EQ(Rows("SELECT * FROM Loan"), Lines{"Car|6.1|1"});
    EXPECT_EQ(Rows("SELECT * FROM Account"), Lines{"1|1|True"});
}

TEST_F(ProgramQueriesTest, AFileOfVersionOneLosesTheColumnOneAndGetsTheColumnTwo)
{
    RunAll({"DROP TABLE _SchemaVersion", "CREATE TABLE _SchemaVersion (1 LONG)"});

    Run("ALTER TABLE _SchemaVersion DROP COLUMN 1");
    Run("ALTER TABLE _SchemaVersion ADD  COLUMN 2 LONG");

    EXPECT_EQ(FieldsOf("SELECT * FROM _SchemaVersion"), "2:long");
    EXPECT_EQ(Rows("SELECT * FROM _SchemaVersion"), Lines{});
}

}  // namespace
}  // namespace clb
