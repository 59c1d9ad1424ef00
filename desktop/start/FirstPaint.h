// Waits for a window's first paint.
#pragma once
#include <functional>

class QWidget;

namespace clb {

/// Runs the action once, after the window has been painted for the first time.
void AfterFirstPaint(QWidget& window, std::function<void()> action);

}  // namespace clb
