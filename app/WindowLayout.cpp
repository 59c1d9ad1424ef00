#include "app/WindowLayout.h"

#include <algorithm>

#include "app/frmController.h"

namespace clb {
namespace {

constexpr std::int32_t kPixel = 1;
constexpr std::int32_t kFoldedBelow = 700;  // width in pixels

std::int32_t AtLeastZero(std::int32_t size)
{
    return std::max(0, size);
}

}  // namespace

WindowLayout::WindowLayout(frmController& window, const WindowMetrics& metrics)
    : window_(window), metrics_(metrics)
{
}

void WindowLayout::TreeWidth(std::int32_t pixels)
{
    metrics_.treeWidth = AtLeastZero(pixels);
    Resize(width_, height_);
}

bool WindowLayout::TreeFolded() const
{
    return window_.GivenPorts().showsResults && width_ < kFoldedBelow;
}

std::int32_t WindowLayout::ShownTreeWidth() const
{
    if (!TreeFolded())
        return metrics_.treeWidth;
    const bool open = window_.window.Focus() == &window_.TreeView;
    return open ? std::min(metrics_.treeWidth, width_ * 3 / 4) : 0;
}

void WindowLayout::Resize(std::int32_t width, std::int32_t height)
{
    width_ = width;
    height_ = height;
    const std::int32_t top = metrics_.toolbarHeight;
    window_.toolbar.Place({0, 0, AtLeastZero(width), metrics_.toolbarHeight});
    window_.statusBar.Place(
        {0, height - metrics_.statusBarHeight, AtLeastZero(width), metrics_.statusBarHeight});

    const std::int32_t treeHeight =
        AtLeastZero(height - metrics_.statusBarHeight - metrics_.toolbarHeight - kPixel);
    const std::int32_t beside = TreeFolded() ? 0 : metrics_.treeWidth;
    window_.TreeView.Place({0, top, ShownTreeWidth(), treeHeight});
    const std::int32_t resultHeight = window_.result.Shown() ? metrics_.resultHeight : 0;
    const std::int32_t gridHeight = AtLeastZero(treeHeight - metrics_.totalsHeight - resultHeight);
    const std::int32_t gridWidth = AtLeastZero(width - beside - 4 * kPixel);
    const std::int32_t gridLeft = beside + 2 * kPixel;
    window_.result.Place({gridLeft, top, resultHeight == 0 ? 0 : gridWidth, resultHeight});
    window_.Grid.Place({gridLeft, top + resultHeight, gridWidth, gridHeight});
    PlaceTotals(top + resultHeight + gridHeight);
}

/// Their left edges and widths follow the grid's columns.
void WindowLayout::PlaceTotals(std::int32_t top)
{
    for (Control* control : std::initializer_list<Control*>{&window_.lblTotal, &window_.txtTotal,
                                                            &window_.txtTotal2}) {
        Bounds place = control->Place();
        place.top = top;
        place.height = metrics_.totalsHeight;
        control->Place(place);
    }
}

}  // namespace clb
