// Handles keys and the wheel in the main window: shortcuts, the order of the focus, the steps of
// the month.
#include <QKeyEvent>
#include <QShortcut>
#include <QToolButton>
#include <QWheelEvent>

#include "app/WindowCommands.h"
#include "desktop/forms/ListBinder.h"
#include "desktop/grid/GridView.h"
#include "desktop/input/UserEvents.h"
#include "desktop/window/MainWindow.h"
#include "desktop/window/ResultBarView.h"
#include "desktop/window/SplitHandle.h"
#include "desktop/window/ToolbarBinder.h"
#include "desktop/window/TreeBinder.h"
#include "desktop/window/WindowWays.h"
#include "desktop/window/YearBox.h"
#include "views/MenuNames.h"

namespace clb {

void MainWindow::BindKeys()
{
    // These keys show or change something that depends on the row in edit, so that row is saved
    // first.
    const auto bind = [this](const QKeySequence& key, std::function<void()> action) {
        auto* shortcut = new QShortcut(key, this);
        connect(shortcut, &QShortcut::activated, this, [this, action = std::move(action)] {
            if (GridAgrees())
                events_.RunOnRow(action);
        });
    };
    bind(Qt::CTRL | Qt::Key_R, [this] { controller_.View().Refresh(); });
    bind(Qt::CTRL | Qt::Key_PageUp, [this] { controller_.StepMonth(-1); });
    bind(Qt::CTRL | Qt::Key_PageDown, [this] { controller_.StepMonth(1); });
    connect(new QShortcut(Qt::Key_F8, this), &QShortcut::activated, border_,
            &SplitHandle::TakeFocus);
}

void MainWindow::BindWays()
{
    ways_ = std::make_unique<WindowWays>(
        WindowWays::Parts{*this, controller_, events_, *focus_, *tree_, *grid_, *month_, *result_,
                          [this] { return GridAgrees(); }, [this] { NewRecord(); }});
}

void MainWindow::BindFocus()
{
    focus_ = std::make_unique<FocusBinder>(controller_.window, events_);
    focus_->Add(controller_.TreeView, *tree_);
    focus_->Add(controller_.Grid, *grid_);
    focus_->Add(controller_.txtTotal, *totals_->First());
    focus_->Add(controller_.txtTotal2, *totals_->Second());
    focus_->Add(controller_.cmbPeriod, *month_);
    focus_->Add(controller_.txtYear, *year_, {year_->Line()});
    OrderTabs();
}

void MainWindow::OrderTabs()
{
    // The order in which the eye reads: the toolbar, then the tree, the grid and its totals.
    std::vector<QWidget*> stops;
    for (const Toolbar::Button& button : controller_.toolbar.Buttons())
        stops.push_back(toolbar_->ButtonOf(button.key));
    stops.insert(stops.end(), {month_, year_, tree_, grid_, totals_->First(), totals_->Second()});
    for (QToolButton* const button : result_->Stops())
        stops.push_back(button);
    for (std::size_t stop = 1; stop < stops.size(); ++stop)
        setTabOrder(stops[stop - 1], stops[stop]);
}

/// Keys come here if the part of the window that has the focus has no use for them.
void MainWindow::keyPressEvent(QKeyEvent* event)
{
    // While the command is enabled, its menu item takes the key.
    if (QKeySequence(event->keyCombination()) ==
        QKeySequence(QLatin1String(FindCommand(command_name::kNew)->key)))
        NewRecord();
    else if (ways_->ByKey(*event))
        return;
    else if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier &&
             controller_.result.Shown() && !controller_.Grid.Editing())
        events_.Run([this] { controller_.result.Close(); });
    else
        QMainWindow::keyPressEvent(event);
}

bool MainWindow::GridAgrees()
{
    bool agrees = false;
    return events_.Run([&] { agrees = controller_.Grid.MayLoseFocus(); }) && agrees;
}

void MainWindow::NewRecord()
{
    events_.RunOnRow([this] { FindCommand(command_name::kNew)->run(controller_); });
}

void MainWindow::Choose(MenuItem& item)
{
    const WindowCommand* const command = FindCommand(item.Name());
    if (item.Name() == command_name::kExit)
        controller_.Close();  // asks the grid itself
    else if ((command && !command->savesRow) || GridAgrees())
        item.Press();
}

}  // namespace clb
