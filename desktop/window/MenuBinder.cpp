#include "desktop/window/MenuBinder.h"

#include "app/WindowCommands.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

void Dress(QAction& action, const std::string& item)
{
    const WindowCommand* const command = FindCommand(item);
    if (!command)
        return;
    action.setIcon(icons::Command(command->icon));
    action.setShortcuts(
        QKeySequence::listFromString(QLatin1String(command->key), QKeySequence::PortableText));
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
            Dress(*action, item.Name());
            QObject::connect(action, &QAction::triggered, &bar,
                             [&item, &events, press] { events.RunOnRow([&] { press(item); }); });
            item.Changed().connect(sigc::track_obj(
                [action, &item] {
                    action->setEnabled(item.Enabled());
                    action->setText(ToQString(item.Caption()));
                },
                *this));
        }
    }
}

}  // namespace clb
