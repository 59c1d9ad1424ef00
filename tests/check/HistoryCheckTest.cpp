// What the check finds in the history, and what a repair makes of it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "check/DatabaseCheck.h"
#include "check/DatabaseRepair.h"
#include "data/EmptyDatabase.h"
#include "engine/rows/Connection.h"
#include "history/History.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const Date kNow = Date::FromIso("2026-03-05 10:00:00").value_or(Date());

class HistoryCheckTest : public ::testing::Test {
protected:
    HistoryCheckTest()
    {
        folder_.Write("db/clb.mdb", EmptyDatabase());
        WithHistory([](Connection& connection, History& history) {
            for (const char* name : {"One", "Two", "Three", "Four", "Five"}) {
                history.Begin(name);
                connection.Execute(
                    "INSERT INTO Account (AccountID, Description, Type, CurrentBalance) VALUES ('" +
                    std::string(name) + "', '" + name + "', 'Bank', 0)");
                connection.Settle();
                history.End();
            }
        });
    }
    void WithHistory(const std::function<void(Connection&, History&)>& work)
    {
        Connection connection;
        connection.Open("Data Source=" + folder_.Path("db/clb.mdb"));
        History history(
            connection, [] { return kNow; }, "test");
        work(connection, history);
        connection.Settle();
    }
    void Undo(std::int64_t steps)
    {
        WithHistory([steps](Connection&, History& history) { history.Undo(steps); });
    }
    /// What another program does to the file.
    void Elsewhere(const std::string& sql)
    {
        sqlite3* other = nullptr;
        ASSERT_EQ(sqlite3_open(folder_.Path("db/clb.mdb").c_str(), &other), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(other, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(other);
        sqlite3_close(other);
    }
    std::vector<std::string> Findings()
    {
        std::vector<std::string> texts;
        for (const Finding& finding : CheckDatabase(folder_.Path()).findings) {
            EXPECT_TRUE(finding.repairable) << finding.text;
            EXPECT_FALSE(finding.meaning.empty()) << finding.text;
            texts.push_back(finding.kind + ": " + finding.text);
        }
        return texts;
    }
    /// The names of the steps that are left, the newest first.
    std::string Steps()
    {
        std::string names;
        WithHistory([&names](Connection&, History& history) {
            history.Visit([&names](const Step& step) {
                names += (names.empty() ? "" : " ") + step.what;
                return true;
            });
        });
        return names;
    }
    std::string Repaired()
    {
        const RepairReport repair = RepairDatabase(folder_.Path(), kNow);
        EXPECT_THAT(Findings(), IsEmpty());
        return (repair.steps ? std::to_string(*repair.steps) : "none") + " dropped: " + Steps();
    }

    TempFolder folder_;
};

TEST_F(HistoryCheckTest, AHistoryWithUndoneStepsIsInOrder)
{
    EXPECT_THAT(Findings(), IsEmpty());
    Undo(2);
    EXPECT_THAT(Findings(), IsEmpty());
    Undo(3);
    EXPECT_THAT(Findings(), IsEmpty());
}

/// A command that asks in between commits more than once and may change a row each time.
TEST_F(HistoryCheckTest, AStepThatChangesARowTwiceIsInOrder)
{
    WithHistory([](Connection& connection, History& history) {
        history.Begin("Six");
        for (const char* name : {"a", "b", "c"}) {
            connection.Execute(std::string("UPDATE Account SET Description = '") + name +
                               "' WHERE AccountID <> 'One'");
            connection.Settle();
        }
        history.End();
        EXPECT_EQ(history.NextToUndo()->rows, 4);
    });
    EXPECT_THAT(Findings(), IsEmpty());

    Undo(1);
    EXPECT_THAT(Findings(), IsEmpty());
}

TEST_F(HistoryCheckTest, AHistoryThatAChangeOfTablesHasEndedIsInOrder)
{
    WithHistory([](Connection& connection, History& history) {
        connection.Execute("CREATE TABLE Notes (Text TEXT)");
        history.Begin("Six");
        connection.Execute("INSERT INTO Notes (Text) VALUES ('x')");
    });

    EXPECT_THAT(Findings(), IsEmpty());
}

TEST_F(HistoryCheckTest, AStepWhoseRecordIsIncompleteGoesWithAllBeforeIt)
{
    Elsewhere("DELETE FROM CvChange WHERE Step = 2");

    EXPECT_THAT(Findings(), ElementsAre("history: The history is damaged: step 2 ('Two') lacks a "
                                        "part of its record."));
    EXPECT_EQ(Repaired(), "2 dropped: Five Four Three");
    Undo(9);
    EXPECT_THAT(Findings(), IsEmpty());
}

TEST_F(HistoryCheckTest, ARecordThatCannotBeReadIsFound)
{
    Elsewhere(
        "UPDATE CvChange SET Data = x'ff' WHERE Step = 4; UPDATE CvStep SET Bytes = 101 WHERE "
        "Step = 4");

    EXPECT_THAT(Findings(), ElementsAre("history: The history is damaged: step 4 ('Four') has a "
                                        "record that cannot be read."));
    EXPECT_EQ(Repaired(), "4 dropped: Five");
}

TEST_F(HistoryCheckTest, ARecordWithAnotherTextIsFound)
{
    Elsewhere("UPDATE CvChange SET Data = replace(Data, 'Account', 'Accomnt') WHERE Step = 2");

    EXPECT_THAT(Findings(), ElementsAre("history: The history is damaged: step 2 ('Two') has a "
                                        "record that is not what was stored."));
    EXPECT_EQ(Repaired(), "2 dropped: Five Four Three");
}

TEST_F(HistoryCheckTest, AHistoryWithoutChecksumsIsInOrder)
{
    Elsewhere("ALTER TABLE CvStep DROP COLUMN Checksum");

    EXPECT_THAT(Findings(), IsEmpty());
    Undo(2);
    EXPECT_THAT(Findings(), IsEmpty());
}

TEST_F(HistoryCheckTest, ABrokenStepThatWasUndoneGoesWithAllAfterIt)
{
    Undo(3);
    Elsewhere("UPDATE CvStep SET Bytes = 7 WHERE Step = 4");

    EXPECT_THAT(Findings(), ElementsAre("history: The history is damaged: step 4 ('Four') lacks a "
                                        "part of its record."));
    EXPECT_EQ(Repaired(), "2 dropped: Three Two One");
}

TEST_F(HistoryCheckTest, EachKindOfWrongStepIsReported)
{
    Elsewhere(
        "UPDATE CvStep SET Undone = 7 WHERE Step = 1; UPDATE CvStep SET At = 'x' WHERE Step = 2; "
        "UPDATE CvStep SET \"Rows\" = 0 WHERE Step = 3; UPDATE CvStep SET What = NULL WHERE Step "
        "= 4; UPDATE CvChange SET Step = -5 WHERE Step = 5; UPDATE CvStep SET Step = -5 WHERE "
        "Step = 5");

    EXPECT_THAT(
        Findings(),
        ElementsAre(
            "history: The history is damaged: step -5 ('Five') has a number that no step can have.",
            "history: The history is damaged: step 1 ('One') is neither done nor undone.",
            "history: The history is damaged: step 2 ('Two') has no time.",
            "history: The history is damaged: step 3 ('Three') has a record of more rows than it "
            "says.",
            "history: The history is damaged: step 4 has no name."));
    EXPECT_EQ(Repaired(), "5 dropped: ");
}

TEST_F(HistoryCheckTest, AnUndoneStepBeforeOneThatIsNotIsReported)
{
    Elsewhere("UPDATE CvStep SET Undone = 1 WHERE Step IN (2, 3)");

    EXPECT_THAT(Findings(), ElementsAre("history: The history is damaged: step 4 ('Four') is done, "
                                        "but step 3 before it is not."));
    EXPECT_EQ(Repaired(), "3 dropped: Five Four");
}

TEST_F(HistoryCheckTest, StepsBeforeTheMarkOfAChangeOfTablesAreReported)
{
    Elsewhere(
        "DELETE FROM CvChange WHERE Step = 2; UPDATE CvStep SET Undone = 2, What = NULL WHERE Step "
        "= 2");

    EXPECT_THAT(Findings(), ElementsAre("history: The history is damaged: step 2 ends the history, "
                                        "but there are steps before it."));
    EXPECT_EQ(Repaired(), "1 dropped: Five Four Three");
}

TEST_F(HistoryCheckTest, ChangesOfNoStepAreDroppedAlone)
{
    Elsewhere("INSERT INTO CvChange VALUES (9, 1, x'00'), (9, 2, x'00')");

    EXPECT_THAT(Findings(), ElementsAre("history: The history is damaged: there are changes of "
                                        "step 9, which is not there."));
    EXPECT_EQ(Repaired(), "0 dropped: Five Four Three Two One");
}

TEST_F(HistoryCheckTest, TablesThatAreNotTheHistorysOwnAreReplaced)
{
    Elsewhere("DROP TABLE CvChange");
    EXPECT_THAT(Findings(),
                ElementsAre("history: The history cannot be read: the table CvChange is missing."));
    EXPECT_EQ(Repaired(), "5 dropped: ");

    Elsewhere("CREATE TABLE cvstep (Step, At)");
    EXPECT_THAT(Findings(),
                ElementsAre("history: The history cannot be read: the table CvStep is not as the "
                            "program makes it.",
                            "history: The history cannot be read: the table CvChange is missing."));
    EXPECT_EQ(Repaired(), "0 dropped: ");
}

TEST_F(HistoryCheckTest, ARepairIsAStepAfterThoseThatStay)
{
    Elsewhere("UPDATE Account SET CurrentBalance = 5 WHERE AccountID = 'One'");
    Elsewhere("DELETE FROM CvChange WHERE Step = 2");

    RepairDatabase(folder_.Path(), kNow, Noticed::Accept);

    EXPECT_THAT(Findings(), IsEmpty());
    EXPECT_EQ(Steps(), "Repair Five Four Three");
    Undo(1);
    EXPECT_THAT(Findings(),
                ElementsAre("balance: Account 'One' (One): the stored balance is 0.0005, its rows "
                            "add up to 0."));
}

TEST_F(HistoryCheckTest, TheAcceptanceOfBalancesIsNoStep)
{
    Elsewhere("UPDATE Account SET CurrentBalance = 5 WHERE AccountID = 'One'");
    RepairDatabase(folder_.Path(), kNow);
    EXPECT_EQ(AcceptBalances(folder_.Path(), kNow), 1);
    EXPECT_EQ(Steps(), "Repair Five Four Three Two One");

    Undo(1);

    EXPECT_THAT(Findings(),
                ElementsAre("balance: Account 'One' (One): the stored balance is 0.0005, its rows "
                            "add up to 0."));
}

}  // namespace
}  // namespace clb
