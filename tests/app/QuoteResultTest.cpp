// What the window says after the prices were updated.
#include <gtest/gtest.h>

#include "controls/RowList.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

class QuoteResultTest : public testing::Test {
protected:
    QuoteResultTest()
    {
        books_.Execute("INSERT INTO Investment (StockSymbol, LastPrice) VALUES ('ACME', 7.25)");
        books_.Execute("INSERT INTO Investment (StockSymbol, LastPrice) VALUES ('BOLT', 12.50)");
        books_.http.answer = "\"ACME\",12.50,\"3/3/2006\",\"4:00pm\",+0.25,\"+2.04%\"";
        *books_.http.answer += ",12.30,12.60,12.20,12.49,12.51,1234567\r\n";
        books_.window.Settle();
    }
    void Update()
    {
        books_.window.menus.Find("mnuT_UpdateQuotes")->Press();
        books_.window.Settle();
    }

    Books books_;
};

TEST_F(QuoteResultTest, TheSecondPanelCountsTheChangedPrices)
{
    Update();
    EXPECT_EQ(books_.window.notices.Text(), "1 of 2 prices changed (Shift+F5 shows them)");
    EXPECT_FALSE(books_.window.notices.Warns());

    Update();
    EXPECT_EQ(books_.window.notices.Text(), "None of 2 prices changed");
}

TEST_F(QuoteResultTest, TheNoticeGoesWithTheNextChange)
{
    Update();

    books_.window.menus.Find("mnuY_Undo")->Press();
    books_.window.Settle();

    EXPECT_EQ(books_.window.notices.Text(), "");
    EXPECT_EQ(books_.Rows("SELECT LastPrice FROM Investment"),
              (std::vector<std::string>{"7.25", "12.5"}));
}

TEST_F(QuoteResultTest, TheChangedPricesAreListed)
{
    Update();
    std::vector<std::vector<std::string>> rows;
    books_.modal.steps.push_back([&](Form& form) {
        EXPECT_EQ(form.Caption(), "Changed Prices");
        EXPECT_EQ(dynamic_cast<Label&>(*form.Find("lblPrices")).Caption(),
                  "1 of 2 prices changed.");
        for (const RowList::Line& line : dynamic_cast<RowList&>(*form.Find("lstPrices")).Lines())
            rows.push_back(line.row.cells);
        form.DefaultButton()->Press();
    });

    books_.window.Quotes().Show();

    EXPECT_EQ(rows, (std::vector<std::vector<std::string>>{{"ACME", "7.25", "12.50", "+5.25"}}));
}

TEST_F(QuoteResultTest, WithoutAnUpdateTheWindowSaysSo)
{
    books_.window.Quotes().Show();

    ASSERT_EQ(books_.messages.boxes.size(), 1U);
    EXPECT_EQ(books_.messages.boxes[0].text,
              "No prices were updated yet. Please choose Tools|Update Quotes.");
}

}  // namespace
}  // namespace clb
