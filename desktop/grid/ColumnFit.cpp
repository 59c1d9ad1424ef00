#include "desktop/grid/ColumnFit.h"

#include <algorithm>
#include <vector>

#include "base/RuntimeError.h"
#include "controls/GridComponent.h"
#include "desktop/grid/GridPainter.h"
#include "desktop/look/TextConvert.h"

namespace clb {
namespace {

/// A column of texts stays wide enough for so many characters.
constexpr int kLeastCharacters = 7;
/// The last column of texts stays that wide, or there are no figures beside the columns.
constexpr int kLeastBeside = 14;
/// The line at the right of a cell, and one pixel that rounding may take.
constexpr int kEdge = 2;

struct Column {
    std::int32_t column;
    int width;
    int least;
    bool gives;  ///< may become narrower, down to least
};

int Limited(const Column& item, int level)
{
    return item.gives ? std::min(item.width, std::max(level, item.least)) : item.width;
}

int TotalAt(const std::vector<Column>& items, int level)
{
    int total = 0;
    for (const Column& item : items)
        total += Limited(item, level);
    return total;
}

/// The widest that the columns that give way may be, so that together they fit as well as they can.
int LevelFor(const std::vector<Column>& items, int room)
{
    int fits = 0;
    int tooWide = 1;
    for (const Column& item : items)
        tooWide = std::max(tooWide, item.width);
    if (TotalAt(items, tooWide) <= room)
        return tooWide;
    while (tooWide - fits > 1) {
        const int level = fits + (tooWide - fits) / 2;
        (TotalAt(items, level) <= room ? fits : tooWide) = level;
    }
    return fits;
}

}  // namespace

bool ColumnFit::IsFigure(std::int32_t column) const
{
    const GridColumn& item = grid_.Columns().Item(column);
    return item.StandsRight() || item.dataType == FieldType::Date;
}

bool ColumnFit::Measure(const GridLayout& layout, int height, const QFontMetrics& metrics)
{
    bool grown = false;
    std::size_t row = layout.RowAt(0);
    for (; row != 0 && row <= layout.RowCount() && layout.RowTop(row) < height; ++row) {
        const GridRowKind kind = grid_.Rows().Kind(row);
        if (kind != GridRowKind::Data && kind != GridRowKind::NewRow)
            continue;
        grown = MeasureBeside(row, metrics) || grown;
        // From left to right, because a calculated cell may depend on the one before it.
        for (const GridLayout::Span& span : layout.Spans()) {
            if (!IsFigure(span.column))
                continue;
            QString text;
            try {
                text = ToQString(grid_.CellText(row, span.column));
            } catch (const RuntimeError&) {
                continue;  // the painter leaves such a cell blank
            }
            const int width = metrics.horizontalAdvance(text) + 2 * GridPainter::kPadding + kEdge;
            int& widest = widest_[span.column];
            grown = grown || (width > widest && width > span.width);
            widest = std::max(widest, width);
        }
    }
    return grown;
}

bool ColumnFit::MeasureBeside(std::size_t row, const QFontMetrics& metrics)
{
    if (!grid_.Beside())
        return false;
    const QString text = ToQString(grid_.Beside()->text(row));
    if (text.isEmpty())
        return false;
    const int width = metrics.horizontalAdvance(text) + 2 * GridPainter::kPadding + kEdge;
    const bool grown = width > widestBeside_;
    widestBeside_ = std::max(widestBeside_, width);
    return grown;
}

/// 0 if there are no figures beside the columns.
int ColumnFit::BesideWidth(const QFontMetrics& metrics) const
{
    if (!grid_.Beside() || widestBeside_ == 0)
        return 0;
    // The caption is bold.
    const int caption = metrics.horizontalAdvance(ToQString(grid_.Beside()->caption)) * 9 / 8;
    return std::max(widestBeside_, caption + 2 * GridPainter::kPadding);
}

ColumnFit::Drawn ColumnFit::In(int room, const QFontMetrics& metrics) const
{
    const int leastText = kLeastCharacters * metrics.averageCharWidth() + 2 * GridPainter::kPadding;
    std::vector<Column> items;
    int wanted = 0;
    for (const std::int32_t column : grid_.Columns().Displayed()) {
        const GridColumn& item = grid_.Columns().Item(column);
        if (item.hidden || item.width <= 0)
            continue;
        const auto widest = widest_.find(column);
        const int heading = heading_(column);
        const int least = std::max(widest == widest_.end() ? 0 : widest->second, heading);
        items.push_back({column, std::max<int>(item.width, least),
                         std::max(heading, std::min<int>(item.width, leastText)),
                         !IsFigure(column)});
        wanted += item.width;
    }
    // Columns that a person has made wider than the window are scrolled, not narrowed.
    const int level = LevelFor(items, std::max(room, wanted));
    Drawn drawn;
    for (const Column& item : items)
        drawn.columns[item.column] = Limited(item, level);
    const int beside = BesideWidth(metrics);
    const int lacking = std::max(0, TotalAt(items, level) + beside - room);
    const auto last =
        std::find_if(items.rbegin(), items.rend(), [](const Column& item) { return item.gives; });
    if (beside == 0 || last == items.rend() ||
        drawn.columns[last->column] - lacking < kLeastBeside * metrics.averageCharWidth())
        return drawn;
    drawn.columns[last->column] -= lacking;
    drawn.beside = beside;
    return drawn;
}

}  // namespace clb
