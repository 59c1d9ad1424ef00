// The account in the grid's current row.
#pragma once
#include <string>

namespace clb {

class frmController;

/// The tag of the tree's node for the account that is stored in the current row. The shown view
/// lists accounts.
std::string TagOfRowAccount(frmController& window);
/// Whether the current row is a stored account of a view that lists accounts.
bool HasRowAccount(frmController& window);
/// Shows the account in the current row and gives the grid the focus. Returns false if the row is
/// none, or if a control kept the focus.
bool OpenRowAccount(frmController& window);

}  // namespace clb
