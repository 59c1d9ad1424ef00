// Another program deletes rows without updating the stored balance. The next change of a row lists
// the wrong balance before it is recomputed.

#include "tests/stress/TwoPrograms.h"

namespace clb {
namespace {

class LostRowsTest : public TwoPrograms {
protected:
    LostRowsTest()
    {
        Grid();
        OtherSql("DELETE FROM Trans WHERE Sequence = 2");
    }
    std::vector<std::string> Listed()
    {
        return RawBook(folder.Path())
            .Rows("SELECT AccountID, Stored / 10000, Total / 10000, NoticedBy FROM CvBalance");
    }
};

constexpr int kAmount = 3;
constexpr const char* kNoticed = "B-1|-60|-40|window";

TEST_F(LostRowsTest, AnEditedRowListsTheBalanceAndACheckReportsIt)
{
    Edit(1, kAmount, "-35");
    Save();

    EXPECT_EQ(StoredBalance(), "-45");
    EXPECT_THAT(Listed(), testing::ElementsAre(kNoticed));
    ClbProcess check({"check", "--home", folder.Path()});
    EXPECT_EQ(check.Wait(), 2);
    EXPECT_THAT(check.Out(),
                testing::HasSubstr("when a change of its rows worked the balance out again on "
                                   "2006-03-05, the stored balance was -60 and its rows added up "
                                   "to -40."));
    EXPECT_TRUE(EventsOf("box").empty());
}

TEST_F(LostRowsTest, ANewAndADeletedRowDoToo)
{
    Edit("new", 1, "2006-03-20");
    Edit("new", kAmount, "-5");
    Save();
    Click("Checking");
    Grid();
    OtherSql("DELETE FROM Trans WHERE Sequence = 1");
    Move(1, 1);
    AnswerBox("Yes");
    Menu("mnuE_Delete");

    EXPECT_EQ(StoredBalance(), "-30");
    EXPECT_THAT(Listed(), testing::ElementsAre(kNoticed, "B-1|-45|-35|window"));
}

}  // namespace
}  // namespace clb
