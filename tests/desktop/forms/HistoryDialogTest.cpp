// The dialog "History" and the table of texts in it, by mouse and keys.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

#include "app/frmHistory.h"
#include "desktop/forms/FormDialog.h"
#include "desktop/forms/RowListView.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"
#include "desktop/ports/QtModalHost.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

class RowListViewTest : public testing::Test {
protected:
    RowListViewTest() : events_(messages_), list_("lstSteps", {"Time", "What", "Rows"}, {2})
    {
        list_.Fill({{"Today"},
                    {"", {{"09:05", "Delete Record", "12"}, true}},
                    {"", {{"09:01", "Import", "3"}, false}},
                    {"Yesterday"},
                    {"", {{"23:59", "Edit Budget Line", "1"}, false}}});
        view_ = std::make_unique<RowListView>(list_, events_);
        view_->Stretch({1});
        view_->resize(500, 300);
        view_->show();
        list_.Choose(2);
    }
    void Press(Qt::Key key) { QTest::keyClick(view_.get(), key); }

    FakeMessageBox messages_;
    UserEvents events_;
    RowList list_;
    std::unique_ptr<RowListView> view_;
};

TEST_F(RowListViewTest, TheArrowsPassOverHeadings)
{
    Press(Qt::Key_Down);
    EXPECT_EQ(list_.Chosen(), 3U);
    Press(Qt::Key_Down);
    EXPECT_EQ(list_.Chosen(), 5U);
    Press(Qt::Key_Home);
    EXPECT_EQ(list_.Chosen(), 2U);
    Press(Qt::Key_Up);
    EXPECT_EQ(list_.Chosen(), 2U);
    Press(Qt::Key_End);
    EXPECT_EQ(list_.Chosen(), 5U);
    Press(Qt::Key_PageUp);
    EXPECT_EQ(list_.Chosen(), 2U);
}

TEST_F(RowListViewTest, TypedLettersFindACommand)
{
    QTest::keyClicks(view_.get(), QStringLiteral("edit"));
    EXPECT_EQ(list_.Chosen(), 5U);
}

TEST_F(RowListViewTest, AClickChoosesARowButNoHeading)
{
    const auto click = [this](int line) {
        const QModelIndex index = view_->model()->index(line - 1, 1);
        QTest::mouseClick(view_->viewport(), Qt::LeftButton, Qt::NoModifier,
                          view_->visualRect(index).center());
    };
    click(5);
    EXPECT_EQ(list_.Chosen(), 5U);
    click(4);
    EXPECT_EQ(list_.Chosen(), 5U);
    EXPECT_TRUE(view_->selectionModel()->isRowSelected(4, QModelIndex()));
}

TEST_F(RowListViewTest, EnterAndADoubleClickActivateTheRow)
{
    std::size_t activated = 0;
    list_.Activated().connect([&] { activated += list_.Chosen(); });
    Press(Qt::Key_Return);
    EXPECT_EQ(activated, 2U);
    const QPoint place = view_->visualRect(view_->model()->index(4, 0)).center();
    QTest::mouseClick(view_->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(view_->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(activated, 7U);
}

TEST_F(RowListViewTest, TheViewFollowsTheList)
{
    list_.Choose(5);
    EXPECT_EQ(view_->currentIndex().row(), 4);
    list_.Fill({{"", {{"10:00", "Import", "1"}, false}}});
    EXPECT_EQ(view_->model()->rowCount(), 1);
    EXPECT_FALSE(view_->currentIndex().isValid());
    EXPECT_EQ(list_.Chosen(), 0U);
}

TEST_F(RowListViewTest, NumbersStandRightAndUndoneStepsAreFaded)
{
    const auto data = [this](int line, int column, int role) {
        return view_->model()->index(line - 1, column).data(role);
    };
    EXPECT_TRUE(data(3, 2, Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    EXPECT_FALSE(data(3, 1, Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    EXPECT_TRUE(data(2, 1, Qt::ForegroundRole).isValid());
    EXPECT_FALSE(data(3, 1, Qt::ForegroundRole).isValid());
}

TEST_F(RowListViewTest, ScreenReadersReadCellsAndHeadings)
{
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(view_.get());
    ASSERT_TRUE(table != nullptr && table->tableInterface() != nullptr);
    const auto text = [table](int line, int column, QAccessible::Text what) {
        return ToUtf8(table->tableInterface()->cellAt(line - 1, column)->text(what));
    };
    EXPECT_EQ(text(1, 0, QAccessible::Name), "Today");
    EXPECT_EQ(text(2, 1, QAccessible::Name), "Delete Record");
    EXPECT_EQ(text(5, 2, QAccessible::Name), "1");
    EXPECT_EQ(text(5, 1, QAccessible::Description), "Yesterday") << "the keys pass over headings";
    EXPECT_EQ(ToUtf8(table->tableInterface()->columnDescription(1)), "What");
}

TEST_F(RowListViewTest, ManyLinesAreThereAtOnce)
{
    std::vector<RowList::Line> lines;
    lines.reserve(200000);
    for (int line = 0; line < 200000; ++line)
        lines.push_back(line % 50 == 0 ? RowList::Line{"Day"}
                                       : RowList::Line{"", {{"10:00", "Edit", "1"}, false}});
    list_.Fill(std::move(lines));
    list_.Choose(199999);
    QTest::qWait(1);
    EXPECT_EQ(view_->currentIndex().row(), 199998);
    Press(Qt::Key_Home);
    EXPECT_EQ(list_.Chosen(), 2U);
}

class HistoryWindowTest : public testing::Test {
protected:
    HistoryWindowTest() : events_(books_.messages), host_(events_)
    {
        events_.Attach([this] { books_.window.Settle(); }, [] {});
        books_.AddAccount("C1", "Bank", "Checking");
        for (const char* name : {"Main", "Second", "Third"})
            Command(name);
    }
    void Command(const std::string& name)
    {
        books_.window.Steps().Begin("Call it " + name);
        books_.Execute("UPDATE Account SET Description = '" + name + "'");
        books_.window.Settle();
    }
    void Show(const std::function<void(FormDialog&)>& work)
    {
        frmHistory form(books_.window.Steps(), host_, books_.dates, books_.clock.now,
                        [this](bool undo, std::int64_t steps) {
                            undo ? books_.window.Steps().Undo(steps)
                                 : books_.window.Steps().Redo(steps);
                        });
        QTimer::singleShot(0, [&] {
            auto& dialog = *dynamic_cast<FormDialog*>(QApplication::activeModalWidget());
            QApplication::setActiveWindow(&dialog);
            QTest::qWait(1);
            work(dialog);
            if (dialog.isVisible())
                dialog.reject();
        });
        form.ShowDialog();
    }
    static QWidget& Part(FormDialog& dialog, const char* name) { return *dialog.WidgetOf(name); }
    std::string Name() { return books_.One("SELECT Description FROM Account"); }

    Books books_;
    UserEvents events_;
    QtModalHost host_;
};

TEST_F(HistoryWindowTest, IsUsedByKeysAlone)
{
    Show([this](FormDialog& dialog) {
        QWidget& steps = Part(dialog, "lstSteps");
        EXPECT_TRUE(steps.hasFocus());
        QTest::keyClick(&steps, Qt::Key_Down);
        QTest::keyClick(&dialog, Qt::Key_G, Qt::AltModifier);
        // A button that is pressed by its letter stays down for a moment.
        EXPECT_TRUE(QTest::qWaitFor([this] { return Name() == "Main"; }));
        EXPECT_TRUE(steps.hasFocus());
        QTest::keyClick(&steps, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
}

TEST_F(HistoryWindowTest, TabGoesFromTheFilterOverTheListsToTheButtons)
{
    Show([](FormDialog& dialog) {
        Part(dialog, "txtFilter").setFocus(Qt::TabFocusReason);
        for (const char* next : {"lstSteps", "lstChanges", "btnBack", "btnClose"}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            EXPECT_TRUE(Part(dialog, next).hasFocus()) << next;
        }
    });
}

TEST_F(HistoryWindowTest, CtrlZInTheFilterTakesBackWhatWasTyped)
{
    Show([this](FormDialog& dialog) {
        auto& filter = dynamic_cast<QLineEdit&>(Part(dialog, "txtFilter"));
        auto& steps = dynamic_cast<RowListView&>(Part(dialog, "lstSteps"));
        QTest::keyClicks(&filter, QStringLiteral("third"));
        EXPECT_EQ(steps.model()->rowCount(), 2);
        QTest::keyClick(&filter, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(filter.text(), QString());
        EXPECT_EQ(steps.model()->rowCount(), 5);
        EXPECT_EQ(Name(), "Third");
        QTest::keyClick(&filter, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
}

TEST_F(HistoryWindowTest, IsUsableOnASmallScreen)
{
    Show([](FormDialog& dialog) {
        dialog.resize(780, 560);
        QTest::qWait(1);
        EXPECT_LE(dialog.width(), 780);
        EXPECT_LE(dialog.height(), 560);
        for (const char* part : {"txtFilter", "lstSteps", "lstChanges", "lblTakes", "btnBack",
                                 "btnForward", "btnClose"}) {
            const QWidget& widget = Part(dialog, part);
            EXPECT_TRUE(
                dialog.rect().contains(QRect(widget.mapTo(&dialog, QPoint()), widget.size())))
                << part;
        }
        const auto& steps = dynamic_cast<RowListView&>(Part(dialog, "lstSteps"));
        EXPECT_LE(steps.header()->length(), steps.viewport()->width());
        EXPECT_GT(steps.header()->sectionSize(1), steps.fontMetrics().averageCharWidth() * 12);
    });
}

TEST_F(HistoryWindowTest, AClickInTheListGivesItTheFocus)
{
    Show([](FormDialog& dialog) {
        auto& changes = dynamic_cast<RowListView&>(Part(dialog, "lstChanges"));
        QTest::mouseClick(changes.viewport(), Qt::LeftButton, Qt::NoModifier,
                          changes.visualRect(changes.model()->index(1, 0)).center());
        EXPECT_TRUE(changes.hasFocus());
    });
}

}  // namespace
}  // namespace clb
