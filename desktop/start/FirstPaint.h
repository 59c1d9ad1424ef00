#pragma once
#include <functional>

class QWidget;

namespace clb {

/// Does something once, as soon as the window has been painted for the first time.
void AfterFirstPaint(QWidget& window, std::function<void()> action);

}  // namespace clb
