// How large the grid is drawn.
#pragma once
#include <QObject>

class QWidget;

namespace clb {

/// Draws a widget's text at a part of its ordinary size. Zooming never changes what is shown, only
/// how large it is.
class GridZoom : public QObject {
public:
    static constexpr int kLeast = 50;
    static constexpr int kOrdinary = 100;
    static constexpr int kMost = 300;

    /// The widget takes the font of its parent, which it has. The wheel with Control over its
    /// viewport zooms it, the middle button toggles. Both are borrowed.
    GridZoom(QWidget& zoomed, QWidget& viewport);

    /// In percent of the ordinary size.
    [[nodiscard]] int Percent() const { return percent_; }
    /// A size out of range becomes the nearest that is in it.
    void Percent(int percent);
    /// Makes the text larger (positive) or smaller by so many steps.
    void Step(int steps);
    /// Changes between the ordinary size and the one before it.
    void Toggle();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Turn(int angle);

    QWidget& zoomed_;
    int percent_ = kOrdinary;
    int other_ = 150;  // that Toggle goes to from the ordinary size
    int turned_ = 0;
};

}  // namespace clb
