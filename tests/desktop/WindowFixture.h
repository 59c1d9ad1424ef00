// A fixture with the window over the books of a small household.
#pragma once
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>
#include <stdexcept>
#include <string>

#include "desktop/forms/ListBinder.h"
#include "desktop/grid/GridView.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"
#include "desktop/window/MainWindow.h"
#include "desktop/window/SplitHandle.h"
#include "desktop/window/ToolbarBinder.h"
#include "desktop/window/TreeBinder.h"
#include "desktop/window/YearBox.h"
#include "tests/support/Books.h"

namespace clb {

/// Finds a part of the window by its object name.
template <class Part>
Part& Find(const QWidget& window, const char* name)
{
    auto* part = dynamic_cast<Part*>(window.findChild<QWidget*>(QString::fromLatin1(name)));
    if (!part)
        throw std::runtime_error(std::string("The window has no ") + name);
    return *part;
}

inline TreeBinder& TreeWidget(const QWidget& window)
{
    return Find<TreeBinder>(window, "TreeView");
}
inline GridView& GridWidget(const QWidget& window)
{
    return Find<GridView>(window, "Grid");
}
inline ListBinder& MonthWidget(const QWidget& window)
{
    return Find<ListBinder>(window, "cmbPeriod");
}
inline YearBox& YearWidget(const QWidget& window)
{
    return Find<YearBox>(window, "txtYear");
}
inline ToolbarBinder& ToolbarWidget(const QWidget& window)
{
    return Find<ToolbarBinder>(window, "Toolbar");
}
inline SplitHandle& BorderWidget(const QWidget& window)
{
    return Find<SplitHandle>(window, "SplitHandle");
}
inline QLineEdit* FirstTotal(const QWidget& window)
{
    return &Find<QLineEdit>(window, "txtTotal");
}
inline QLineEdit* SecondTotal(const QWidget& window)
{
    return &Find<QLineEdit>(window, "txtTotal2");
}
inline QLabel* TotalsCaption(const QWidget& window)
{
    return &Find<QLabel>(window, "lblTotal");
}

/// The window over the books of a small household: the accounts Checking (bank), Purse (cash) and
/// Car (loan), and four transactions in Checking in March 2006. The net worth is shown.
class WindowTest : public testing::Test {
protected:
    WindowTest() : events_(books_.messages), window_(Fill(books_), events_)
    {
        events_.Attach([this] { Settle(); }, [this] { window_.Sync(); });
        window_.show();
        QTest::qWait(1);
    }

    frmController& Model() { return books_.window; }
    GridComponent& Grid() { return books_.window.Grid; }

    /// Presses the left button on the text of a node.
    void ClickNode(const std::string& text)
    {
        for (std::int32_t node = 1; node <= Model().TreeView.Count(); ++node)
            if (Model().TreeView.Node(node).text == text)
                ClickAt(*TreeWidget(window_).viewport(),
                        TreeWidget(window_).visualItemRect(TreeWidget(window_).ItemOf(node)));
    }
    void ClickCell(std::size_t row, std::int32_t column)
    {
        ClickAt(*GridWidget(window_).viewport(),
                GridWidget(window_).Layout().CellRect(row, column));
    }
    static void ClickAt(QWidget& widget, const QRect& place)
    {
        QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, place.center());
        QTest::qWait(1);
    }
    static void Key(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QTest::keyClick(&widget, key, held);
        QTest::qWait(1);
    }
    QAction* MenuAction(const std::string& item)
    {
        return window_.menuBar()->findChild<QAction*>(ToQString(item)) != nullptr
                   ? window_.menuBar()->findChild<QAction*>(ToQString(item))
                   : window_.findChild<QAction*>(ToQString(item));
    }

    Books books_;
    UserEvents events_;
    MainWindow window_;

private:
    static frmController& Fill(Books& books)
    {
        books.AddAccount("C1", "Bank", "Checking");
        books.AddAccount("P1", "Cash", "Purse");
        books.AddAccount("L1", "Loan", "Car");
        for (const char* day : {"01", "02", "03", "04"})
            books.Execute(
                std::string("INSERT INTO Trans (AccountID, PostDate, PayeeName, Amount, "
                            "[Year], Period, Category, [Sequence]) VALUES ('C1', #2006-03-") +
                day + "#, 'Baker " + day + "', -4.5, 2006, 3, '(none)', " + (day + 1) + ")");
        books.window.View().BuildTree();
        books.window.View().Refresh();
        return books.window;
    }
    void Settle()
    {
        if (events_.Nested())
            Model().SettleDialog();
        else if (Model().Loaded())
            Model().Settle();
    }
};

}  // namespace clb
