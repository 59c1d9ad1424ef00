#pragma once
#include "app/frmController.h"
#include "json/ValueJson.h"

namespace clb {

// What the controls show at this moment, as the bodies of replies.

/// The main window: caption, menus, toolbar, totals, month, and the view's state.
Json DescribeWindow(frmController& controller);
/// The tree's nodes in the order of their index.
Json DescribeTree(const Tree& tree);
/// Columns, rows as displayed, current cell.
Json DescribeGrid(CVGrid& grid);
/// Places of the controls that the window's layout sets, by name.
Json DescribeLayout(const frmController& controller);

}  // namespace clb
