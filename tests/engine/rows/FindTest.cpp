#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

using Lines = std::vector<std::string>;

class FindTest : public EngineTest {
protected:
    FindTest()
    {
        RunAll(
            {"CREATE TABLE T (id LONG, x TEXT, m MONEY, d DOUBLE, s SINGLE, t DATETIME, y YESNO)",
             "INSERT INTO T VALUES (1, 'Food', 1.5, 0.1, 0.1, #2006-01-31#, YES)",
             "INSERT INTO T VALUES (2, 'food', -2, 2, 2, #2006-02-28 10:00:00#, NO)",
             "INSERT INTO T VALUES (3, 'It''s', 1.5, NULL, 3, NULL, YES)",
             "INSERT INTO T VALUES (4, NULL, 0, -5, 0, #1999-12-31#, NO)"});
        rows_ = Opened("SELECT * FROM T");
    }

    /// Returns the ids of all rows that repeated searches from the top find.
    std::string Found(const std::string& criterion)
    {
        std::string ids;
        for (rows_.MoveFirst();; rows_.MoveNext()) {
            if (rows_.AtEnd())
                return ids;
            rows_.Find(criterion);
            if (rows_.AtEnd())
                return ids;
            ids += ToText(rows_.Get("id"));
        }
    }

    Recordset rows_;
};

TEST_F(FindTest, EqualValuesAreFoundOfEveryType)
{
    EXPECT_EQ(Found("x = 'Food'"), "1");
    EXPECT_EQ(Found("X = 'It''s'"), "3");
    EXPECT_EQ(Found("[x] = 'other'"), "");
    EXPECT_EQ(Found("id = 2"), "2");
    EXPECT_EQ(Found("id = 2.0"), "2");
    EXPECT_EQ(Found("id = 2.5"), "");
    EXPECT_EQ(Found("id = 99999999999"), "");
    EXPECT_EQ(Found("m = 1.5"), "13");
    EXPECT_EQ(Found("m = 1.500000"), "13");
    EXPECT_EQ(Found("m = 1.500001"), "");
    EXPECT_EQ(Found("m = -2"), "2");
    EXPECT_EQ(Found("m = 15e-1"), "13");
    EXPECT_EQ(Found("m = -0.2E+1"), "2");
    EXPECT_EQ(Found("d = 0.1"), "1");
    EXPECT_EQ(Found("s = 0.1"), "1");
    EXPECT_EQ(Found("t = #2006-01-31#"), "1");
    EXPECT_EQ(Found("t = #2006-02-28 10:00:00#"), "2");
    EXPECT_EQ(Found("y = TRUE"), "13");
    EXPECT_EQ(Found("y = no"), "24");
    EXPECT_EQ(Found("y = -1"), "13");
}

TEST_F(FindTest, TheOtherOperatorsWalk)
{
    EXPECT_EQ(Found("x <> 'Food'"), "23");
    EXPECT_EQ(Found("x < 'G'"), "1");
    EXPECT_EQ(Found("x LIKE 'FOO%'"), "12");
    EXPECT_EQ(Found("x like '_t''s'"), "3");
    EXPECT_EQ(Found("id >= 3"), "34");
    EXPECT_EQ(Found("m < 1.50001"), "1234");
    EXPECT_EQ(Found("m < 1.49999"), "24");
    EXPECT_EQ(Found("m > -2.00001"), "1234");
    EXPECT_EQ(Found("m <= -1.99999"), "2");
    EXPECT_EQ(Found("m > 1e30"), "");
    EXPECT_EQ(Found("d > -5"), "12");
    EXPECT_EQ(Found("t < #2006-02-28#"), "14");
    EXPECT_EQ(Found("t <= #1999-12-31#"), "4");
    EXPECT_EQ(Found("t >= #2006-02-28 10:00:00#"), "2");
    EXPECT_EQ(Found("y <> TRUE"), "24");
    EXPECT_EQ(Found("y > TRUE"), "24");
    EXPECT_EQ(Found("y <= FALSE"), "1234");
}

TEST_F(FindTest, TheSearchBeginsAtTheCurrentRow)
{
    rows_.MoveTo(1);

    rows_.Find("m = 1.5");
    EXPECT_EQ(ToText(rows_.Get("id")), "3");
    rows_.Find("m = 1.5");
    EXPECT_EQ(ToText(rows_.Get("id")), "3") << "the current row counts";
    rows_.Find("id = 1");
    EXPECT_TRUE(rows_.AtEnd());
    EXPECT_EQ(ErrorOf([&] { rows_.Find("id = 1"); }).Number(), engine_errors::NoCurrentRow);
}

TEST_F(FindTest, ACriterionOfAnotherFormIsAnError)
{
    for (const char* criterion :
         {"", "x", "x =", "x = 'It's'", "x = 'open", "x = y", "x = 'a' AND id = 1", "= 'a'",
          "x = -'a'", "5 = 5", "x IN ('a')", "x = 'a';", "x == 'a'"}) {
        SCOPED_TRACE(criterion);
        const auto error = ErrorOf([&] { rows_.Find(criterion); });
        EXPECT_EQ(error.Number(), engine_errors::WrongArguments);
        EXPECT_EQ(std::string(error.what()), "The criterion '" + std::string(criterion) +
                                                 "' is not of the form: field, operator, literal.");
    }
    EXPECT_EQ(ToText(rows_.Get("id")), "1") << "the row is still the current one";
}

TEST_F(FindTest, AnUnknownFieldOrAnotherKindOfLiteralIsAnError)
{
    EXPECT_EQ(ErrorOf([&] { rows_.Find("z = 1"); }).Number(), engine_errors::ItemNotFound);
    for (const char* criterion : {"x = 1", "id = '1'", "m = #2006-01-01#", "t = '2006-01-31'",
                                  "t = 5", "x = TRUE", "id LIKE 1", "y = 'yes'"}) {
        SCOPED_TRACE(criterion);
        EXPECT_EQ(ErrorOf([&] { rows_.Find(criterion); }).Number(), engine_errors::TypeMismatch);
    }
}

TEST_F(FindTest, RowsAddedChangedAndDeletedThroughTheSetAreSeenAtOnce)
{
    EXPECT_EQ(Found("x = 'new'"), "");

    rows_.AddNew();
    rows_.Set("id", std::int32_t{5});
    rows_.Set("x", std::string("new"));
    rows_.Update();
    EXPECT_EQ(Found("x = 'new'"), "5");
    rows_.MoveFirst();
    rows_.Set("x", std::string("new"));
    rows_.Update();
    EXPECT_EQ(Found("x = 'new'"), "15");
    EXPECT_EQ(Found("x = 'Food'"), "");
    rows_.MoveFirst();
    rows_.Delete();
    rows_.MoveNext();
    rows_.Find("x = 'new'");

    EXPECT_EQ(ToText(rows_.Get("id")), "5");
    EXPECT_EQ(Found("x = 'new'"), "5");
}

TEST_F(FindTest, ASearchSavesTheRowThatItLeaves)
{
    rows_.Set("x", std::string("changed"));

    rows_.Find("id = 3");

    EXPECT_EQ(Rows("SELECT x FROM T WHERE id = 1"), Lines{"changed"});
}

TEST_F(FindTest, RequeryForgetsWhatWasSearched)
{
    EXPECT_EQ(Found("x = 'Food'"), "1");
    Run("UPDATE T SET x = 'Food'");

    rows_.Requery();

    EXPECT_EQ(Found("x = 'Food'"), "1234");
}

TEST_F(FindTest, ManyEqualRowsAreFoundOneByOne)
{
    for (int i = 0; i < 500; ++i)
        Run("INSERT INTO Trans (Sequence, Category) VALUES (" + std::to_string(i) + ", '" +
            (i % 5 == 0 ? "(none)" : "x" + std::to_string(i)) + "')");
    Recordset trans = Opened("SELECT Sequence, Category FROM Trans");

    int found = 0;
    for (trans.Find("Category = '(none)'"); !trans.AtEnd(); trans.Find("Category = '(none)'")) {
        EXPECT_EQ(trans.Get(0), Value(std::int32_t{5 * found}));
        ++found;
        trans.MoveNext();
        if (trans.AtEnd())
            break;
    }

    EXPECT_EQ(found, 100);
}

}  // namespace
}  // namespace clb
