// The ways about the main window: from part to part, from an account's row to its rows, to a month,
// and the menus of the places.
#include <QMenuBar>
#include <QShortcut>
#include <array>

#include "app/RowAccount.h"
#include "desktop/forms/ListBinder.h"
#include "desktop/grid/GridView.h"
#include "desktop/input/UserEvents.h"
#include "desktop/window/MainWindow.h"
#include "desktop/window/MonthPrompt.h"
#include "desktop/window/PlaceMenus.h"
#include "desktop/window/TreeBinder.h"
#include "desktop/window/YearBox.h"
#include "views/MenuNames.h"

namespace clb {

namespace {

const QKeySequence kOpenAccount(Qt::CTRL | Qt::Key_Return);

}  // namespace

void MainWindow::BindWays()
{
    const auto bind = [this](const QKeySequence& key, std::function<void()> action) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, std::move(action));
    };
    bind(Qt::Key_F6, [this] { GoRound(1); });
    bind(Qt::SHIFT | Qt::Key_F6, [this] { GoRound(-1); });
    bind(Qt::CTRL | Qt::Key_L, [this] { AskMonth(); });
    const auto zoom = [this](int steps) { return [this, steps] { grid_->Zoom().Step(steps); }; };
    bind(Qt::CTRL | Qt::Key_Plus, zoom(1));
    bind(Qt::CTRL | Qt::Key_Equal, zoom(1));
    bind(Qt::CTRL | Qt::Key_Minus, zoom(-1));
    bind(Qt::CTRL | Qt::Key_0, [this] { grid_->Zoom().Percent(GridZoom::kOrdinary); });
    tree_->OnEnter([this] { GoTo(controller_.Grid); });
    tree_->OnMenu([this](const QPoint& place) { ShowNodeMenu(place); });
    grid_->OnMenu([this](const QPoint& place) { ShowRowMenu(place); });
    grid_->OnOpenRow([this] { OpenAccount(); });
}

void MainWindow::GoTo(Control& control)
{
    events_.Run([&] { controller_.window.Focus(control); });
    focus_->Sync();
}

/// F6 goes from part to part: the tree, the grid with its totals, the month with its year.
void MainWindow::GoRound(int steps)
{
    const std::array<Control*, 3> parts = {&controller_.TreeView, &controller_.Grid,
                                           &controller_.cmbPeriod};
    const Control* const focused = controller_.window.Focus();
    int part = 0;
    if (focused == &controller_.cmbPeriod || focused == &controller_.txtYear)
        part = 2;
    else if (focused != &controller_.TreeView)
        part = 1;
    const int count = static_cast<int>(parts.size());
    GoTo(*parts[static_cast<std::size_t>((part + steps + count) % count)]);
}

bool MainWindow::OpenAccount()
{
    if (!HasRowAccount(controller_) || !GridAgrees())
        return false;
    events_.RunOnRow([this] { OpenRowAccount(controller_); });
    focus_->Sync();
    return true;
}

void MainWindow::AskMonth()
{
    if (!GridAgrees())
        return;
    const Ports& ports = controller_.GivenPorts();
    const clsView& view = controller_.View();
    auto* prompt = new MonthPrompt(this, {ports.clock.Now(), {view.Year(), view.Period()}},
                                   ports.dates.Dates(), [this](const Month& month) {
                                       if (GridAgrees())
                                           events_.RunOnRow([&] { controller_.ShowMonth(month); });
                                   });
    prompt->OpenBelow(*month_);
}

void MainWindow::ShowRowMenu(const QPoint& place)
{
    std::vector<PlaceMenus::Line> first;
    const std::size_t row = controller_.Grid.Row();
    const bool heading = row != 0 && controller_.Grid.Rows().Kind(row) == GridRowKind::GroupHeading;
    if (controller_.View().Definition().accounts)
        first.push_back({QStringLiteral("&Open Account"), kOpenAccount, [this] { OpenAccount(); },
                         HasRowAccount(controller_)});
    else if (heading)
        first.push_back({controller_.Grid.Rows().Folded(row) ? QStringLiteral("&Unfold Group")
                                                             : QStringLiteral("&Fold Group"),
                         {},
                         [this] { grid_->Open(); }});
    // On the line for a new row the command is disabled, and the key works all the same.
    if (!controller_.menus.Find(command_name::kNew)->Enabled())
        first.push_back(
            {QStringLiteral("&New Record"), Qt::CTRL | Qt::Key_N, [this] { NewRecord(); }});
    auto* menu = new QMenu(this);
    PlaceMenus(controller_, *menuBar()).FillForRow(*menu, first);
    OpenMenu(*menu, place);
}

void MainWindow::ShowNodeMenu(const QPoint& place)
{
    std::vector<PlaceMenus::Line> first = {
        {QStringLiteral("&Go to Rows"), Qt::Key_Return, [this] { GoTo(controller_.Grid); }}};
    const Tree& tree = controller_.TreeView;
    const std::int32_t node = tree.Selected();
    if (node != 0 && tree.Children(node) > 0)
        first.push_back(
            {tree.Node(node).expanded ? QStringLiteral("&Fold") : QStringLiteral("&Unfold"),
             {},
             [this, node] {
                 QTreeWidgetItem* item = tree_->ItemOf(node);
                 item->setExpanded(!item->isExpanded());
             }});
    auto* menu = new QMenu(this);
    PlaceMenus(controller_, *menuBar()).FillForNode(*menu, first);
    OpenMenu(*menu, place);
}

void MainWindow::OpenMenu(QMenu& menu, const QPoint& place)
{
    menu.setObjectName(QStringLiteral("PlaceMenu"));
    menu.setAttribute(Qt::WA_DeleteOnClose);
    menu.popup(place);
}

int MainWindow::GridZoomPercent() const
{
    return grid_->Zoom().Percent();
}

void MainWindow::GridZoomPercent(int percent)
{
    grid_->Zoom().Percent(percent);
}

}  // namespace clb
