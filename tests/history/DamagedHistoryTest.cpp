// Histories that other programs have damaged or made up: they cost no more than themselves.
#include <iomanip>
#include <sstream>

#include "tests/history/HistoryFixture.h"

namespace clb {
namespace {

class DamagedHistoryTest : public HistoryFixture {
protected:
    void SetUp() override
    {
        HistoryFixture::SetUp();
        Command("New Record", {"INSERT INTO Account (AccountID, Description, Type) VALUES ('A', "
                               "'One', 'Bank')"});
        Command("Edit", {"UPDATE Account SET Description = 'Two'"});
    }
    /// The names of the steps, the newest first.
    std::string Steps()
    {
        std::string names;
        history_->Visit([&names](const Step& step) {
            names += (names.empty() ? "" : ", ") + step.what;
            return true;
        });
        return names;
    }
    /// What is said when a step's rows are to be shown, or how many there are.
    std::string WhatShowing(std::int64_t step)
    {
        try {
            return std::to_string(history_->Rows(*history_->Find(step), 9).size()) + " row";
        } catch (const HistoryRefusal& refusal) {
            return refusal.what();
        }
    }
    /// Puts these bytes in the place of the record of the second step, with nothing that tells so.
    void ForgeRecord(const std::string& hex) const
    {
        Elsewhere("UPDATE CvChange SET Data = x'" + hex +
                  "' WHERE Step = 2; UPDATE CvStep SET Checksum = NULL, Bytes = 100 + " +
                  std::to_string(hex.size() / 2) + " WHERE Step = 2");
    }
};

constexpr const char* kDamaged =
    "'Edit' cannot be undone: the history's step 2 is damaged. Nothing was changed.";

// Undo reported success and changed nothing.
TEST_F(DamagedHistoryTest, StepsThatHaveLostTheirChangesAreForgotten)
{
    Elsewhere("DROP TABLE CvChange");
    EXPECT_EQ(Refusal(), "undone");
    Command("Edit again", {"UPDATE Account SET Description = 'Three'"});

    EXPECT_EQ(Steps(), "Edit again");
    EXPECT_EQ(Undo(5).steps.size(), 1U);
    EXPECT_NE(Everything().find("3:Two|"), std::string::npos) << Everything();
}

TEST_F(DamagedHistoryTest, AStepThatLacksAPartIsRefused)
{
    Elsewhere("DELETE FROM CvChange WHERE Step = 2");
    const std::string before = Everything();

    EXPECT_EQ(Refusal(2), kDamaged);
    EXPECT_EQ(Everything(), before);
    EXPECT_THROW(history_->Rows(*history_->Find(2), 9), HistoryRefusal);
}

// Each command that wrote was refused: "no such column: Step".
TEST_F(DamagedHistoryTest, TablesOfAnotherShapeAreReplaced)
{
    for (const char* shape : {"DROP TABLE CvStep; CREATE TABLE CvStep (x)",
                              "DROP TABLE CvStep; CREATE VIEW CvStep AS SELECT 1 AS Step",
                              "DROP TABLE CvChange; CREATE TABLE cvchange (Step, Part, Data)",
                              "ALTER TABLE CvStep DROP COLUMN Bytes"}) {
        Elsewhere(shape);
        EXPECT_EQ(Steps(), "") << shape;
        EXPECT_EQ(Refusal(), "undone");

        Command("Edit again", {"UPDATE Account SET AccountID = 'B'"});

        EXPECT_EQ(Steps(), "Edit again") << shape;
        EXPECT_EQ(Undo(5).steps.size(), 1U);
    }
}

// The number of the next step overflowed, and so did the sum of the sizes.
TEST_F(DamagedHistoryTest, NumbersThatNoStepHasAreNoTrouble)
{
    Elsewhere("UPDATE CvStep SET Bytes = 9223372036854775807");
    Command("Edit again", {"UPDATE Account SET Description = 'Three'"});
    EXPECT_EQ(Undo().steps.front().what, "Edit again");

    Elsewhere("UPDATE CvStep SET Step = 9223372036854775807, Undone = 0 WHERE Step = 3");
    Command("Edit once more", {"UPDATE Account SET Description = 'Four'"});
    EXPECT_EQ(Undo(5).steps.size(), 1U);
}

TEST_F(DamagedHistoryTest, ChangesOfNoStepDoNotBecomePartOfTheNext)
{
    Elsewhere("INSERT INTO CvChange VALUES (3, 1, x'00')");
    Command("Edit again", {"UPDATE Account SET Description = 'Three'"});

    EXPECT_EQ(Refusal(), "undone");
    EXPECT_NE(Everything().find("3:Two|"), std::string::npos) << Everything();
}

// A number of columns below zero was read, and cells were written outside the row.
TEST_F(DamagedHistoryTest, AMadeUpRecordIsRefused)
{
    const std::string account = "074163636f756e74";  // "Account"
    const std::string print = "0000000000000000";
    // Name, number of columns and fingerprint, as they are.
    const std::string head =
        Column("SELECT hex(substr(Data, 1, 17)) FROM CvChange WHERE Step = 2").front();
    for (const std::string& record :
         {account + "ffffffffffffffffff01" + print + "030201000100" + "00",  // columns below zero
          account + "8080808008" + print + "0302" + "01" + "ff7f00" + "00",  // far too many
          head + "0202" + print + "00" + "00",                               // written, no cell
          head + "0202" + print + "02" + "0200" + "0100" + "00",             // out of order
          head + "0302" + "01" + "0000" + "00",                              // gone, not all cells
          "0643765374657005" + print + "0102" + "01" + print + "00",  // the history's own table
          "0f73716c6974655f73657175656e636502" + print + "00"}) {
        ForgeRecord(record);
        const std::string before = Everything();

        EXPECT_EQ(Refusal(), kDamaged) << record;
        EXPECT_EQ(Everything(), before);
        EXPECT_THROW(history_->Rows(*history_->Find(2), 9), HistoryRefusal) << record;
    }
}

// Undo put back a text that had never been there, and the name of a table was bytes of any kind.
TEST_F(DamagedHistoryTest, ARecordWithOneWrongBitIsRefused)
{
    const std::string record = Column("SELECT hex(Data) FROM CvChange WHERE Step = 2").front();
    for (std::size_t at = 0; at + 1 < record.size(); at += 2) {
        const int byte = std::stoi(record.substr(at, 2), nullptr, 16) ^ 1;
        std::ostringstream forged;
        forged << record.substr(0, at) << std::hex << std::setw(2) << std::setfill('0') << byte
               << record.substr(at + 2);
        Elsewhere("UPDATE CvChange SET Data = x'" + forged.str() + "' WHERE Step = 2");

        EXPECT_EQ(Refusal(), kDamaged) << at;
        EXPECT_EQ(WhatShowing(2), "The history's step 2 ('Edit') is damaged.") << at;
    }
    Elsewhere("UPDATE CvChange SET Data = x'" + record + "' WHERE Step = 2");
    EXPECT_EQ(Refusal(), "undone");
    Elsewhere("UPDATE CvStep SET Checksum = Checksum + 1 WHERE Step = 2");
    EXPECT_THROW(history_->Redo(1), HistoryRefusal);
}

// Symptom: the step that was asked for was said to be damaged, not the one that was.
TEST_F(DamagedHistoryTest, AnEarlierStepIsNotBlamedForALaterOne)
{
    Elsewhere("UPDATE CvChange SET Data = x'00' || Data WHERE Step = 2");

    EXPECT_EQ(WhatShowing(1), "Step 1 cannot be shown: the history's step 2 ('Edit') is damaged.");
}

// Books of an earlier form have no checksums.
TEST_F(DamagedHistoryTest, AHistoryWithoutChecksumsIsGoneOnWith)
{
    const std::string now = Everything();
    Elsewhere("ALTER TABLE CvStep DROP COLUMN Checksum");
    EXPECT_EQ(WhatShowing(1), "1 row");
    EXPECT_EQ(Undo(2).steps.size(), 2U);
    EXPECT_EQ(Redo(2).steps.size(), 2U);
    EXPECT_EQ(Everything(), now);

    Elsewhere("ALTER TABLE CvStep DROP COLUMN Checksum");
    Command("Edit again", {"UPDATE Account SET Description = 'Three'"});
    EXPECT_EQ(Steps(), "Edit again, Edit, New Record");
    EXPECT_EQ(Column("SELECT Step FROM CvStep WHERE Checksum IS NULL"),
              (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(Undo(3).steps.size(), 3U);
}

// The row that was only changed was reported as deleted, and another by what it would have become.
TEST_F(DamagedHistoryTest, ARefusalNamesTheRowAsItIsNow)
{
    Elsewhere("UPDATE Account SET Description = 'Foreign'");
    EXPECT_EQ(Refusal(),
              "'Edit' cannot be undone: the account 'Foreign' was changed since. Nothing was "
              "changed.");

    Elsewhere("DELETE FROM CvChange WHERE Step = 2; DELETE FROM CvStep WHERE Step = 2");
    EXPECT_EQ(Refusal(),
              "'New Record' cannot be undone: the account 'Foreign' was changed since. Nothing "
              "was changed.");
}

}  // namespace
}  // namespace clb
