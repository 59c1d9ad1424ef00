// The offer to make a book in a folder that has none.
#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "desktop/look/TextConvert.h"
#include "desktop/start/NewBookOffer.h"
#include "platform/ProgramFolder.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

class NewBookOfferTest : public testing::Test {
protected:
    /// Answers the next box with the button of the name.
    static void Answer(const char* button)
    {
        QTimer::singleShot(0, qApp, [button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            box->findChild<QPushButton*>(QLatin1String(button))->click();
        });
    }
    TempFolder folder_;
};

TEST_F(NewBookOfferTest, TheBoxNamesTheFolderAndBothWays)
{
    const auto box = BuildNewBookOffer(folder_.Path());

    EXPECT_TRUE(box->text().contains(ToQString(folder_.Path())));
    EXPECT_EQ(box->defaultButton()->text(), QStringLiteral("&Make a new book here"));
    EXPECT_EQ(box->escapeButton()->text(), QStringLiteral("&Quit"));
}

TEST_F(NewBookOfferTest, ItMakesTheBookAlsoInAFolderThatIsNotThere)
{
    const std::string folder = folder_.Path("money/mine");
    Answer("make");

    EXPECT_TRUE(OfferNewBook(folder));

    EXPECT_TRUE(HoldsDatabase(folder));
}

TEST_F(NewBookOfferTest, QuittingLeavesTheFolderAsItWas)
{
    const std::string folder = folder_.Path("money");
    Answer("quit");

    EXPECT_FALSE(OfferNewBook(folder));

    EXPECT_TRUE(IsUnused(folder));
}

}  // namespace
}  // namespace clb
