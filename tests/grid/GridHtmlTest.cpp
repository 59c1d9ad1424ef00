#include <gmock/gmock.h>

#include "grid/GridHtml.h"
#include "tests/support/GridFixture.h"

namespace clb {
namespace {

using testing::HasSubstr;
using testing::Not;

class GridHtmlTest : public testing::Test {
protected:
    GridHtmlTest() : grid_("Grid", dates_)
    {
        FillShop(grid_.Array());
        GridColumns& columns = grid_.Columns();
        for (const std::int32_t column : {shop::Key, shop::Day, shop::Open, shop::Weight})
            columns.Item(column).hidden = true;
    }
    std::string Html(const GridPage& page = {}) { return GridHtml(grid_, page); }

    IsoDateForm dates_;
    GridComponent grid_;
};

TEST_F(GridHtmlTest, TheVisibleColumnsAreInDisplayedOrderUnderTheirCaptions)
{
    grid_.Columns().Item(shop::Price).caption = "Price & Tax";
    grid_.Columns().Position(shop::Count, 1);

    EXPECT_THAT(Html(), HasSubstr("<tr><th align=\"right\">Count</th><th align=\"left\">Name</th>"
                                  "<th align=\"right\">Price &amp; Tax</th></tr>"));
}

TEST_F(GridHtmlTest, EveryRowIsPrintedAsShownButTheNewOne)
{
    const std::string html = Html();

    EXPECT_THAT(html, HasSubstr("<tr><td>Apples</td><td align=\"right\">2.00</td>"
                                "<td align=\"right\">5</td></tr>\n"
                                "<tr><td>Bread</td>"));
    EXPECT_THAT(html, HasSubstr("<td align=\"right\">2</td></tr>\n</tbody>"));
}

TEST_F(GridHtmlTest, TextsAreNeverMarkup)
{
    grid_.Array().Save(0, {{1, std::string("<b>\"A&B\"</b>")}});
    grid_.RefetchRows();
    GridPage page;
    page.title = "<Mine>";

    const std::string html = Html(page);

    EXPECT_THAT(html, HasSubstr("<td>&lt;b&gt;&quot;A&amp;B&quot;&lt;/b&gt;</td>"));
    EXPECT_THAT(html, HasSubstr("<title>&lt;Mine&gt;</title>"));
    EXPECT_THAT(html, HasSubstr("<h1>&lt;Mine&gt;</h1>"));
}

TEST_F(GridHtmlTest, NegativeFiguresAreMarkedAsSuch)
{
    grid_.Array().Save(0, {{2, Money::FromUnits(-2)}});
    grid_.RefetchRows();

    EXPECT_THAT(Html(), HasSubstr("<td class=\"negative\" align=\"right\">-2.00</td>"));
}

TEST_F(GridHtmlTest, GroupsHaveTheirHeadingAndFooterAcrossThePage)
{
    grid_.FetchGroupFooterText().connect([](std::int16_t, std::int32_t row, std::string& text) {
        text = "Total of row " + std::to_string(row);
    });
    grid_.Groups().push_back({shop::Count, "GroupingValue & ' (' & TotalChildCount & ')'"});
    grid_.Regroup();

    EXPECT_THAT(Html(), HasSubstr("<tr><td class=\"group\" colspan=\"3\">5 (1)</td></tr>\n"
                                  "<tr><td>Apples</td>"));
    EXPECT_THAT(Html(),
                HasSubstr("<tr><td class=\"footer\" colspan=\"3\">Total of row 3</td></tr>\n"
                          "<tr><td class=\"group\" colspan=\"3\">1 (1)</td></tr>"));
}

TEST_F(GridHtmlTest, FoldedGroupsKeepTheirHeadingOnly)
{
    grid_.Groups().push_back({shop::Count});
    grid_.Regroup();
    grid_.Fold(1, true);

    EXPECT_THAT(Html(), HasSubstr("<td class=\"group\" colspan=\"3\">5</td>"));
    EXPECT_THAT(Html(), Not(HasSubstr("Apples")));
}

TEST_F(GridHtmlTest, TheTotalsAreBelowTheirColumns)
{
    EXPECT_THAT(Html({"Shop", "March 2006", "Sum:", {{shop::Price, "12.00"}, {shop::Count, "8"}}}),
                HasSubstr("<tr><td class=\"total\" align=\"right\" colspan=\"1\">Sum:</td>"
                          "<td class=\"total\" align=\"right\">12.00</td>"
                          "<td class=\"total\" align=\"right\">8</td></tr>"));
    EXPECT_THAT(Html({"Shop", "March 2006", "", {}}),
                HasSubstr("<p class=\"subtitle\">March 2006</p>"));
}

TEST_F(GridHtmlTest, AnEmptyGridIsAPageWithoutRows)
{
    grid_.DataSource(nullptr);

    EXPECT_THAT(Html(), HasSubstr("<tbody>\n</tbody>"));
}

}  // namespace
}  // namespace clb
