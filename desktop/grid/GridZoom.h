// How large the grid is drawn.
#pragma once

class QWidget;

namespace clb {

/// Draws a widget's text at a part of its ordinary size. Zooming never changes what is shown, only
/// how large it is.
class GridZoom {
public:
    static constexpr int kLeast = 50;
    static constexpr int kOrdinary = 100;
    static constexpr int kMost = 300;

    /// The widget takes the font of its parent, which it has. Borrowed.
    explicit GridZoom(QWidget& zoomed) : zoomed_(zoomed) {}

    /// In percent of the ordinary size.
    [[nodiscard]] int Percent() const { return percent_; }
    /// A size out of range becomes the nearest that is in it.
    void Percent(int percent);
    /// Makes the text larger (positive) or smaller by so many steps.
    void Step(int steps);
    /// Adds what the wheel has turned, in eighths of a degree; a whole notch is a step.
    void Turn(int angle);
    /// Changes between the ordinary size and the one before it.
    void Toggle();

private:
    QWidget& zoomed_;
    int percent_ = kOrdinary;
    int other_ = 150;  // that Toggle goes to from the ordinary size
    int turned_ = 0;
};

}  // namespace clb
