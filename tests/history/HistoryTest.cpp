#include <random>

#include "tests/history/HistoryFixture.h"

namespace clb {
namespace {

const char* const kCoffee =
    "INSERT INTO Trans (Sequence, AccountID, PostDate, Description, Amount, Year, Period) "
    "VALUES (1, 'A', #2026-03-04#, 'Coffee', -3.5, 2026, 3)";
const char* const kChecking =
    "INSERT INTO Account (AccountID, Description, Type) VALUES ('A', 'Checking', 'Bank')";

using HistoryTest = HistoryFixture;

TEST_F(HistoryTest, UndoBringsBackWhatWasAndRedoWhatBecame)
{
    const std::string empty = Everything();
    Command("New Record", {kChecking, kCoffee});
    const std::string first = Everything();
    Command("Edit", {"UPDATE Trans SET Amount = 7, Category = 'Food' WHERE Sequence = 1"});
    const std::string second = Everything();
    Command("Delete Record", {"DELETE FROM Trans WHERE Sequence = 1", "DELETE FROM Account"});
    const std::string third = Everything();

    EXPECT_EQ(Undo().steps.front().what, "Delete Record");
    EXPECT_EQ(Everything(), second);
    EXPECT_EQ(Undo().steps.front().what, "Edit");
    EXPECT_EQ(Everything(), first);
    EXPECT_EQ(Undo().steps.front().what, "New Record");
    EXPECT_EQ(Everything(), empty);
    EXPECT_TRUE(Undo().steps.empty());

    Redo();
    EXPECT_EQ(Everything(), first);
    Redo();
    EXPECT_EQ(Everything(), second);
    Redo();
    EXPECT_EQ(Everything(), third);
    EXPECT_TRUE(Redo().steps.empty());
}

TEST_F(HistoryTest, ANewCommandEndsWhatCouldBeRedone)
{
    Command("New Record", {kCoffee});
    Undo();
    Command("New Record", {kChecking});
    EXPECT_FALSE(history_->NextToRedo());
    EXPECT_EQ(history_->NextToUndo()->rows, 1);
}

TEST_F(HistoryTest, OneCommandIsOneStepHoweverOftenItSettles)
{
    const std::string empty = Everything();
    history_->Begin("Import");
    connection_.Execute(kCoffee);
    connection_.Settle();
    connection_.Execute(kChecking);
    connection_.Execute("UPDATE Trans SET Amount = 7");
    End();
    EXPECT_EQ(history_->NextToUndo()->rows, 2);
    EXPECT_EQ(Undo(100).steps.size(), 1U);
    EXPECT_EQ(Everything(), empty);
}

// Symptom: an import into a new account listed one row more than it had changed.
TEST_F(HistoryTest, ARowThatAStepChangesAgainAfterASettleCountsOnce)
{
    history_->Begin("Import");
    connection_.Execute(kChecking);
    connection_.Settle();
    connection_.Execute("UPDATE Account SET CurrentBalance = 7");
    connection_.Execute(kCoffee);
    End();
    EXPECT_EQ(history_->NextToUndo()->rows, 2);
}

// Symptom: an import that added nothing was a step, which Undo took back without any effect.
TEST_F(HistoryTest, WhatIsAsBeforeInTheEndIsNoStep)
{
    Command("New Record", {kChecking, kCoffee});
    Command("Import",
            {"UPDATE Account SET CurrentBalance = 7", "UPDATE Trans SET Category = 'Food'",
             "UPDATE Account SET CurrentBalance = 0", "UPDATE Trans SET Category = NULL"});
    EXPECT_EQ(history_->NextToUndo()->what, "New Record");
}

/// What the program notes for itself, beside the rows of the book.
class BookkeepingTest : public HistoryFixture {
protected:
    void SetUp() override
    {
        HistoryFixture::SetUp();
        Elsewhere("CREATE TABLE CvBalance (At DATETIME, AccountID TEXT)");
    }
    const std::string kNote = "INSERT INTO CvBalance (AccountID) VALUES ('A')";
};

// Symptom: Undo offered a step with nothing to see.
TEST_F(BookkeepingTest, AloneIsNoStepAndLeavesWhatCanBeRedone)
{
    Command("New Record", {kChecking});
    Command("New Record", {kCoffee});
    const std::string after = Everything();
    Undo();
    for (const std::string& statement : {kNote, std::string("UPDATE CvBalance SET AccountID = 'B'"),
                                         std::string("DELETE FROM CvBalance")})
        Command("Import", {statement});
    EXPECT_EQ(history_->NextToUndo()->number, 1);
    EXPECT_EQ(history_->NextToRedo()->number, 2);
    Redo();
    EXPECT_EQ(Everything(), after);
}

TEST_F(BookkeepingTest, GoesBackWithTheRowsOfItsStep)
{
    const std::string before = Everything();
    Command("Import", {kChecking, kNote});
    const std::string after = Everything();
    EXPECT_EQ(history_->NextToUndo()->rows, 2);
    Undo();
    EXPECT_EQ(Everything(), before);
    Redo();
    EXPECT_EQ(Everything(), after);
}

TEST_F(BookkeepingTest, AfterASettleItBelongsToTheStepThatTheCommandHasBegun)
{
    const std::string before = Everything();
    history_->Begin("Import");
    connection_.Execute(kChecking);
    connection_.Settle();
    connection_.Execute(kNote);
    End();
    Undo();
    EXPECT_EQ(Everything(), before);
}

TEST_F(BookkeepingTest, ThatSaysSomethingNewerIsLeftAsItIs)
{
    Command("Import", {kChecking, kNote});
    Command("Accept Balances", {"UPDATE CvBalance SET At = #2026-03-05#"});
    EXPECT_EQ(Undo().steps.size(), 1U);
    EXPECT_EQ(Column("SELECT At FROM CvBalance").size(), 1U);
    EXPECT_TRUE(Column("SELECT * FROM Account").empty());
    EXPECT_EQ(Redo().steps.size(), 1U);
    EXPECT_EQ(Column("SELECT At FROM CvBalance").size(), 1U);
    EXPECT_EQ(Undo().steps.size(), 1U);
}

TEST_F(BookkeepingTest, WhosePlaceIsTakenOrTableChangedIsLeftOut)
{
    Command("Import", {kChecking, kNote});
    Undo();
    Command("Import", {"INSERT INTO CvBalance (AccountID) VALUES ('Other')"});
    EXPECT_EQ(Redo().steps.size(), 1U);
    EXPECT_EQ(Column("SELECT AccountID FROM CvBalance"), std::vector<std::string>{"Other"});
    EXPECT_EQ(Undo().steps.size(), 1U);

    Command("Edit", {kChecking, "UPDATE CvBalance SET AccountID = 'B'"});
    Elsewhere("ALTER TABLE CvBalance ADD COLUMN NoticedBy TEXT");
    EXPECT_EQ(Undo().steps.size(), 1U);
    EXPECT_EQ(Column("SELECT AccountID FROM CvBalance"), std::vector<std::string>{"B"});
}

// Rules, links and guesses are shown to the user.
TEST_F(BookkeepingTest, OtherAdditionsAreSteps)
{
    Elsewhere("CREATE TABLE CvRule (Place LONG)");
    Command("Rules", {"INSERT INTO CvRule (Place) VALUES (1)"});
    EXPECT_EQ(Undo().steps.size(), 1U);
}

TEST_F(HistoryTest, TwoCommandsInOneCommitAreTwoSteps)
{
    history_->Begin("One");
    connection_.Execute(kCoffee);
    history_->Begin("Two");
    connection_.Execute(kChecking);
    End();
    EXPECT_EQ(history_->NextToUndo()->what, "Two");
    Undo();
    EXPECT_EQ(history_->NextToUndo()->what, "One");
}

TEST_F(HistoryTest, AStatementThatFailsAndACommandTakenBackLeaveNoStep)
{
    Command("New Record", {kChecking});
    EXPECT_THROW(connection_.Execute("UPDATE Account SET BudgetInclude = NULL"), EngineError);
    End();
    EXPECT_EQ(history_->NextToUndo()->what, "New Record");
    connection_.Execute(kCoffee);
    connection_.Abandon();
    End();
    EXPECT_EQ(history_->NextToUndo()->what, "New Record");
}

// Symptom: what could not be recorded was kept all the same, and could not be undone.
TEST_F(HistoryTest, WhatCannotBeRecordedIsNotKept)
{
    Command("New Record", {kChecking});
    const std::string before = Everything();
    Elsewhere("CREATE TRIGGER Refuse BEFORE INSERT ON CvStep BEGIN SELECT RAISE(ABORT, 'no'); END");
    history_->Begin("Two");
    connection_.Execute(kCoffee);
    EXPECT_THROW(history_->Begin("Three"), EngineError);
    EXPECT_ANY_THROW(connection_.Execute(kCoffee));
    End();
    EXPECT_EQ(Everything(), before);
    Elsewhere("DROP TRIGGER Refuse");
    EXPECT_EQ(Undo(5).steps.size(), 1U);
}

TEST_F(HistoryTest, RowsThatFollowTheirAccountGoBackWithIt)
{
    Command("New Record", {kChecking, kCoffee});
    const std::string before = Everything();
    Command("Edit", {"UPDATE Account SET AccountID = 'B'"});
    EXPECT_NE(Everything().find("|3:B|"), std::string::npos);
    Undo();
    EXPECT_EQ(Everything(), before);
}

TEST_F(HistoryTest, RefusesWhereAnotherProgramHasChangedTheRow)
{
    Command("New Record", {kChecking, kCoffee});
    Command("Edit", {"UPDATE Account SET Description = 'Savings'", "UPDATE Trans SET Amount = 7"});
    Elsewhere("UPDATE Trans SET Amount = 1");
    const std::string changed = Everything();
    try {
        Undo();
        FAIL() << "undone";
    } catch (const HistoryRefusal& refusal) {
        EXPECT_STREQ(refusal.what(),
                     "'Edit' cannot be undone: the transaction of 2026-03-04 'Coffee' was "
                     "changed since. Nothing was changed.");
    }
    End();
    EXPECT_EQ(Everything(), changed);
    Elsewhere("UPDATE Trans SET Amount = 70000");
    EXPECT_EQ(Undo().steps.size(), 1U);
}

// Symptom: the sentence ended at the byte 0.
TEST_F(HistoryTest, ARefusalIsWholeWhateverTheTextsContain)
{
    Command("New Record", {kChecking});
    Command("Edit", {"UPDATE Account SET Description = 'Savings'"});
    Elsewhere("UPDATE Account SET Description = 'a' || char(0) || 'b'");
    EXPECT_EQ(Refusal(),
              "'Edit' cannot be undone: the account 'a\\0b' was changed since. Nothing was "
              "changed.");
}

// Symptom: "Type mismatch".
TEST_F(HistoryTest, ShowsAmountsWithoutEnd)
{
    Elsewhere("CREATE TABLE Rates (A SINGLE, B SINGLE, C DOUBLE, D SINGLE)");
    Command("One", {"INSERT INTO Rates (A) VALUES (1)"});
    Elsewhere(
        "DELETE FROM CvStep; DELETE FROM CvChange; UPDATE Rates SET A = 9e999, B = -9e999, "
        "C = 9e999, D = 1e300");
    Command("Two", {"DELETE FROM Rates"});
    EXPECT_EQ(ToLine(ChangesJson(*history_, *history_->NextToUndo())[0]["was"]),
              R"({"A":"Infinity","B":"-Infinity","C":"Infinity","D":"1E+300"})");
}

TEST_F(HistoryTest, ARefusedStepAmongSeveralLeavesAllAsItWas)
{
    Command("One", {kCoffee});
    Command("Two", {kChecking});
    Elsewhere("DELETE FROM Trans");
    const std::string changed = Everything();
    EXPECT_THROW(Undo(2), HistoryRefusal);
    End();
    EXPECT_EQ(Everything(), changed);
    EXPECT_EQ(Undo(1).steps.front().what, "Two");
}

TEST_F(HistoryTest, RefusesWhereAnotherRowHasTakenThePlace)
{
    Command("New Record", {kChecking});
    Command("Delete Record", {"DELETE FROM Account"});
    Elsewhere("INSERT INTO Account (AccountID, Sequence) VALUES ('C', 1)");
    try {
        Undo();
        FAIL() << "undone";
    } catch (const HistoryRefusal& refusal) {
        EXPECT_STREQ(refusal.what(),
                     "'Delete Record' cannot be undone: there is another row in the place of the "
                     "account 'Checking'. Nothing was changed.");
    }
    End();
}

TEST_F(HistoryTest, ATriggerOfTheBookDoesNotRunWhenItsRowsArePutBack)
{
    Command("New Record", {kChecking});
    Elsewhere(
        "CREATE TRIGGER Counts AFTER INSERT ON Trans BEGIN UPDATE Account SET CurrentBalance = "
        "CurrentBalance + 1; END");
    const std::string before = Everything();
    Command("New Record", {kCoffee});
    const std::string after = Everything();
    Undo();
    EXPECT_EQ(Everything(), before);
    Redo();
    EXPECT_EQ(Everything(), after);
}

TEST_F(HistoryTest, OutlivesTheProgramAVacuumAndACopy)
{
    const std::string empty = Everything();
    Command("New Record", {kCoffee, kChecking});
    Command("Delete Record", {"DELETE FROM Trans"});
    history_.reset();
    connection_ = Connection();
    Elsewhere("VACUUM");
    const std::string copy = folder_.Path() + "/copy.mdb";
    Elsewhere("VACUUM INTO '" + copy + "'");
    path_ = copy;
    connection_.Open("Data Source=" + path_);
    history_ = std::make_unique<History>(
        connection_, [] { return *Date::Of(2026, 3, 5); }, "another");
    EXPECT_EQ(Undo(5).steps.size(), 2U);
    EXPECT_EQ(Everything(), empty);
}

TEST_F(HistoryTest, AChangeOfTablesEndsTheHistory)
{
    Command("New Record", {kCoffee});
    Command("SQL", {"ALTER TABLE Trans ADD COLUMN Colour TEXT"});
    EXPECT_FALSE(history_->NextToUndo());
    EXPECT_EQ(history_->EndedAt().substr(0, 10), "2026-03-04");
    Command("New Record", {kChecking});
    EXPECT_EQ(Undo(5).steps.size(), 1U);
}

// Symptom: after CREATE UNIQUE INDEX, Undo said that a row had been changed, which it had not.
TEST_F(HistoryTest, AnIndexEndsTheHistory)
{
    for (const char* statement :
         {"CREATE INDEX ByPayee ON Trans (PayeeName)", "DROP INDEX ByPayee ON Trans"}) {
        Command("New Record", {kCoffee});
        Command("SQL", {statement});
        EXPECT_FALSE(history_->NextToUndo()) << statement;
        EXPECT_EQ(history_->EndedAt().substr(0, 10), "2026-03-04") << statement;
    }
}

TEST_F(HistoryTest, AnAdditionOfTheProgramEndsTheHistoryOnlyIfAPersonMakesIt)
{
    Command("New Record", {kCoffee});
    for (const char* statement :
         {"CREATE TABLE CvNotes (Text TEXT)", "CREATE INDEX ByText ON CvNotes (Text)",
          "ALTER TABLE CvNotes ADD COLUMN More TEXT"})
        Command("Import", {statement});
    EXPECT_TRUE(history_->NextToUndo());
    RunSent(connection_, *history_, "DROP TABLE CvNotes");
    End();
    EXPECT_FALSE(history_->NextToUndo());
}

// Symptom: "the account 'Two' was changed since", where only an index had come.
TEST_F(HistoryTest, RefusesWhereATableNoLongerTakesTheRow)
{
    Command("New Records",
            {"INSERT INTO Account (AccountID, Description, Type) VALUES ('A', 'Same', 'Bank')",
             "INSERT INTO Account (AccountID, Description, Type) VALUES ('B', 'Same', 'Bank')"});
    Command("Edit", {"UPDATE Account SET Description = 'Two' WHERE AccountID = 'B'"});
    Elsewhere("CREATE UNIQUE INDEX NoSecond ON Account (Description)");
    EXPECT_EQ(Refusal(),
              "'Edit' cannot be undone: the table Account no longer takes the account 'Two' as it "
              "was. Nothing was changed.");

    Elsewhere("DROP INDEX NoSecond");
    Command("Delete Record", {"DELETE FROM Account WHERE AccountID = 'B'"});
    Elsewhere("CREATE UNIQUE INDEX NoSecond ON Account (Type)");
    EXPECT_EQ(Refusal(),
              "'Delete Record' cannot be undone: the table Account no longer takes the account "
              "'Two' as it was. Nothing was changed.");
}

// Symptom: such rows were changed for good, and Undo took back the command before.
TEST_F(HistoryTest, AWriteToRowsThatCannotBePutBackEndsTheHistory)
{
    Elsewhere(
        "CREATE TABLE Words (Word TEXT PRIMARY KEY, Hits LONG) WITHOUT ROWID;"
        "INSERT INTO Words VALUES ('a', 1), ('b', 2);"
        "CREATE TABLE Sums (A LONG, B LONG, C LONG AS (A + B) STORED, D LONG AS (A - B) VIRTUAL);"
        "INSERT INTO Sums VALUES (1, 2);"
        "CREATE TABLE Sums2 (A LONG, D LONG AS (A - 1) VIRTUAL, B LONG);"
        "INSERT INTO Sums2 VALUES (1, 2);"
        "CREATE TABLE Hidden (rowid TEXT, _rowid_ TEXT, oid TEXT);"
        "INSERT INTO Hidden VALUES ('1', '2', '3'), ('4', '5', '6')");
    for (const char* statement :
         {"INSERT INTO Words (Word, Hits) VALUES ('c', 3)",
          "UPDATE Words SET Hits = 9 WHERE Word = 'b'", "UPDATE Words SET Hits = 9",
          "UPDATE Words SET Word = 'bb' WHERE Word = 'b'", "DELETE FROM Words WHERE Word = 'bb'",
          "DELETE FROM Words", "INSERT INTO Sums (A, B) VALUES (3, 4)", "UPDATE Sums SET A = 5",
          "UPDATE Sums SET B = 7 WHERE A = 5", "DELETE FROM Sums",
          "INSERT INTO Sums2 (A, B) VALUES (3, 4)", "UPDATE Sums2 SET B = 7 WHERE A = 3",
          "DELETE FROM Sums2", "INSERT INTO Hidden (oid) VALUES ('x')",
          "UPDATE Hidden SET oid = 'y' WHERE oid = 'x'", "DELETE FROM Hidden WHERE oid = 'y'",
          "DELETE FROM Hidden"}) {
        Command("New Record", {kCoffee});
        Command("SQL", {statement});
        EXPECT_FALSE(history_->NextToUndo()) << statement;
        EXPECT_EQ(history_->EndedAt().substr(0, 10), "2026-03-04") << statement;
    }
}

// Symptom: rows that came and went again in one command were taken for one row.
TEST_F(HistoryTest, RowsWithoutIdentitiesAreNotTakenForOneAnother)
{
    Elsewhere(
        "CREATE TABLE Words (Word TEXT PRIMARY KEY, Hits LONG) WITHOUT ROWID;"
        "INSERT INTO Words VALUES ('a', 1), ('b', 2)");
    Command("New Record", {kCoffee});
    Command("SQL", {"INSERT INTO Words (Word) VALUES ('c')", "DELETE FROM Words WHERE Word = 'a'"});
    EXPECT_FALSE(history_->NextToUndo());
}

TEST_F(HistoryTest, WithoutItsTablesThereIsOnlyNoHistory)
{
    Command("New Record", {kCoffee});
    Elsewhere("DROP TABLE CvStep; DROP TABLE CvChange");
    EXPECT_FALSE(history_->NextToUndo());
    Command("New Record", {kChecking});
    EXPECT_EQ(Undo(5).steps.size(), 1U);
    EXPECT_EQ(Column("PRAGMA integrity_check"), std::vector<std::string>{"ok"});
}

/// Two programs at one file have one history, in the order of their commits.
TEST_F(HistoryTest, StepsOfTwoProgramsLieInOneOrder)
{
    Connection other;
    other.Open("Data Source=" + path_);
    History elsewhere(
        other, [] { return *Date::Of(2026, 3, 5); }, "the other");
    history_->Begin("Import");
    connection_.Execute(kCoffee);
    connection_.Settle();
    elsewhere.Begin("New Record");
    other.Execute(kChecking);
    other.Settle();
    elsewhere.End();
    connection_.Execute("UPDATE Account SET Description = 'Savings'");
    End();
    std::vector<std::string> steps;
    history_->Visit([&steps](const Step& step) {
        steps.push_back(step.what + " of " + step.program);
        return true;
    });
    EXPECT_EQ(steps, (std::vector<std::string>{"Import of this one", "New Record of the other",
                                               "Import of this one"}));
    EXPECT_EQ(Undo(5).steps.size(), 3U);
}

std::string CellOf(const std::optional<NamedValues>& cells, std::string_view column)
{
    if (!cells)
        return "none";
    for (const auto& [name, value] : *cells)
        if (name == column)
            return ToText(value);
    return "no such column";
}

TEST_F(HistoryTest, ShowsWhatARowWasAndBecameInEachStep)
{
    Command("One", {kCoffee});
    Command("Two", {"UPDATE Trans SET Description = 'Tea'"});
    Command("Three", {"UPDATE Trans SET Description = 'Milk', Amount = 2", kChecking});
    Command("Four", {"DELETE FROM Trans"});
    const std::vector<std::string> expected = {"none>Coffee", "Coffee>Tea", "Tea>Milk",
                                               "Milk>none"};
    for (int undone = 0; undone <= 4; ++undone) {
        std::vector<std::string> found;
        history_->Visit([&](const Step& step) {
            for (const RowStory& row : history_->Rows(step, 100))
                if (row.table == "Trans")
                    found.insert(found.begin(), CellOf(row.was, "Description") + ">" +
                                                    CellOf(row.is, "Description"));
            return true;
        });
        EXPECT_EQ(found, expected) << undone << " undone";
        Undo();
    }
    EXPECT_EQ(history_->Rows(*history_->Find(3), 1).size(), 1U);
    EXPECT_EQ(CellOf(history_->Rows(*history_->Find(1), 1).front().is, "Amount"), "-3.5");
}

/// Random commands of many statements, with undo and redo among them, against copies of all rows.
TEST_F(HistoryTest, ManyRandomStepsGoBackAndForth)
{
    std::mt19937 random(4711);
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    std::vector<std::string> states{Everything()};
    std::size_t at = 0;
    for (int round = 0; round < 300; ++round) {
        const int deed = below(10);
        if (deed < 3 && at > 0) {
            const auto steps = std::min<std::size_t>(at, static_cast<std::size_t>(below(4)) + 1);
            ASSERT_EQ(Undo(static_cast<std::int64_t>(steps)).steps.size(), steps);
            at -= steps;
        } else if (deed < 5 && at + 1 < states.size()) {
            Redo();
            ++at;
        } else {
            std::vector<std::string> statements;
            for (int i = below(5); i >= 0; --i) {
                const std::string number = std::to_string(below(40));
                const std::vector<std::string> choices = {
                    "INSERT INTO Trans (Sequence, Description, Amount) VALUES (" + number + ", 'x" +
                        number + "', 1)",
                    "INSERT INTO Account (AccountID, Type) VALUES ('" + number + "', 'Bank')",
                    "UPDATE Trans SET Amount = Amount + 1, Category = 'c" + number +
                        "' WHERE Sequence < " + number,
                    "UPDATE Account SET AccountID = '" + number +
                        "' WHERE Sequence = " + std::to_string(below(9)),
                    "DELETE FROM Trans WHERE Sequence = " + number,
                    "DELETE FROM Account WHERE Sequence = " + number,
                    "INSERT INTO Investment (StockSymbol, Quantity) VALUES ('s', " + number + ".5)",
                    "UPDATE Investment SET Quantity = " + number + ", PurchaseDate = #2026-01-02#"};
                statements.push_back(choices[static_cast<std::size_t>(below(8))]);
            }
            Command("Command", statements);
            if (Everything() == states[at])
                continue;
            states.resize(at + 1);
            states.push_back(Everything());
            ++at;
        }
        ASSERT_EQ(Everything(), states[at]) << "round " << round;
    }
    Undo(1000);
    EXPECT_EQ(Everything(), states.front());
    Redo(1000);
    EXPECT_EQ(Everything(), states.back());
}

}  // namespace
}  // namespace clb
