#include "desktop/window/MenuBinder.h"

#include "desktop/input/UserEvents.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

QKeySequence ShortcutOf(const std::string& item)
{
    if (item == "mnuF_Import")
        return Qt::CTRL | Qt::Key_I;
    if (item == "mnuF_Export")
        return Qt::CTRL | Qt::Key_E;
    if (item == "mnuF_Print")
        return QKeySequence::Print;
    if (item == "mnuF_Exit")
        return Qt::CTRL | Qt::Key_Q;
    if (item == "mnuE_New")
        return QKeySequence::New;
    if (item == "mnuE_Delete")
        return QKeySequence::Delete;
    if (item == "mnuH_HelpTopics")
        return Qt::Key_F1;
    return {};
}

}  // namespace

MenuBinder::MenuBinder(MenuBar& menus, QMenuBar& bar, UserEvents& events, const Command& press)
{
    for (Menu& menu : menus.Menus()) {
        QMenu* drawn = bar.addMenu(ToQString(menu.Caption()));
        drawn->setObjectName(ToQString(menu.Name()));
        for (MenuItem& item : menu.Items()) {
            if (item.Separator()) {
                drawn->addSeparator();
                continue;
            }
            QAction* action = drawn->addAction(ToQString(item.Caption()));
            action->setObjectName(ToQString(item.Name()));
            action->setEnabled(item.Enabled());
            action->setIcon(icons::MenuItem(item.Name()));
            action->setShortcut(ShortcutOf(item.Name()));
            QObject::connect(action, &QAction::triggered, &bar,
                             [&item, &events, press] { events.RunOnRow([&] { press(item); }); });
            item.Changed().connect(
                sigc::track_obj([action, &item] { action->setEnabled(item.Enabled()); }, *this));
        }
    }
}

}  // namespace clb
