// The dialog that asks what a statement leaves open, by keys.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <functional>

#include "app/frmImported.h"
#include "app/frmStatement.h"
#include "desktop/forms/FormDialog.h"
#include "desktop/forms/RowListView.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"
#include "desktop/ports/QtModalHost.h"
#include "statements/csv/CsvReader.h"
#include "tests/support/FakePorts.h"

namespace clb {
namespace {

constexpr const char* kOpenDates =
    "Date,Text,Amount\n03/04/2026,Shop,-1.00\n05/04/2026,Bar,-2.00\n";
constexpr const char* kOpenColumns = "2026-02-13,a,1.00,5.00\n2026-02-14,b,2.00,9.00\n";

class StatementDrawingTest : public testing::Test {
protected:
    std::optional<StatementAnswers> Ask(const std::string& text,
                                        const std::function<void(FormDialog&)>& work)
    {
        const auto reader = ReadCsv(text);
        frmStatement dialog("march.csv", *reader, reader->Open({}), {});
        QTimer::singleShot(0, [&] { work(Dialog()); });
        return dialog.ShowDialog(host_);
    }
    static FormDialog& Dialog()
    {
        return dynamic_cast<FormDialog&>(*QApplication::activeModalWidget());
    }
    static QComboBox& List(const FormDialog& dialog, const char* name)
    {
        return dynamic_cast<QComboBox&>(*dialog.WidgetOf(name));
    }
    /// What a screen reader reads before the widget.
    static std::string LabelOf(QWidget& widget)
    {
        QAccessibleInterface* const read = QAccessible::queryAccessibleInterface(&widget);
        const auto labels = read->relations(QAccessible::Label);
        return labels.isEmpty() ? "" : ToUtf8(labels.front().first->text(QAccessible::Name));
    }

    FakeMessageBox messages_;
    UserEvents events_{messages_};
    QtModalHost host_{events_};
};

TEST_F(StatementDrawingTest, KeysChooseAndEnterImports)
{
    const auto answers = Ask(kOpenDates, [](FormDialog& dialog) {
        QComboBox& orders = List(dialog, "cmbDateOrder");
        const auto& rows = dynamic_cast<RowListView&>(*dialog.WidgetOf("lstRows"));
        EXPECT_EQ(ToUtf8(dialog.windowTitle()), "Import march.csv");
        EXPECT_EQ(dialog.focusWidget(), &orders);
        QTest::keyClick(&orders, Qt::Key_Down);
        EXPECT_EQ(rows.model()->index(0, 1).data().toString(), "4 Mar 2026");
        QTest::keyClick(&orders, Qt::Key_Return);
    });

    ASSERT_TRUE(answers);
    EXPECT_EQ(answers->dateOrder, DateText::Order::MonthDayYear);
}

TEST_F(StatementDrawingTest, EscapeImportsNothing)
{
    EXPECT_FALSE(Ask(kOpenDates, [](FormDialog& dialog) {
        QTest::keyClick(&List(dialog, "cmbDateOrder"), Qt::Key_Escape);
    }));
}

TEST_F(StatementDrawingTest, ListsHaveNamesAndOnlyThoseWithItemsAreShown)
{
    Ask(kOpenColumns, [](FormDialog& dialog) {
        EXPECT_EQ(LabelOf(List(dialog, "cmbDate")), "Date:");
        EXPECT_EQ(LabelOf(List(dialog, "cmbSign")), "A positive amount:");
        EXPECT_EQ(ToUtf8(dialog.WidgetOf("lstRows")->accessibleName()), "The first rows");
        EXPECT_FALSE(List(dialog, "cmbDateOrder").isVisible());
        EXPECT_FALSE(dialog.WidgetOf("lblDateOrder")->isVisible());
        EXPECT_TRUE(List(dialog, "cmbSign").isVisible());
        QTest::keyClick(&List(dialog, "cmbIn"), Qt::Key_End);
        EXPECT_EQ(List(dialog, "cmbAmount").currentIndex(), 0);
        EXPECT_FALSE(List(dialog, "cmbSign").isVisible());
        QTest::keyClick(&List(dialog, "cmbIn"), Qt::Key_Escape);
    });
}

TEST_F(StatementDrawingTest, TheResultListsWhatWasLeftOut)
{
    ImportSummary summary;
    ImportedStatement statement{.source = "march.csv"};
    ImportedAccount account;
    account.name = "Checking";
    account.added = 2;
    statement.accounts.push_back(account);
    statement.leftOut.push_back({7, LeftOutReason::Pending, "Shop", 1});
    summary.Add(statement);
    QTimer::singleShot(0, [] {
        const auto& list = dynamic_cast<RowListView&>(*Dialog().WidgetOf("lstLeftOut"));
        EXPECT_EQ(Dialog().focusWidget(), &list);
        EXPECT_EQ(list.model()->index(1, 0).data().toString(), "7");
        EXPECT_EQ(list.model()->index(1, 2).data().toString(), "Shop");
        QTest::keyClick(&Dialog(), Qt::Key_Escape);
    });

    frmImported(summary).ShowDialog(host_);
}

}  // namespace
}  // namespace clb
