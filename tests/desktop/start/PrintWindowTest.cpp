#include <gtest/gtest.h>

#include <QProcess>
#include <QString>

#include "desktop/start/PrintWindow.h"
#include "grid/GridHtml.h"
#include "tests/support/GridFixture.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

class PrintWindowTest : public testing::Test {
protected:
    /// Prints the grid and reads the text of one of its pages, counted from 1.
    QString PageOf(GridComponent& grid, int page)
    {
        folder_.Write("print.html", GridHtml(grid, {"Shop", "March 2006", "Sum:", {}}));
        EXPECT_EQ(PrintDocument(folder_.Path("print.html"), folder_.Path("paper.pdf")), 0);
        const QString number = QString::number(page);
        QProcess reader;
        reader.start(
            QStringLiteral("pdftotext"),
            {QStringLiteral("-layout"), QStringLiteral("-f"), number, QStringLiteral("-l"), number,
             QString::fromStdString(folder_.Path("paper.pdf")), QStringLiteral("-")});
        EXPECT_TRUE(reader.waitForFinished());
        return QString::fromUtf8(reader.readAllStandardOutput());
    }

    TempFolder folder_;
    IsoDateForm dates_;
};

TEST_F(PrintWindowTest, ThePaperShowsTitleCaptionsAndRows)
{
    GridComponent grid("Grid", dates_);
    FillShop(grid.Array());

    const QString page = PageOf(grid, 1);

    for (const char* text : {"Shop", "March 2006", "Price", "Apples", "Cheese", "7.00"})
        EXPECT_TRUE(page.contains(QLatin1String(text))) << text << " in\n" << page.toStdString();
    EXPECT_LT(page.indexOf(QStringLiteral("Apples")), page.indexOf(QStringLiteral("Cheese")));
}

TEST_F(PrintWindowTest, TheCaptionsAreOnEveryPage)
{
    GridComponent grid("Grid", dates_);
    FillShop(grid.Array());
    for (int row = 0; row < 200; ++row)
        grid.Array().Add({row, std::string("Pear"), Money::FromUnits(row)});
    grid.RefetchRows();

    const QString second = PageOf(grid, 2);

    EXPECT_TRUE(second.contains(QStringLiteral("Price"))) << second.toStdString();
    EXPECT_TRUE(second.contains(QStringLiteral("Pear")));
}

TEST_F(PrintWindowTest, AFileThatCannotBeReadOrWrittenIsAnError)
{
    EXPECT_EQ(PrintDocument(folder_.Path("missing.html"), folder_.Path("paper.pdf")), 1);

    folder_.Write("print.html", "<p>text</p>");
    EXPECT_EQ(PrintDocument(folder_.Path("print.html"), folder_.Path("no/such/folder.pdf")), 1);
}

}  // namespace
}  // namespace clb
