#include "desktop/window/TreeLines.h"

#include <QApplication>
#include <QPainter>
#include <algorithm>

#include "desktop/look/GridColors.h"

namespace clb {
namespace {

constexpr int kMargin = 6;  // at the right of a figure
constexpr int kGap = 10;    // between name and figure
constexpr int kFewestCharacters = 9;

int RoomOf(const QString& figure, const QFontMetrics& metrics)
{
    return metrics.horizontalAdvance(figure) + kGap + kMargin;
}

/// The room of a line's name and figure.
int TextRoom(const QStyleOptionViewItem& option)
{
    const QStyle& style = option.widget ? *option.widget->style() : *QApplication::style();
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
    return option.rect.width() - option.decorationSize.width() - 4 * margin;
}

bool ShowsFigure(const QString& figure, const QString& name, const QStyleOptionViewItem& option)
{
    const QFontMetrics metrics(option.font);
    const int least =
        std::min(metrics.horizontalAdvance(name), kFewestCharacters * metrics.averageCharWidth());
    return !figure.isEmpty() && TextRoom(option) - RoomOf(figure, metrics) >= least;
}

}  // namespace

void TreeLines::paint(QPainter* painter, const QStyleOptionViewItem& option,
                      const QModelIndex& index) const
{
    const QString figure = index.data(kFigure).toString();
    QStyleOptionViewItem line = option;
    initStyleOption(&line, index);
    const bool shows = ShowsFigure(figure, line.text, line);
    if (shows)
        line.text = line.fontMetrics.elidedText(line.text, Qt::ElideRight,
                                                TextRoom(line) - RoomOf(figure, line.fontMetrics));
    const QStyle& style = line.widget ? *line.widget->style() : *QApplication::style();
    style.drawControl(QStyle::CE_ItemViewItem, &line, painter, line.widget);
    if (shows)
        DrawFigure(*painter, line, figure);
}

void TreeLines::DrawFigure(QPainter& painter, const QStyleOptionViewItem& option,
                           const QString& figure)
{
    const GridColors colors(option.palette);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const QColor ground =
        selected ? option.palette.color(QPalette::Active, QPalette::Highlight) : colors.base;
    const bool focused = selected && option.widget != nullptr && option.widget->hasFocus();
    const QColor color = figure.startsWith(u'-') ? colors.negative : colors.dimText;
    painter.save();
    painter.setFont(option.font);
    painter.setPen(focused ? option.palette.color(QPalette::Active, QPalette::HighlightedText)
                           : Readable(color, ground));
    painter.drawText(option.rect.adjusted(0, 0, -kMargin, 0),
                     int(Qt::AlignRight) | int(Qt::AlignVCenter), figure);
    painter.restore();
}

void TreeLines::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    PaddedItemDelegate::initStyleOption(option, index);
    if (!option->widget || option->widget->hasFocus())
        return;
    // The background is pale then, so the picture keeps its own colours.
    const QPixmap picture = option->icon.pixmap(option->decorationSize,
                                                option->widget->devicePixelRatioF(), QIcon::Normal);
    option->icon = QIcon(picture);
    option->icon.addPixmap(picture, QIcon::Selected);
}

}  // namespace clb
