// Result sets: moving, reading, changing.
#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

using Lines = std::vector<std::string>;

class RecordsetTest : public EngineTest {
protected:
    void AddBudget(const std::string& category, const std::string& amount = "1")
    {
        Run("INSERT INTO Budget (Year, Period, Category, Amount) VALUES (2006, 1, '" + category +
            "', " + amount + ")");
    }
    void AddBudgets(const Lines& categories)
    {
        for (const std::string& category : categories)
            AddBudget(category);
    }
    static std::string Text(const Recordset& rows) { return ToText(rows.Get(0)); }
};

TEST_F(RecordsetTest, AnOpenedSetIsAtItsFirstRow)
{
    AddBudgets({"a", "b"});

    Recordset rows = Opened("SELECT Category FROM Budget");

    EXPECT_TRUE(rows.IsOpen());
    EXPECT_FALSE(rows.AtBeginning());
    EXPECT_FALSE(rows.AtEnd());
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(Text(rows), "a");
    rows.MoveNext();
    EXPECT_EQ(rows.Position(), 1U);
    rows.MoveNext();
    EXPECT_TRUE(rows.AtEnd());
    EXPECT_FALSE(rows.Empty());
    EXPECT_EQ(rows.Position(), 2U);
    EXPECT_EQ(ErrorOf([&] { rows.MoveNext(); }).Number(), engine_errors::NoCurrentRow);
    rows.MoveFirst();
    EXPECT_EQ(Text(rows), "a");
}

TEST_F(RecordsetTest, AnEmptySetIsAtBothEnds)
{
    Recordset rows = Opened("SELECT Category FROM Budget");

    EXPECT_TRUE(rows.Empty());
    EXPECT_EQ(rows.RecordCount(), 0);
    const auto error = ErrorOf([&] { return rows.Get("Category"); });
    EXPECT_EQ(error.Number(), engine_errors::NoCurrentRow);
    EXPECT_STREQ(error.what(),
                 "Either BOF or EOF is True, or the current record has been deleted. Requested "
                 "operation requires a current record.");
    EXPECT_EQ(ErrorOf([&] { rows.MoveFirst(); }).Number(), engine_errors::NoCurrentRow);
    EXPECT_EQ(ErrorOf([&] { rows.Set(0, std::string("x")); }).Number(),
              engine_errors::NoCurrentRow);
    EXPECT_EQ(ErrorOf([&] { rows.Update(); }).Number(), engine_errors::NoCurrentRow);
    EXPECT_EQ(ErrorOf([&] { rows.Delete(); }).Number(), engine_errors::NoCurrentRow);
}

TEST_F(RecordsetTest, AClosedSetRefusesEverything)
{
    Recordset rows;
    EXPECT_FALSE(rows.IsOpen());
    rows.Close();

    EXPECT_EQ(ErrorOf([&] { return rows.AtEnd(); }).Number(), engine_errors::Closed);
    EXPECT_EQ(ErrorOf([&] { return rows.Get(0); }).Number(), engine_errors::Closed);
    EXPECT_EQ(ErrorOf([&] { rows.Requery(); }).Number(), engine_errors::Closed);
    rows.Open("SELECT Category FROM Budget", connection_, CursorKind::Keyset, LockKind::Optimistic);
    EXPECT_EQ(ErrorOf([&] {
                  rows.Open("SELECT Category FROM Budget", connection_, CursorKind::Keyset,
                            LockKind::Optimistic);
              }).Number(),
              engine_errors::AlreadyOpen);
}

TEST_F(RecordsetTest, ASetThatCannotOpenStaysClosed)
{
    Recordset rows;

    EXPECT_THROW(rows.Open("SELECT", connection_, CursorKind::Keyset, LockKind::Optimistic),
                 EngineError);

    EXPECT_FALSE(rows.IsOpen());
}

TEST_F(RecordsetTest, FieldsAreAddressedByNameWithoutRegardToCaseOrByPosition)
{
    AddBudget("Food", "2.5");
    const Recordset rows = Opened("SELECT Category AS Name, Amount FROM Budget");

    EXPECT_EQ(rows.Get("NAME"), rows.Get(0));
    EXPECT_EQ(rows.Get("amount"), Value(Money::Parse("2.5")));
    const auto error = ErrorOf([&] { return rows.Get("Category"); });
    EXPECT_EQ(error.Number(), engine_errors::ItemNotFound);
    EXPECT_STREQ(error.what(),
                 "Item cannot be found in the collection corresponding to the requested name or "
                 "ordinal.");
    EXPECT_EQ(ErrorOf([&] { return rows.Get(2); }).Number(), engine_errors::ItemNotFound);
}

TEST_F(RecordsetTest, AnAddedRowIsSavedWithItsNumberAndBecomesCurrent)
{
    Recordset accounts =
        Opened("SELECT AccountID, Description, Sequence, CurrentBalance FROM Account");

    accounts.AddNew();
    EXPECT_FALSE(accounts.Empty());
    EXPECT_EQ(accounts.Get("CurrentBalance"), Value());
    accounts.Set("AccountID", std::string("100"));
    EXPECT_EQ(accounts.RecordCount(), 0);
    accounts.Update();

    EXPECT_EQ(accounts.RecordCount(), 1);
    EXPECT_EQ(accounts.Get("Sequence"), Value(std::int32_t{1}));
    EXPECT_EQ(accounts.Get("CurrentBalance"), Value(Money()));
    EXPECT_EQ(Rows("SELECT AccountID, Sequence FROM Account"), Lines{"100|1"});
}

TEST_F(RecordsetTest, AnAddedRowIsLastEvenIfItDoesNotMeetTheCondition)
{
    AddBudget("m");
    Recordset none = Opened("SELECT * FROM Budget WHERE false");
    Recordset ordered = Opened("SELECT Category FROM Budget ORDER BY Category");

    none.AddNew();
    none.Set("Category", std::string("a"));
    none.Update();
    ordered.AddNew();
    ordered.Set("Category", std::string("b"));
    ordered.Update();

    EXPECT_EQ(none.RecordCount(), 1);
    EXPECT_EQ(ToText(none.Get("Category")), "a");
    ordered.MoveFirst();
    EXPECT_EQ(RowsOf(ordered), (Lines{"m", "b"}));
    ordered.Requery();
    EXPECT_EQ(RowsOf(ordered), (Lines{"a", "b", "m"}));
}

TEST_F(RecordsetTest, OnlyTheFieldsThatWereSetAreWritten)
{
    AddBudget("Food", "1");
    Recordset rows = Opened("SELECT Category, Amount FROM Budget");
    Run("UPDATE Budget SET Category = 'Drinks'");

    rows.Set("Amount", std::int32_t{9});
    rows.Update();

    EXPECT_EQ(Rows("SELECT Category, Amount FROM Budget"), Lines{"Drinks|9"});
    EXPECT_EQ(Text(rows), "Drinks") << "the row is read again";
}

TEST_F(RecordsetTest, AnAliasWritesItsColumnAndAnExpressionRefuses)
{
    Run("INSERT INTO Account (OpeningBalance, CurrentBalance) VALUES (10, 5)");
    Recordset rows = Opened(
        "SELECT OpeningBalance AS Opn, (OpeningBalance + CurrentBalance) AS TotBalance FROM "
        "Account");
    EXPECT_TRUE(rows.Fields()[0].updatable);
    EXPECT_FALSE(rows.Fields()[1].updatable);

    rows.Set("Opn", Money::FromUnits(20));
    const auto error = ErrorOf([&] { rows.Set("TotBalance", Money::FromUnits(1)); });
    rows.Update();

    EXPECT_EQ(error.Number(), engine_errors::NotUpdatable);
    EXPECT_STREQ(error.what(), "Cannot update 'TotBalance'; field not updatable.");
    EXPECT_EQ(rows.Get("TotBalance"), Value(Money::FromUnits(25)));
}

TEST_F(RecordsetTest, ASetWithExpressionsAndLiteralsReadsItsRowsAgain)
{
    AddBudget("Food", "1");
    Recordset rows = Opened(
        "SELECT Category & '-x' AS A, Amount + 0.5 AS B, Amount FROM Budget "
        "WHERE Year = 2006");

    rows.Set("Amount", Money::FromUnits(3));
    rows.Update();

    EXPECT_EQ(Text(rows), "Food-x");
    EXPECT_EQ(rows.Get("B"), Value(Money::Parse("3.5")));
}

TEST_F(RecordsetTest, AChangedRowIsSavedByMovingOn)
{
    AddBudgets({"Food", "Rent"});
    Recordset rows = Opened("SELECT Category, Amount FROM Budget");

    rows.Set("Amount", std::string("12.5"));
    rows.MoveNext();
    rows.Set("amount", Money::FromUnits(7));
    rows.MoveFirst();

    EXPECT_EQ(Rows("SELECT Category, Amount FROM Budget"), (Lines{"Food|12.5", "Rent|7"}));
    EXPECT_EQ(Text(rows), "Food");
}

TEST_F(RecordsetTest, UnsavedValuesAreSeenAndCanBeDiscarded)
{
    AddBudgets({"a", "b"});
    Recordset rows = Opened("SELECT Category FROM Budget");
    rows.MoveNext();

    rows.Set(0, std::string("changed"));
    EXPECT_EQ(Text(rows), "changed");
    rows.CancelUpdate();
    EXPECT_EQ(Text(rows), "b");
    rows.AddNew();
    rows.Set(0, std::string("new"));
    rows.CancelUpdate();

    EXPECT_EQ(Text(rows), "b");
    EXPECT_EQ(Rows("SELECT Category FROM Budget"), (Lines{"a", "b"}));
}

TEST_F(RecordsetTest, ClosingDropsARowBeingAdded)
{
    Recordset rows = Opened("SELECT Category FROM Budget");
    rows.AddNew();
    rows.Set(0, std::string("new"));

    rows.Close();

    EXPECT_EQ(Rows("SELECT Category FROM Budget"), Lines{});
}

TEST_F(RecordsetTest, AddingWhileARowIsAddedSavesTheFirst)
{
    Recordset rows = Opened("SELECT Category FROM Budget");

    for (const char* category : {"a", "b"}) {
        rows.AddNew();
        rows.Set(0, std::string(category));
    }
    rows.Update();

    EXPECT_EQ(Rows("SELECT Category FROM Budget"), (Lines{"a", "b"}));
}

TEST_F(RecordsetTest, ARefusedValueOrRowKeepsTheUnsavedValues)
{
    Recordset rows = Opened("SELECT Category, Amount, Year FROM Budget");
    rows.AddNew();
    rows.Set("Category", std::string("Food"));

    EXPECT_EQ(ErrorOf([&] { rows.Set("Category", std::string(51, 'x')); }).Number(),
              engine_errors::TextTooLong);
    EXPECT_EQ(ErrorOf([&] { rows.Set("Amount", std::string("much")); }).Number(),
              engine_errors::TypeMismatch);
    EXPECT_EQ(ErrorOf([&] { rows.Set("Year", 3e9); }).Number(), engine_errors::Overflow);
    EXPECT_EQ(Text(rows), "Food");
    rows.Update();
    EXPECT_EQ(Rows("SELECT Category FROM Budget"), Lines{"Food"});

    Run("CREATE UNIQUE INDEX OneCategory ON Budget (Category)");
    rows.AddNew();
    rows.Set("Category", std::string("Food"));
    EXPECT_EQ(ErrorOf([&] { rows.Update(); }).Number(), engine_errors::Constraint);
    rows.Set("Category", std::string("Rent"));
    rows.Update();
    EXPECT_EQ(Rows("SELECT Category FROM Budget"), (Lines{"Food", "Rent"}));
}

TEST_F(RecordsetTest, TheCounterOfASavedRowCannotBeChanged)
{
    AddBudget("a");
    Recordset rows = Opened("SELECT * FROM Budget");

    EXPECT_TRUE(rows.Fields()[rows.FieldIndex("Sequence")].counter);
    EXPECT_EQ(ErrorOf([&] { rows.Set("Sequence", std::int32_t{5}); }).Number(),
              engine_errors::NotUpdatable);
}

TEST_F(RecordsetTest, ADeletedRowKeepsItsPlaceAndTheNextRowFollowsIt)
{
    AddBudgets({"a", "b", "c"});
    Recordset rows = Opened("SELECT Category FROM Budget");
    rows.MoveNext();

    rows.Delete();

    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(rows.Position(), 1U);
    EXPECT_EQ(ErrorOf([&] { return rows.Get(0); }).Number(), engine_errors::NoCurrentRow);
    rows.MoveNext();
    EXPECT_EQ(Text(rows), "c");
    EXPECT_EQ(ToText(rows.At(1, 0)), "c");
    EXPECT_EQ(Rows("SELECT Category FROM Budget"), (Lines{"a", "c"}));
}

TEST_F(RecordsetTest, AllRowsCanBeDeletedInOneWalk)
{
    AddBudgets({"a", "b", "c"});
    Recordset rows = Opened("SELECT Category FROM Budget");

    for (int i = 0; i < 3; ++i) {
        rows.Delete();
        rows.MoveNext();
    }

    EXPECT_TRUE(rows.Empty());
    EXPECT_EQ(Rows("SELECT COUNT(*) FROM Budget"), Lines{"0"});
}

TEST_F(RecordsetTest, RowsAreReadAndMadeCurrentByNumber)
{
    AddBudgets({"a", "b", "c"});
    Recordset rows = Opened("SELECT Category FROM Budget");

    rows.MoveTo(2);
    EXPECT_EQ(Text(rows), "c");
    EXPECT_EQ(ToText(rows.At(0, 0)), "a");
    EXPECT_EQ(rows.Position(), 2U);
    rows.MoveTo(3);
    EXPECT_TRUE(rows.AtEnd());
    EXPECT_EQ(ErrorOf([&] { rows.MoveTo(4); }).Number(), engine_errors::NoCurrentRow);
    EXPECT_EQ(ErrorOf([&] { return rows.At(3, 0); }).Number(), engine_errors::NoCurrentRow);
    EXPECT_EQ(ErrorOf([&] { return rows.At(0, 1); }).Number(), engine_errors::ItemNotFound);
}

TEST_F(RecordsetTest, MembershipIsFixedAtOpening)
{
    AddBudgets({"a", "b"});
    Recordset rows = Opened("SELECT Category FROM Budget");

    AddBudget("c");

    EXPECT_EQ(rows.RecordCount(), 2);
    rows.Requery();
    EXPECT_EQ(rows.RecordCount(), 3);
}

TEST_F(RecordsetTest, RequeryDiscardsAnUnsavedChange)
{
    AddBudgets({"a", "b"});
    Recordset rows = Opened("SELECT Category FROM Budget");
    rows.Set(0, std::string("x"));

    rows.Requery();

    EXPECT_EQ(ToText(rows.Get(0)), "a");
    rows.MoveNext();
    EXPECT_EQ(Rows("SELECT Category FROM Budget"), (Lines{"a", "b"}));
}

TEST_F(RecordsetTest, ARowDeletedMeanwhileIsAnError)
{
    AddBudgets({"a", "b"});
    Recordset rows = Opened("SELECT Category FROM Budget");
    Run("DELETE FROM Budget WHERE Category = 'a'");

    rows.Set(0, std::string("x"));
    const auto update = ErrorOf([&] { rows.Update(); });
    rows.CancelUpdate();
    const auto remove = ErrorOf([&] { rows.Delete(); });

    EXPECT_EQ(update.Number(), engine_errors::RowVanished);
    EXPECT_STREQ(update.what(),
                 "The row no longer exists: another statement has deleted it since the rows were "
                 "read.");
    EXPECT_EQ(remove.Number(), engine_errors::RowVanished);
    EXPECT_EQ(Rows("SELECT Category FROM Budget"), Lines{"b"});
}

TEST_F(RecordsetTest, OnlyQueriesOfOneTableAreUpdatable)
{
    RunAll({"INSERT INTO Account (AccountID) VALUES ('1')",
            "INSERT INTO Trans (AccountID) VALUES ('1')"});
    for (const char* sql : {"SELECT Year FROM Account INNER JOIN Trans ON Account.AccountID = "
                            "Trans.AccountID",
                            "SELECT DISTINCT Year FROM Trans", "SELECT MAX(Year) AS Y FROM Trans",
                            "SELECT Year FROM Trans GROUP BY Year"}) {
        SCOPED_TRACE(sql);
        Recordset rows = Opened(sql);
        EXPECT_EQ(rows.RecordCount(), 1);
        EXPECT_FALSE(rows.Fields()[0].updatable);
        EXPECT_EQ(ErrorOf([&] { rows.Set(0, std::int32_t{1}); }).Number(),
                  engine_errors::NotUpdatable);
        EXPECT_EQ(ErrorOf([&] { rows.AddNew(); }).Number(), engine_errors::NotUpdatable);
        EXPECT_EQ(ErrorOf([&] { rows.Delete(); }).Number(), engine_errors::NotUpdatable);
    }
}

TEST_F(RecordsetTest, AReadOnlySetIsNotChanged)
{
    AddBudget("a");
    Recordset opened = Opened("SELECT Category FROM Budget", LockKind::ReadOnly);
    Recordset executed = connection_.Execute("SELECT Category FROM Budget");

    for (Recordset* rows : {&opened, &executed}) {
        EXPECT_FALSE(rows->Fields()[0].updatable);
        EXPECT_EQ(ErrorOf([&] { rows->Set(0, std::string("x")); }).Number(),
                  engine_errors::NotUpdatable);
        EXPECT_EQ(ErrorOf([&] { rows->Update(); }).Number(), engine_errors::NotUpdatable);
    }
    EXPECT_EQ(Rows("SELECT Category FROM Budget"), Lines{"a"});
}

TEST_F(RecordsetTest, TheGenerationGrowsWheneverTheRowsAreReplaced)
{
    Recordset rows;
    const auto before = rows.Generation();
    rows.Open("SELECT Category FROM Budget", connection_, CursorKind::Keyset, LockKind::Optimistic);
    const auto opened = rows.Generation();
    rows.Requery();
    const auto requeried = rows.Generation();
    rows.Close();

    EXPECT_LT(before, opened);
    EXPECT_LT(opened, requeried);
    EXPECT_LT(requeried, rows.Generation());
}

TEST_F(RecordsetTest, ASetMayOutliveItsConnectionIfItIsOnlyClosed)
{
    AddBudget("a");
    Recordset rows = Opened("SELECT Category FROM Budget");

    connection_ = Connection();
    rows.Close();

    EXPECT_FALSE(rows.IsOpen());
}

}  // namespace
}  // namespace clb
