// The sums of a month's budget that are read together equal those of the single statements.

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <functional>
#include <utility>

#include "data/BudgetFigures.h"
#include "engine/rows/RawSql.h"
#include "engine/storage/EngineError.h"
#include "tests/data/StoreFixture.h"

namespace clb {
namespace {

constexpr const char* kMostAmount = "922337203685477.5807";

/// Runs an action once, in the moment after a file was unlocked for the n-th time. Affects files
/// that are opened while it lives.
class AfterUnlock {
public:
    AfterUnlock() : files_(*sqlite3_vfs_find(nullptr))
    {
        real_ = sqlite3_vfs_find(nullptr);
        files_.zName = "after-unlock";
        files_.xOpen = [](sqlite3_vfs*, sqlite3_filename name, sqlite3_file* file, int flags,
                          int* opened) {
            const int result = real_->xOpen(real_, name, file, flags, opened);
            if (result == SQLITE_OK && (flags & SQLITE_OPEN_MAIN_DB) != 0) {
                methods_ = *file->pMethods;
                unlock_ = std::exchange(methods_.xUnlock, Unlock);
                file->pMethods = &methods_;
            }
            return result;
        };
        sqlite3_vfs_register(&files_, 1);
    }
    ~AfterUnlock()
    {
        sqlite3_vfs_unregister(&files_);
        sqlite3_vfs_register(real_, 1);
    }
    AfterUnlock(const AfterUnlock&) = delete;
    AfterUnlock& operator=(const AfterUnlock&) = delete;

    static void Arm(int count, std::function<void()> action)
    {
        left_ = count;
        action_ = std::move(action);
    }
    /// Disarms it. Returns whether the action was run.
    static bool Disarm() { return std::exchange(left_, 0) <= 0; }

private:
    static int Unlock(sqlite3_file* file, int level)
    {
        const int result = unlock_(file, level);
        if (level == SQLITE_LOCK_NONE && left_ > 0 && --left_ == 0)
            action_();
        return result;
    }

    sqlite3_vfs files_;
    inline static sqlite3_vfs* real_ = nullptr;
    inline static sqlite3_io_methods methods_{};
    inline static int (*unlock_)(sqlite3_file*, int) = nullptr;
    inline static int left_ = 0;
    inline static std::function<void()> action_;
};

/// March 2006 is shown. The account "out" takes no part in the budget.
class MonthBudgetTest : public StoreTest {
protected:
    MonthBudgetTest()
    {
        shown_.view = vwBudget;
        AddAccount("in", "Bank");
        AddAccount("out", "Bank");
        Execute("UPDATE Account SET BudgetInclude = FALSE WHERE AccountID = 'out'");
        AddBudget("Toys", "Kids", "50", 2006, 3);
        AddBudget("Shoes", "Kids", "20", 2006, 3);
        AddBudget("Rent", "House", "500", 2006, 3);
        AddTransaction(1, "in", "-30", 2006, 3, "Toys");
        AddTransaction(2, "in", "-7.50", 2006, 3, "Shoes");
        AddTransaction(3, "out", "-99", 2006, 3, "Toys");
        Settle();
    }

    void Settle() { Store().Database().Settle(); }

    std::string Spent(const std::string& category)
    {
        return TextOrError(
            [&] { return BudgetFigures(Store(), shown_).ActualOf(category).ToText(); });
    }
    std::string GroupSums(const std::string& group)
    {
        return TextOrError([&] {
            const BudgetFigures::GroupSums sums = BudgetFigures(Store(), shown_).SumsOf(group);
            return sums.budgeted.ToText() + "/" + sums.actual.ToText();
        });
    }
    std::string Totals()
    {
        return TextOrError([&] {
            Money budgeted;
            Money spent;
            Store().CalcTotals(budgeted, spent);
            return budgeted.ToText() + "/" + spent.ToText();
        });
    }

    /// All figures of the shown month, in the order in which the window asks for them.
    std::vector<std::string> Figures()
    {
        std::vector<std::string> figures = {Totals()};
        for (const char* category :
             {"Toys", "toys", "TOYS", "Shoes", "Rent", "(none)", "", "Other"})
            figures.push_back(category + (": " + Spent(category)));
        for (const char* group : {"Kids", "kids", "House", "", "None"})
            figures.push_back(group + (": " + GroupSums(group)));
        return figures;
    }
    /// The same figures, each by its own statement.
    std::vector<std::string> SingleFigures()
    {
        Store().Database().Trace([](std::string_view) {});
        std::vector<std::string> figures = Figures();
        Store().Database().Trace(nullptr);
        return figures;
    }
    void ExpectFiguresOfSingleStatements() { EXPECT_EQ(Figures(), SingleFigures()); }

    /// Writes as another program would.
    void ExecuteElsewhere(const std::string& sql)
    {
        Connection other;
        other.Open("Data Source=" + folder_.Path() + "/db/clb.mdb");
        static_cast<void>(other.Execute(sql));
        other.Settle();
    }
    void WriteRaw(const std::string& sql)
    {
        RawSql(Store().Database()).Write(sql);
        Settle();
    }

private:
    static std::string TextOrError(const std::function<std::string()>& text)
    {
        try {
            return text();
        } catch (const EngineError& error) {
            return error.what();
        }
    }
};

TEST_F(MonthBudgetTest, GivesTheSumsOfTheMonth)
{
    EXPECT_EQ(Totals(), "570/-37.5");
    EXPECT_EQ(Spent("Toys"), "-30");
    EXPECT_EQ(GroupSums("Kids"), "70/-37.5");
    EXPECT_EQ(GroupSums("House"), "500/0");
    ExpectFiguresOfSingleStatements();
}

TEST_F(MonthBudgetTest, AReadSumFollowsTheProgramsOwnWrite)
{
    EXPECT_EQ(Spent("Toys"), "-30");

    AddTransaction(4, "in", "-5", 2006, 3, "Toys");
    EXPECT_EQ(Spent("Toys"), "-35");  // while the change is pending
    Settle();

    EXPECT_EQ(Spent("Toys"), "-35");
    EXPECT_EQ(Totals(), "570/-42.5");
    Execute("DELETE FROM Budget WHERE Category = 'Rent'");
    Settle();
    EXPECT_EQ(Totals(), "70/-42.5");
    Execute("UPDATE Account SET BudgetInclude = TRUE WHERE AccountID = 'out'");
    Settle();
    EXPECT_EQ(Spent("Toys"), "-134");
}

TEST_F(MonthBudgetTest, AWriteThatIsTakenBackIsForgotten)
{
    AddTransaction(4, "in", "-5", 2006, 3, "Toys");
    EXPECT_EQ(Spent("Toys"), "-35");
    EXPECT_EQ(Totals(), "570/-42.5");

    Store().Database().Abandon();

    EXPECT_EQ(Spent("Toys"), "-30");
    EXPECT_EQ(Totals(), "570/-37.5");
}

TEST_F(MonthBudgetTest, AReadSumFollowsAnotherProgram)
{
    EXPECT_EQ(Spent("Toys"), "-30");

    ExecuteElsewhere("UPDATE Trans SET Amount = -31 WHERE Sequence = 1");
    EXPECT_EQ(Spent("Toys"), "-31");
    ExecuteElsewhere("UPDATE Budget SET CategoryGroup = 'House' WHERE Category = 'Toys'");
    EXPECT_EQ(GroupSums("House"), "550/-31");
    EXPECT_EQ(GroupSums("Kids"), "20/-7.5");
}

TEST_F(MonthBudgetTest, WhatAnotherProgramHasNotSettledDoesNotCount)
{
    EXPECT_EQ(Spent("Toys"), "-30");
    Connection other;
    other.Open("Data Source=" + folder_.Path() + "/db/clb.mdb");
    static_cast<void>(other.Execute("UPDATE Trans SET Amount = -31 WHERE Sequence = 1"));

    EXPECT_EQ(Spent("Toys"), "-30");
    EXPECT_EQ(Totals(), "570/-37.5");
    other.Settle();
    EXPECT_EQ(Spent("Toys"), "-31");
    EXPECT_EQ(Totals(), "570/-38.5");
}

// Symptom: what was spent was read before another program's change, what is budgeted after it.
TEST_F(MonthBudgetTest, SumsAreOfOneStateIfAnotherProgramWritesWhileTheyAreRead)
{
    store_.reset();
    const AfterUnlock files;
    int count = 0;
    for (bool wrote = true; wrote;) {
        ++count;
        const std::string rent = std::to_string(1000 + count);
        const std::string before = Totals();
        shown_.period = 4;
        Totals();  // the sums of March are no longer held
        shown_.period = 3;
        AfterUnlock::Arm(count, [&] {
            Connection other;
            other.Open("Data Source=" + folder_.Path() + "/db/clb.mdb");
            other.Group();
            static_cast<void>(
                other.Execute("UPDATE Budget SET Amount = " + rent + " WHERE Category = 'Rent'"));
            static_cast<void>(other.Execute("UPDATE Trans SET Amount = -" + rent +
                                            " WHERE Category = 'Toys' AND AccountID = 'in'"));
            other.Settle();
        });

        const std::string read = Totals();

        wrote = AfterUnlock::Disarm();
        EXPECT_THAT(read, testing::AnyOf(before, Totals())) << count;
    }
    EXPECT_GT(count, 1);  // otherwise the other program never wrote
    store_.reset();
}

TEST_F(MonthBudgetTest, HoldsOneMonthAtATime)
{
    for (std::int32_t period = 1; period <= 12; ++period) {
        AddTransaction(100 + period, "in", std::to_string(-period), 2007, period, "Toys");
        AddBudget("Toys", "Kids", std::to_string(period * 10), 2007, period);
    }
    Settle();
    shown_.year = 2007;
    for (shown_.period = 1; shown_.period <= 12; ++shown_.period) {
        const std::string period = std::to_string(shown_.period);
        EXPECT_EQ(Spent("Toys"), "-" + period);
        EXPECT_EQ(GroupSums("Kids"), period + "0/-" + period);
        EXPECT_EQ(Totals(), period + "0/-" + period);
        ExpectFiguresOfSingleStatements();
    }
    shown_.year = 2006;
    shown_.period = 3;
    EXPECT_EQ(Spent("Toys"), "-30");
    shown_.period = 0;
    EXPECT_EQ(Totals(), "0/0");
}

TEST_F(MonthBudgetTest, UpperAndLowerCaseAreDifferentCategories)
{
    AddTransaction(4, "in", "-1", 2006, 3, "toys");
    AddBudget("TOYS", "kids", "5", 2006, 3);
    Settle();

    EXPECT_EQ(Spent("Toys"), "-30");
    EXPECT_EQ(Spent("toys"), "-1");
    EXPECT_EQ(Spent("TOYS"), "0");
    EXPECT_EQ(GroupSums("kids"), "5/0");
    ExpectFiguresOfSingleStatements();
}

TEST_F(MonthBudgetTest, RowsWithoutACategoryCountInTheTotalOnly)
{
    AddTransaction(4, "in", "-1", 2006, 3, "");
    AddTransaction(5, "in", "-2", 2006, 3, "(none)");
    AddTransaction(6, "in", "-4", 2006, 3, "gone");
    Execute("UPDATE Trans SET Category = NULL WHERE Sequence = 6");
    AddBudget("gone", "gone", "5", 2006, 3);
    Execute("UPDATE Budget SET Category = NULL, CategoryGroup = NULL WHERE Category = 'gone'");
    Settle();

    EXPECT_EQ(Totals(), "575/-44.5");
    EXPECT_EQ(Spent(""), "-1");
    EXPECT_EQ(Spent("(none)"), "-2");
    EXPECT_EQ(GroupSums(""), "0/0");
    ExpectFiguresOfSingleStatements();
}

TEST_F(MonthBudgetTest, NullAmountsAddNothing)
{
    Execute("UPDATE Trans SET Amount = NULL WHERE Sequence = 1");
    Execute("UPDATE Budget SET Amount = NULL WHERE Category = 'Rent'");
    Settle();

    EXPECT_EQ(Totals(), "70/-7.5");
    EXPECT_EQ(Spent("Toys"), "0");
    ExpectFiguresOfSingleStatements();
}

TEST_F(MonthBudgetTest, TwoLinesOrTwoAccountsOfOneNameCountTwice)
{
    AddBudget("Toys", "Kids", "1", 2006, 3);
    AddBudget("Toys", "House", "2", 2006, 3);
    AddAccount("in", "Bank");
    Settle();

    EXPECT_EQ(Spent("Toys"), "-60");
    EXPECT_EQ(GroupSums("Kids"), "71/-135");
    EXPECT_EQ(GroupSums("House"), "502/-60");
    ExpectFiguresOfSingleStatements();
}

TEST_F(MonthBudgetTest, ASumThatAnAmountCannotHoldIsAnErrorWhereItIsAskedFor)
{
    AddTransaction(4, "in", kMostAmount, 2006, 3, "Rent");
    AddTransaction(5, "in", "1", 2006, 3, "Rent");
    Settle();

    EXPECT_EQ(Spent("Toys"), "-30");
    EXPECT_EQ(GroupSums("Kids"), "70/-37.5");
    EXPECT_EQ(Spent("Rent"), "The rows of the table Trans add up to more than an amount can be.");
    EXPECT_EQ(GroupSums("House"), Spent("Rent"));
    EXPECT_EQ(Totals(), "570/922337203685441.0807");  // only the whole must fit
    ExpectFiguresOfSingleStatements();
}

TEST_F(MonthBudgetTest, ATotalCanBeTooLargeWhileItsPartsAreNot)
{
    AddTransaction(4, "in", kMostAmount, 2006, 3, "Rent");
    AddTransaction(5, "in", "40", 2006, 3, "Other");
    Settle();

    EXPECT_EQ(Totals(), "The rows of the table Trans add up to more than an amount can be.");
    EXPECT_EQ(Spent("Rent"), kMostAmount);
    ExpectFiguresOfSingleStatements();
}

TEST_F(MonthBudgetTest, ACellThatIsNotAnAmountIsNamedWhereItIsAskedFor)
{
    WriteRaw("UPDATE Trans SET Amount = '12,50' WHERE Sequence = 1");

    EXPECT_EQ(Spent("Shoes"), "-7.5");
    EXPECT_EQ(Spent("Toys"),
              "Trans.Amount of number 1, piece 0 (account 'in') holds the text '12,50', which is "
              "not an amount.");
    ExpectFiguresOfSingleStatements();
}

TEST_F(MonthBudgetTest, BytesAreNotEqualToATextThatReadsTheSame)
{
    WriteRaw("UPDATE Trans SET Category = CAST('Toys' AS BLOB) WHERE Sequence = 1");

    EXPECT_EQ(Spent("Toys"), "0");
    EXPECT_EQ(Totals(), "570/-37.5");
    ExpectFiguresOfSingleStatements();
}

TEST_F(MonthBudgetTest, AColumnThatIgnoresCaseIsComparedByTheDatabase)
{
    EXPECT_EQ(Spent("TOYS"), "0");
    WriteRaw(
        "CREATE TABLE Other (Sequence LONG, SubSequence LONG, AccountID TEXT, PostDate "
        "DATETIME, Description TEXT, Amount MONEY, Category TEXT COLLATE NOCASE, Year LONG, "
        "Period LONG)");
    WriteRaw(
        "INSERT INTO Other SELECT Sequence, SubSequence, AccountID, PostDate, Description, "
        "Amount, Category, Year, Period FROM Trans");
    WriteRaw("DROP TRIGGER RowsFollowAccount");
    WriteRaw("DROP TABLE Trans");
    WriteRaw("ALTER TABLE Other RENAME TO Trans");

    EXPECT_EQ(Spent("TOYS"), "-30");
    ExpectFiguresOfSingleStatements();
}

TEST_F(MonthBudgetTest, EachSumIsAStatementWhileStatementsAreTraced)
{
    EXPECT_EQ(Spent("Toys"), "-30");  // the sums are held from here on
    std::vector<std::string> sent;
    Store().Database().Trace([&](std::string_view sql) { sent.emplace_back(sql); });

    EXPECT_EQ(Spent("Toys"), "-30");
    EXPECT_EQ(GroupSums("Kids"), "70/-37.5");
    EXPECT_EQ(Totals(), "570/-37.5");

    ASSERT_EQ(sent.size(), 5U);
    EXPECT_EQ(sent[0],
              "SELECT SUM( Amount ) AS TotActual FROM Account INNER JOIN Trans ON "
              "Account.AccountID = Trans.AccountID WHERE Account.BudgetInclude = TRUE AND Year = "
              "2006 AND Period = 3 AND Category = 'Toys'");
}

}  // namespace
}  // namespace clb
