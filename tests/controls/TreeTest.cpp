#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "controls/Tree.h"

namespace clb {
namespace {

class TreeTest : public testing::Test {
protected:
    TreeTest() : tree_("TreeView")
    {
        root_ = tree_.Add(0, "", "Net Worth", 6, 7);
        bank_ = tree_.Add(root_, "Bank", "Bank", 6, 7);
        checking_ = tree_.Add(bank_, "", "Checking", 6, 7);
        cash_ = tree_.Add(root_, "Cash", "Cash", 6, 7);
        wallet_ = tree_.Add(cash_, "", "Wallet", 6, 7);
    }

    Tree tree_;
    std::int32_t root_, bank_, checking_, cash_, wallet_;
};

TEST_F(TreeTest, TheFirstNodeIsSelectedWithoutAClick)
{
    EXPECT_EQ(tree_.Selected(), root_);
    EXPECT_EQ(tree_.Count(), 5);
}

TEST_F(TreeTest, RemovingANodeTakesItsChildrenAndMovesTheRestDown)
{
    tree_.Remove(bank_);

    ASSERT_EQ(tree_.Count(), 3);
    EXPECT_EQ(tree_.Node(2).text, "Cash");
    EXPECT_EQ(tree_.Node(3).text, "Wallet");
    EXPECT_EQ(tree_.Node(3).parent, 2);
}

TEST_F(TreeTest, RemovingTheSelectedNodeSelectsTheRoot)
{
    tree_.Select(checking_);

    tree_.Remove(bank_);

    EXPECT_EQ(tree_.Selected(), root_);
}

TEST_F(TreeTest, RemovingAnotherNodeKeepsTheSelectedOne)
{
    tree_.Select(wallet_);

    tree_.Remove(checking_);

    EXPECT_EQ(tree_.Node(tree_.Selected()).text, "Wallet");
}

TEST_F(TreeTest, AClickSelectsAndReportsTheNode)
{
    std::int32_t clicked = 0;
    tree_.NodeClick().connect([&clicked](std::int32_t node) { clicked = node; });

    tree_.Select(cash_);
    EXPECT_EQ(clicked, 0);
    tree_.ClickNode(wallet_);

    EXPECT_EQ(clicked, wallet_);
    EXPECT_EQ(tree_.Selected(), wallet_);
}

TEST_F(TreeTest, ATakenKeyAndAnUnknownNodeAreErrors)
{
    EXPECT_THROW(tree_.Add(root_, "Bank", "Again", 6, 7), RuntimeError);
    EXPECT_THROW(tree_.Add(99, "", "Lost", 6, 7), RuntimeError);
    EXPECT_THROW(static_cast<void>(tree_.Node(0)), RuntimeError);
    EXPECT_EQ(tree_.Count(), 5);
}

TEST_F(TreeTest, ABatchOfChangesIsDrawnOnce)
{
    int drawn = 0;
    tree_.Changed().connect([&drawn] { ++drawn; });

    {
        const Tree::Batch batch(tree_);
        tree_.Clear();
        tree_.Add(0, "", "Net Worth", 6, 7);
        EXPECT_EQ(drawn, 0);
    }

    EXPECT_EQ(drawn, 1);
}

}  // namespace
}  // namespace clb
