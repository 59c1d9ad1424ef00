#pragma once

class QWidget;

namespace clb {

/// The window above which the next dialog stands: the foremost dialog, else the main window;
/// nullptr before there is one.
QWidget* DialogParent();

}  // namespace clb
