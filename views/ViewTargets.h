// The controls of the main window that a view sets.
#pragma once
#include <string>

#include "controls/Menus.h"
#include "controls/Form.h"
#include "controls/Inputs.h"
#include "controls/Tree.h"
#include "grid/CVGrid.h"
#include "ports/IMessageBox.h"

namespace clb {

/// All borrowed; they outlive the view.
struct ViewTargets {
    Form& window;
    CVGrid& grid;
    Tree& tree;
    Label& lblTotal;
    TextBox& txtTotal;
    TextBox& txtTotal2;
    ListBox& cmbPeriod;
    TextBox& txtYear;
    MenuBar& menus;
    Toolbar& toolbar;
    StatusBar& statusBar;
    IMessageBox& messages;
    std::string title;  ///< of message boxes
};

}  // namespace clb
