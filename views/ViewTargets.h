// The controls of the main window that a view sets.
#pragma once
#include <functional>
#include <string>

#include "controls/Form.h"
#include "controls/Inputs.h"
#include "controls/Tree.h"
#include "grid/CVGrid.h"
#include "ports/IMessageBox.h"
#include "views/Enabled.h"

namespace clb {

/// All are borrowed and outlive the view.
struct ViewTargets {
    Form& window;
    CVGrid& grid;
    Tree& tree;
    Label& lblTotal;
    TextBox& txtTotal;
    TextBox& txtTotal2;
    ListBox& cmbPeriod;
    TextBox& txtYear;
    std::function<void(const EnabledNow&)> enable;  ///< enables the commands that fit
    StatusBar& statusBar;
    IMessageBox& messages;
    std::string title;  ///< of message boxes
    /// Whether a person looks at the window, and the grid shows what helps them only: today and a
    /// running balance.
    bool forPerson = false;
};

}  // namespace clb
