#include "desktop/window/MenuBinder.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>

#include "app/WindowCommands.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

void Dress(QAction& action, const WindowCommand& command)
{
    action.setIcon(icons::MenuLine(command.icon));
    action.setShortcuts(
        QKeySequence::listFromString(QLatin1String(command.key), QKeySequence::PortableText));
}

/// Lets Escape leave the menu bar at once. The toolkit would close the menu and keep the keys in
/// the bar until Escape is pressed again.
class EscapeLeavesBar : public QObject {
public:
    explicit EscapeLeavesBar(QMenuBar& bar) : QObject(&bar), bar_(bar) {}

    bool eventFilter(QObject* /*menu*/, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress &&
            static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
            QMetaObject::invokeMethod(
                &bar_, [this] { Leave(); }, Qt::QueuedConnection);
        return false;
    }

private:
    void Leave()
    {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(&bar_, &escape);
    }

    QMenuBar& bar_;
};

}  // namespace

MenuBinder::MenuBinder(MenuBar& menus, QMenuBar& bar, UserEvents& events, const Command& press)
{
    auto* const leaving = new EscapeLeavesBar(bar);
    for (Menu& menu : menus.Menus()) {
        QMenu* drawn = bar.addMenu(ToQString(menu.Caption()));
        drawn->installEventFilter(leaving);
        drawn->setObjectName(ToQString(menu.Name()));
        for (MenuItem& item : menu.Items()) {
            if (item.Separator()) {
                drawn->addSeparator();
                continue;
            }
            QAction* action = drawn->addAction(ToQString(item.Caption()));
            action->setObjectName(ToQString(item.Name()));
            action->setEnabled(item.Enabled());
            const WindowCommand* const command = FindCommand(item.Name());
            if (command)
                Dress(*action, *command);
            QObject::connect(action, &QAction::triggered, &bar,
                             [&item, &events, press, onRow = command != nullptr && command->onRow] {
                                 const auto work = [&] { press(item); };
                                 onRow ? events.RunOnRow(work) : events.Run(work);
                             });
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
