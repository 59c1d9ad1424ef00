// Draws the menus.
#pragma once
#include <sigc++/trackable.h>

#include <QMenuBar>
#include <functional>
#include <string>

#include "controls/Menus.h"

namespace clb {

class UserEvents;

/// Draws the menus; a chosen line runs its command.
class MenuBinder : public sigc::trackable {
public:
    using Command = std::function<void(MenuItem& item)>;
    /// All are borrowed and outlive the binder. press runs a chosen item.
    MenuBinder(MenuBar& menus, QMenuBar& bar, UserEvents& events, const Command& press);
};

}  // namespace clb
