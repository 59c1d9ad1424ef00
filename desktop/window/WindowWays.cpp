#include "desktop/window/WindowWays.h"

#include <QKeyEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QShortcut>
#include <array>

#include "app/RowAccount.h"
#include "app/frmController.h"
#include "desktop/forms/ListBinder.h"
#include "desktop/grid/GridView.h"
#include "desktop/input/FocusBinder.h"
#include "desktop/input/UserEvents.h"
#include "desktop/window/MonthPrompt.h"
#include "desktop/window/PlaceMenus.h"
#include "desktop/window/ResultBarView.h"
#include "desktop/window/TreeBinder.h"
#include "views/MenuNames.h"

namespace clb {

namespace {

constexpr int kBar = 2;  // the part that is a bar with a result

}  // namespace

WindowWays::WindowWays(Parts parts) : parts_(std::move(parts))
{
    BindKeys();
    parts_.tree.OnEnter([this] { GoTo(parts_.controller.Grid); });
    parts_.tree.OnMenu([this](const QPoint& place) { ShowNodeMenu(place); });
    parts_.grid.OnMenu([this](const QPoint& place) { ShowRowMenu(place); });
    parts_.grid.OnOpenRow([this] { OpenAccount(); });
}

void WindowWays::BindKeys()
{
    const auto bind = [this](const QKeySequence& key, std::function<void()> action) {
        QObject::connect(new QShortcut(key, &parts_.window), &QShortcut::activated, &parts_.window,
                         std::move(action));
    };
    bind(Qt::Key_F6, [this] { GoRound(1); });
    bind(Qt::SHIFT | Qt::Key_F6, [this] { GoRound(-1); });
    bind(Qt::CTRL | Qt::Key_L, [this] { AskMonth(); });
    bind(Qt::SHIFT | Qt::Key_F5, [this] {
        if (parts_.gridAgrees())
            parts_.events.Run([this] { parts_.controller.Quotes().Show(); });
    });
    const auto zoom = [this](int steps) {
        return [this, steps] { parts_.grid.Zoom().Step(steps); };
    };
    bind(Qt::CTRL | Qt::Key_Plus, zoom(1));
    bind(Qt::CTRL | Qt::Key_Equal, zoom(1));
    bind(Qt::CTRL | Qt::Key_Minus, zoom(-1));
    bind(Qt::CTRL | Qt::Key_0, [this] { parts_.grid.Zoom().Percent(GridZoom::kOrdinary); });
}

void WindowWays::GoTo(Control& control)
{
    parts_.events.Run([&] { parts_.controller.window.Focus(control); });
    parts_.focus.Sync();
}

/// F6 goes from part to part: the tree, the grid with its totals, the bar with a result if it is
/// shown, the month with its year.
void WindowWays::GoRound(int steps)
{
    const std::array<Control*, 4> parts = {&parts_.controller.TreeView, &parts_.controller.Grid,
                                           nullptr, &parts_.controller.cmbPeriod};
    const int count = static_cast<int>(parts.size());
    int part = (FocusedPart() + steps + count) % count;
    if (part == kBar && !parts_.result.isHidden() && !parts_.gridAgrees())
        return;
    // Saving the row may have closed the bar.
    if (part == kBar && parts_.result.isHidden())
        part += steps;
    if (part == kBar)
        parts_.result.TakeFocus();
    else
        GoTo(*parts.at(static_cast<std::size_t>(part)));
}

int WindowWays::FocusedPart() const
{
    const Control* const focused = parts_.controller.window.Focus();
    if (parts_.result.isAncestorOf(parts_.window.focusWidget()))
        return kBar;
    if (focused == &parts_.controller.cmbPeriod || focused == &parts_.controller.txtYear)
        return 3;
    return focused == &parts_.controller.TreeView ? 0 : 1;
}

bool WindowWays::ByKey(const QKeyEvent& event)
{
    const bool opens = (event.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier &&
                       (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) &&
                       parts_.controller.window.Focus() == &parts_.controller.Grid;
    return opens && OpenAccount();
}

bool WindowWays::OpenAccount()
{
    if (!HasRowAccount(parts_.controller) || !parts_.gridAgrees())
        return false;
    parts_.events.RunOnRow([this] { OpenRowAccount(parts_.controller); });
    parts_.focus.Sync();
    return true;
}

void WindowWays::AskMonth()
{
    if (!parts_.gridAgrees())
        return;
    const Ports& ports = parts_.controller.GivenPorts();
    const clsView& view = parts_.controller.View();
    auto* prompt =
        new MonthPrompt(&parts_.window, {ports.clock.Now(), {view.Year(), view.Period()}},
                        ports.dates.Dates(), [this](const Month& month) {
                            if (parts_.gridAgrees())
                                parts_.events.RunOnRow([&] { parts_.controller.ShowMonth(month); });
                        });
    prompt->OpenBelow(parts_.month);
}

void WindowWays::ShowRowMenu(const QPoint& place)
{
    std::vector<PlaceMenus::Line> first;
    const std::size_t row = parts_.controller.Grid.Row();
    const bool heading =
        row != 0 && parts_.controller.Grid.Rows().Kind(row) == GridRowKind::GroupHeading;
    if (parts_.controller.View().Definition().accounts)
        first.push_back({QStringLiteral("&Open Account"), Qt::CTRL | Qt::Key_Return,
                         [this] { OpenAccount(); }, HasRowAccount(parts_.controller)});
    else if (heading)
        first.push_back({parts_.controller.Grid.Rows().Folded(row) ? QStringLiteral("&Unfold Group")
                                                                   : QStringLiteral("&Fold Group"),
                         {},
                         [this] { parts_.grid.Open(); }});
    // On the line for a new row the command is disabled, and the key works all the same.
    if (!parts_.controller.menus.Find(command_name::kNew)->Enabled())
        first.push_back(
            {QStringLiteral("&New Record"), Qt::CTRL | Qt::Key_N, [this] { parts_.newRecord(); }});
    auto* menu = new QMenu(&parts_.window);
    PlaceMenus(parts_.controller, *parts_.window.menuBar()).FillForRow(*menu, first);
    OpenMenu(*menu, place);
}

void WindowWays::ShowNodeMenu(const QPoint& place)
{
    std::vector<PlaceMenus::Line> first = {
        {QStringLiteral("&Go to Rows"), Qt::Key_Return, [this] { GoTo(parts_.controller.Grid); }}};
    const Tree& tree = parts_.controller.TreeView;
    const std::int32_t node = tree.Selected();
    if (node != 0 && tree.Children(node) > 0)
        first.push_back(
            {tree.Node(node).expanded ? QStringLiteral("&Fold") : QStringLiteral("&Unfold"),
             {},
             [this, node] {
                 QTreeWidgetItem* item = parts_.tree.ItemOf(node);
                 item->setExpanded(!item->isExpanded());
             }});
    auto* menu = new QMenu(&parts_.window);
    PlaceMenus(parts_.controller, *parts_.window.menuBar()).FillForNode(*menu, first);
    OpenMenu(*menu, place);
}

void WindowWays::OpenMenu(QMenu& menu, const QPoint& place)
{
    menu.setObjectName(QStringLiteral("PlaceMenu"));
    menu.setAttribute(Qt::WA_DeleteOnClose);
    menu.popup(place);
}

}  // namespace clb
