#include "controls/GridSource.h"
#include "tests/support/GridFixture.h"

namespace clb {
namespace {

class GridArrayTest : public testing::Test {
protected:
    GridArrayTest() : array_([this] { ++shown_; }) { FillShop(array_); }

    int shown_ = 0;
    GridArray array_;
};

TEST_F(GridArrayTest, ShowBindsTheGrid)
{
    EXPECT_EQ(shown_, 1);
}

TEST_F(GridArrayTest, ValuesTakeTheTypeOfTheirField)
{
    array_.Add({14, std::string("Dates"), std::string("1.25")});

    EXPECT_EQ(array_.At(3, 2), Value(Money::FromDouble(1.25)));
    EXPECT_TRUE(IsNull(array_.At(3, 6)));
}

TEST_F(GridArrayTest, ARowWithTooManyOrWrongValuesIsRefusedWhole)
{
    EXPECT_EQ(RuntimeErrorOf([this] {
                  array_.Add({1, 2, 3, 4, Null{}, true, 7, 8});
              }),
              errors::SubscriptOutOfRange);
    EXPECT_EQ(RuntimeErrorOf([this] {
                  array_.Add({1, std::string("x"), std::string("cheap")});
              }),
              errors::TypeMismatch);
    EXPECT_EQ(array_.Count(), 3U);
}

TEST_F(GridArrayTest, SavingWritesTheChangedFieldsOnly)
{
    EXPECT_EQ(array_.Save(1, {{3, 9}}), 1U);

    EXPECT_EQ(ToText(array_.At(1, 1)), "Bread");
    EXPECT_EQ(array_.At(1, 3), Value(9));
}

TEST_F(GridArrayTest, SavingAfterTheLastRowAddsARow)
{
    EXPECT_EQ(array_.Save(3, {{1, std::string("Dates")}}), 3U);

    EXPECT_EQ(array_.Count(), 4U);
    EXPECT_NE(array_.Identity(3), array_.Identity(2));
}

TEST_F(GridArrayTest, ARefusedSaveWritesNothing)
{
    EXPECT_EQ(RuntimeErrorOf([this] {
                  array_.Save(0, {{1, std::string("Pears")}, {2, std::string("cheap")}});
              }),
              errors::TypeMismatch);

    EXPECT_EQ(ToText(array_.At(0, 1)), "Apples");
}

TEST_F(GridArrayTest, DeletingARowKeepsTheIdentityOfTheOthers)
{
    const std::size_t cheese = array_.Identity(2);

    array_.Delete(1);

    EXPECT_EQ(array_.Count(), 2U);
    EXPECT_EQ(array_.Identity(1), cheese);
    EXPECT_EQ(RuntimeErrorOf([this] { array_.Delete(2); }), errors::SubscriptOutOfRange);
}

}  // namespace
}  // namespace clb
