// Where the controls of the main window are.
#pragma once
#include <cstdint>

namespace clb {

class frmController;

/// Heights and widths in pixels that the window's layout starts from. A window with real controls
/// sets them from their fonts before it is loaded. Resizing keeps them.
struct WindowMetrics {
    std::int32_t toolbarHeight = 36;
    std::int32_t statusBarHeight = 24;
    std::int32_t treeWidth = 200;
    std::int32_t totalsHeight = 26;
    std::int32_t resultHeight = 30;
};

/// Places the controls of the main window: toolbar on top, tree on the left, grid with the totals
/// and the result bar, if it is shown, below it, status bar at the bottom.
class WindowLayout {
public:
    /// Borrows the window, which outlives it.
    WindowLayout(frmController& window, const WindowMetrics& metrics);

    /// Places the controls for the inner size in pixels. No control gets a negative size.
    void Resize(std::int32_t width, std::int32_t height);
    /// Places them for the same size after the result bar has come or gone.
    void PlaceAgain() { Resize(width_, height_); }
    /// Width of the tree in pixels. Writing gives the grid the rest; negative widths count as 0.
    [[nodiscard]] std::int32_t TreeWidth() const { return metrics_.treeWidth; }
    void TreeWidth(std::int32_t pixels);

private:
    void PlaceTotals(std::int32_t top);

    frmController& window_;
    WindowMetrics metrics_;
    std::int32_t width_ = 0;
    std::int32_t height_ = 0;
};

}  // namespace clb
