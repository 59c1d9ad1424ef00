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
/// A text asks for no more characters than these.
constexpr int kMostCharacters = 34;
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

/// A column that lacks room for its texts, or has more than these need.
struct Share {
    std::int32_t column;
    int pixels;
};

int Total(const std::vector<Share>& shares)
{
    int total = 0;
    for (const Share& share : shares)
        total += share.pixels;
    return total;
}

}  // namespace

void ColumnFit::Forget()
{
    widest_.clear();
    widestBeside_ = 0;
    std::string columns;
    for (const std::int32_t column : grid_.Columns().Displayed())
        columns += grid_.Columns().Item(column).key + '\n';
    if (columns != columns_)
        texts_.clear();
    columns_ = std::move(columns);
}

void ColumnFit::ForgetAll()
{
    columns_.clear();
    texts_.clear();
    Forget();
}

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
        for (const GridLayout::Span& span : layout.Spans())
            grown = MeasureCell(row, span, metrics) || grown;
    }
    return grown;
}

bool ColumnFit::MeasureCell(std::size_t row, const GridLayout::Span& span,
                            const QFontMetrics& metrics)
{
    QString text;
    try {
        text = ToQString(grid_.CellText(row, span.column));
    } catch (const RuntimeError&) {
        return false;  // the painter leaves such a cell blank
    }
    const bool figure = IsFigure(span.column);
    const int inner = metrics.horizontalAdvance(text);
    const int limited = std::min(inner, kMostCharacters * metrics.averageCharWidth());
    const int width = (figure ? inner : limited) + 2 * GridPainter::kPadding + kEdge;
    int& widest = (figure ? widest_ : texts_)[span.column];
    const bool grown = width > widest && width > span.width;
    widest = std::max(widest, width);
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
    bool byHand = false;
    for (const std::int32_t column : grid_.Columns().Displayed()) {
        const GridColumn& item = grid_.Columns().Item(column);
        if (item.hidden || item.width <= 0)
            continue;
        const auto widest = widest_.find(column);
        const int heading = heading_(column).least;
        const int least = std::max(widest == widest_.end() ? 0 : widest->second, heading);
        items.push_back({column, std::max<int>(item.width, least),
                         std::max(heading, std::min<int>(item.width, leastText)),
                         !IsFigure(column)});
        wanted += item.width;
        byHand = byHand || item.byHand;
    }
    // Columns that a person has made wider than the window are scrolled, not narrowed.
    const int level = LevelFor(items, byHand ? std::max(room, wanted) : room);
    Drawn drawn;
    for (const Column& item : items)
        drawn.columns[item.column] = Limited(item, level);
    const int beside = BesideWidth(metrics);
    const int lacking = std::max(0, TotalAt(items, level) + beside - room);
    const auto last =
        std::find_if(items.rbegin(), items.rend(), [](const Column& item) { return item.gives; });
    if (beside != 0 && last != items.rend() &&
        drawn.columns[last->column] - lacking >= kLeastBeside * metrics.averageCharWidth()) {
        drawn.columns[last->column] -= lacking;
        drawn.beside = beside;
    }
    ShareSpare(drawn.columns, leastText);
    return drawn;
}

/// The total width stays. Those that lack least come first.
void ColumnFit::ShareSpare(GridLayout::Widths& drawn, int leastText) const
{
    std::vector<Share> lacking;
    std::vector<Share> spare;
    for (const auto& [column, width] : drawn) {
        if (grid_.Columns().Item(column).byHand)
            continue;
        const auto text = texts_.find(column);
        const int needed =
            std::max(heading_(column).whole, text == texts_.end() ? 0 : text->second);
        if (width < needed)
            lacking.push_back({column, needed - width});
        else if (!IsFigure(column) && width > std::max(needed, leastText))
            spare.push_back({column, width - std::max(needed, leastText)});
    }
    const int all = Total(spare);
    int given = 0;
    std::sort(lacking.begin(), lacking.end(),
              [](const Share& one, const Share& other) { return one.pixels < other.pixels; });
    for (const Share& share : lacking) {
        const int pixels = std::min(share.pixels, all - given);
        drawn[share.column] += pixels;
        given += pixels;
    }
    int left = given;
    for (const Share& share : spare) {
        const int pixels = std::min(left, (share.pixels * given + all - 1) / all);
        drawn[share.column] -= pixels;
        left -= pixels;
    }
}

}  // namespace clb
