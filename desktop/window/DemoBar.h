// Marks a window that shows the demonstration.
#pragma once
#include <QToolBar>
#include <functional>

class QLabel;
class QPushButton;

namespace clb {

/// A bar at the top of the window. It says that this is the demonstration, and has a button that
/// closes it. The user cannot hide or move the bar.
class DemoBar : public QToolBar {
public:
    /// close is what the button does.
    DemoBar(std::function<void()> close, QWidget* parent);

    [[nodiscard]] QPushButton& Closing() { return *close_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* text_;
    QPushButton* close_;
};

}  // namespace clb
