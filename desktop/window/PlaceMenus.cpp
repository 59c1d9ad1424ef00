#include "desktop/window/PlaceMenus.h"

#include <QAction>
#include <QMenuBar>

#include "app/frmController.h"
#include "data/IShownState.h"
#include "views/MenuNames.h"

namespace clb {

namespace {

void AddLines(QMenu& menu, const std::vector<PlaceMenus::Line>& lines)
{
    for (const PlaceMenus::Line& line : lines) {
        QAction* action = menu.addAction(line.caption);
        action->setShortcut(line.key);
        // The key itself belongs to the window; here it is only named.
        action->setShortcutContext(Qt::WidgetShortcut);
        action->setShortcutVisibleInContextMenu(true);
        action->setEnabled(line.enabled);
        QObject::connect(action, &QAction::triggered, &menu, line.run);
    }
}

}  // namespace

void PlaceMenus::Add(QMenu& menu, std::initializer_list<const char*> commands) const
{
    menu.addSeparator();
    for (const char* name : commands)
        if (auto* action = bar_.findChild<QAction*>(QLatin1String(name))) {
            action->setShortcutVisibleInContextMenu(true);
            menu.addAction(action);
        }
}

void PlaceMenus::FillForRow(QMenu& menu, const std::vector<Line>& first) const
{
    const ViewDefinition& view = controller_.View().Definition();
    AddLines(menu, first);
    if (controller_.menus.Find(command_name::kNew)->Enabled())
        Add(menu, {command_name::kNew, command_name::kDelete});
    else
        Add(menu, {command_name::kDelete});
    if (view.transactions)
        Add(menu, {command_name::kMovePrevious, command_name::kMoveNext, command_name::kSplit});
    if (view.view == vwBudget)
        Add(menu, {command_name::kCopy});
    Add(menu, {command_name::kUndo, command_name::kRedo});
}

void PlaceMenus::FillForNode(QMenu& menu, const std::vector<Line>& first) const
{
    const ViewDefinition& view = controller_.View().Definition();
    AddLines(menu, first);
    Add(menu, {command_name::kNew});
    if (view.view == vwBudget)
        Add(menu, {command_name::kCopy});
    Add(menu, {command_name::kImport, command_name::kExport});
    if (view.view == vwInvestment)
        Add(menu, {command_name::kUpdateQuotes});
    Add(menu, {command_name::kUndo, command_name::kRedo});
}

}  // namespace clb
