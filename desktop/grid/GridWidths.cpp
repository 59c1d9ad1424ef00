#include "desktop/grid/GridWidths.h"

#include <QKeyEvent>
#include <QWidget>
#include <algorithm>

#include "desktop/grid/GridHeader.h"
#include "desktop/grid/GridLayout.h"
#include "desktop/grid/GridPainter.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

constexpr int kWidthStep = 8;  // pixels that a key makes a column wider

}  // namespace

void GridWidths::Set(std::int32_t column, int width)
{
    events_.Run([&] { grid_.ResizeColumn(column, width); });
}

void GridWidths::Fit(std::int32_t column, const GridHeader& header)
{
    events_.Run([&] {
        int width = header.CaptionWidth(column);
        // Fitting reads only the visible rows, which are drawn anyway.
        for (std::size_t row = layout_.RowAt(0);
             row != 0 && row <= layout_.RowCount() && layout_.RowTop(row) < viewport_.height();
             ++row) {
            if (grid_.Rows().Kind(row) != GridRowKind::Data)
                continue;
            const QString text = ToQString(grid_.CellText(row, column));
            width = std::max(width, viewport_.fontMetrics().horizontalAdvance(text) +
                                        2 * GridPainter::kPadding + 2);
        }
        grid_.ResizeColumn(column, width);
    });
}

bool GridWidths::ByKey(const QKeyEvent& event, const GridHeader& header)
{
    const std::int32_t column = grid_.Col();
    const int width = layout_.CellRect(grid_.Row(), column).width();
    if (width == 0 || event.modifiers() != (Qt::ControlModifier | Qt::ShiftModifier))
        return false;
    switch (event.key()) {
        case Qt::Key_Left: Set(column, width - kWidthStep); return true;
        case Qt::Key_Right: Set(column, width + kWidthStep); return true;
        case Qt::Key_F: Fit(column, header); return true;
        default: return false;
    }
}

}  // namespace clb
