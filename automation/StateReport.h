// Describes what the controls show, for replies.
#pragma once
#include "app/frmController.h"
#include "json/ValueJson.h"

namespace clb {

/// The main window: caption, menus, toolbar, totals, month, and the view's state.
[[nodiscard]] Json DescribeWindow(frmController& controller);
/// The tree's nodes in the order of their index.
[[nodiscard]] Json DescribeTree(const Tree& tree);
/// The grid's columns, its rows as displayed, and its current cell.
[[nodiscard]] Json DescribeGrid(CVGrid& grid);
/// The places of the controls that the window's layout sets, by name.
[[nodiscard]] Json DescribeLayout(const frmController& controller);

}  // namespace clb
