// The window that the next dialog belongs to.
#pragma once

class QWidget;

namespace clb {

/// The window that the next dialog opens above: the topmost dialog, else the main window. Returns
/// nullptr if there is none yet.
QWidget* DialogParent();

}  // namespace clb
