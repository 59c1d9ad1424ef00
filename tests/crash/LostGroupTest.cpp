// What the connection does if an error of the file rolls back the whole pending group.

#include <gtest/gtest.h>

#include "data/EmptyDatabase.h"
#include "engine/rows/Connection.h"
#include "engine/storage/EngineError.h"
#include "history/History.h"
#include "tests/crash/FaultyFiles.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

class LostGroupTest : public testing::Test {
protected:
    LostGroupTest()
    {
        folder_.Write("db/clb.mdb", EmptyDatabase());
        connection_.Open("Data Source=" + folder_.Path("db/clb.mdb"));
    }

    void Add(const std::string& account)
    {
        connection_.Execute("INSERT INTO Account (AccountID) VALUES ('" + account + "')");
    }
    /// Returns the error of the statement, of which the first change of the file fails.
    EngineError FailingOnce(const std::string& statement)
    {
        FaultPlan plan;
        plan.fault = Fault::Error;
        plan.at = 1;
        plan.once = true;
        files_.Begin(plan);
        return ErrorOf(statement);
    }
    EngineError ErrorOf(const std::string& statement)
    {
        try {
            connection_.Execute(statement);
        } catch (const EngineError& error) {
            return error;
        }
        ADD_FAILURE() << "no error: " << statement;
        return {0, ""};
    }
    std::string Accounts()
    {
        std::string text;
        for (Recordset rows = connection_.Execute("SELECT AccountID FROM Account"); !rows.AtEnd();
             rows.MoveNext())
            text += ToText(rows.Get(0)) + " ";
        return text;
    }

    FaultyFiles files_;
    TempFolder folder_;
    Connection connection_;
};

// Symptom: an import skipped the failing record and stored the records after it, but those before
// it were lost.
TEST_F(LostGroupTest, TheRestOfACommandIsNotStoredWithoutWhatCameBefore)
{
    Add("1");
    const EngineError failure = FailingOnce("INSERT INTO Budget (Category) VALUES ('Food')");
    const EngineError refusal = ErrorOf("INSERT INTO Account (AccountID) VALUES ('2')");
    Recordset rows;
    rows.Open("SELECT AccountID FROM Account", connection_, CursorKind::Keyset,
              LockKind::Optimistic);
    rows.AddNew();
    rows.Set(0, std::string("3"));
    EXPECT_THROW(rows.Update(), EngineError);
    rows.CancelUpdate();
    EXPECT_THROW(connection_.Group(), EngineError);
    connection_.Settle();

    EXPECT_EQ(Accounts(), "");
    EXPECT_EQ(refusal.Number(), failure.Number());
    EXPECT_EQ(std::string(refusal.what()), failure.what());
}

// Symptom: an import of which only the first write failed stored all but its first record.
TEST_F(LostGroupTest, AGroupThatWasOpenedInAdvanceIsKeptWholeOrNotAtAll)
{
    connection_.Group();
    const EngineError failure = FailingOnce("INSERT INTO Budget (Category) VALUES ('Food')");

    EXPECT_TRUE(connection_.LostGroup());
    EXPECT_EQ(ErrorOf("INSERT INTO Account (AccountID) VALUES ('2')").Number(), failure.Number());
    connection_.Settle();
    EXPECT_EQ(Accounts(), "");

    Add("3");
    connection_.Settle();
    EXPECT_EQ(Accounts(), "3 ");
}

TEST_F(LostGroupTest, AWriteThatFailsByItselfLosesNothingElse)
{
    FailingOnce("INSERT INTO Budget (Category) VALUES ('Food')");

    EXPECT_FALSE(connection_.LostGroup());
    Add("2");
    connection_.Settle();
    EXPECT_EQ(Accounts(), "2 ");
}

TEST_F(LostGroupTest, TheNextCommandWorks)
{
    Add("1");
    FailingOnce("INSERT INTO Budget (Category) VALUES ('Food')");
    connection_.Settle();

    Add("2");
    connection_.Settle();

    EXPECT_EQ(Accounts(), "2 ");
}

TEST_F(LostGroupTest, AChangeOfTheSchemaIsTakenBack)
{
    connection_.Execute("ALTER TABLE Loan ADD COLUMN Note TEXT");
    FailingOnce("INSERT INTO Budget (Category) VALUES ('Food')");

    EXPECT_EQ(ErrorOf("SELECT Note FROM Loan").Number(), engine_errors::NoSuchColumn);
    connection_.Settle();
    EXPECT_EQ(ErrorOf("SELECT Note FROM Loan").Number(), engine_errors::NoSuchColumn);
}

TEST_F(LostGroupTest, AStatementThatIsInvalidByItselfLosesNothing)
{
    Add("1");
    ErrorOf("INSERT INTO Trans (Sequence) VALUES ('x')");
    Add("2");
    connection_.Settle();

    EXPECT_EQ(Accounts(), "1 2 ");
}

TEST_F(LostGroupTest, TheHistoryKnowsOnlyWhatWasKept)
{
    History history(
        connection_, [] { return *Date::Of(2006, 3, 5); }, "this one");
    const auto command = [&](const std::string& name, bool fails) {
        history.Begin(name);
        Add(name);
        if (fails)
            FailingOnce("INSERT INTO Budget (Category) VALUES ('Food')");
        connection_.Settle();
        history.End();
    };
    command("One", false);
    command("Two", true);
    EXPECT_EQ(history.NextToUndo()->what, "One");
    command("Three", false);

    EXPECT_EQ(Accounts(), "One Three ");
    EXPECT_EQ(history.Undo(5).steps.size(), 2U);
    connection_.Settle();
    EXPECT_EQ(Accounts(), "");
}

TEST_F(LostGroupTest, AnUndoWhoseWritingFailsIsWhollyThereOrNotAtAll)
{
    History history(
        connection_, [] { return *Date::Of(2006, 3, 5); }, "this one");
    history.Begin("One");
    Add("1");
    connection_.Settle();
    history.End();
    FaultPlan plan;
    plan.fault = Fault::Error;
    plan.once = true;
    plan.at = 1;
    int taken = 0;
    for (bool failed = true; failed; ++plan.at) {
        files_.Begin(plan);
        const bool undoes = history.NextToUndo().has_value();
        try {
            (undoes ? history.Undo(1) : history.Redo(1));
            connection_.Settle();
        } catch (const EngineError&) {
            ++taken;
        }
        failed = files_.Failures() > 0;
        files_.Begin({});
        connection_.Settle();
        history.End();
        EXPECT_EQ(Accounts(), history.NextToUndo() ? "1 " : "") << "operation " << plan.at;
        EXPECT_NE(history.NextToUndo().has_value(), history.NextToRedo().has_value());
    }
    EXPECT_GT(taken, 3);
}

}  // namespace
}  // namespace clb
