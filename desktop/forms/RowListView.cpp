#include "desktop/forms/RowListView.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QToolTip>

#include "desktop/input/UserEvents.h"
#include "desktop/look/GridColors.h"
#include "desktop/look/PaddedItemDelegate.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

constexpr int kMeasured = 100;  // rows whose texts decide how wide a column is

/// Keeps the texts of neighbouring columns apart.
class ApartDelegate : public PaddedItemDelegate {
public:
    using PaddedItemDelegate::PaddedItemDelegate;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override
    {
        return PaddedItemDelegate::sizeHint(option, index) +
               QSize(option.fontMetrics.averageCharWidth(), 0);
    }
};

}  // namespace

/// The lines of a row list as the toolkit reads them. A heading's text is in the first column.
class RowListView::Lines : public QAbstractTableModel {
public:
    Lines(const RowList& list, QTreeView* view)
        : QAbstractTableModel(view), list_(list), view_(view)
    {
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(list_.Lines().size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(list_.Columns().size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation way, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        // What is disabled is passed over by the keys.
        return Line(index).IsHeading() ? Qt::NoItemFlags : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    }
    [[nodiscard]] const RowList::Line& Line(const QModelIndex& index) const
    {
        return list_.Lines()[static_cast<std::size_t>(index.row())];
    }
    void Replace()
    {
        beginResetModel();
        endResetModel();
    }

private:
    [[nodiscard]] QString Text(const QModelIndex& index) const;
    [[nodiscard]] QString HeadingAbove(int line) const;

    const RowList& list_;
    QTreeView* view_;
};

QString RowListView::Lines::Text(const QModelIndex& index) const
{
    const RowList::Line& line = Line(index);
    const auto column = static_cast<std::size_t>(index.column());
    if (line.IsHeading())
        return column == 0 ? ToQString(line.heading) : QString();
    return column < line.row.cells.size() ? ToQString(line.row.cells[column]) : QString();
}

/// Screen readers read it with the row, because the keys do not stop at headings.
QString RowListView::Lines::HeadingAbove(int line) const
{
    while (--line >= 0)
        if (const RowList::Line& above = list_.Lines()[static_cast<std::size_t>(line)];
            above.IsHeading())
            return ToQString(above.heading);
    return {};
}

QVariant RowListView::Lines::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const auto column = static_cast<std::size_t>(index.column());
    switch (role) {
        case Qt::DisplayRole: return Text(index).replace(u'\n', u' ').remove(u'\r');
        case Qt::AccessibleTextRole: return Text(index);
        case Qt::AccessibleDescriptionRole:
            return Line(index).IsHeading() ? QString() : HeadingAbove(index.row());
        case Qt::TextAlignmentRole:
            return int(Qt::AlignVCenter) |
                   int(list_.IsRight(column) ? Qt::AlignRight : Qt::AlignLeft);
        // A heading has the whole line, so its column need not fit it.
        case Qt::SizeHintRole: return Line(index).IsHeading() ? QVariant(QSize(0, 0)) : QVariant();
        case Qt::ForegroundRole:
            return Line(index).row.faded ? QVariant(GridColors(view_->palette()).dimText)
                                         : QVariant();
        default: return {};
    }
}

QVariant RowListView::Lines::headerData(int section, Qt::Orientation way, int role) const
{
    const auto column = static_cast<std::size_t>(section);
    if (way != Qt::Horizontal || column >= list_.Columns().size())
        return {};
    if (role == Qt::DisplayRole)
        return ToQString(list_.Columns()[column]);
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignVCenter) | int(list_.IsRight(column) ? Qt::AlignRight : Qt::AlignLeft);
    return {};
}

RowListView::RowListView(RowList& list, UserEvents& events, QWidget* parent)
    : QTreeView(parent), list_(list), events_(events), lines_(new Lines(list, this))
{
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setItemDelegate(new ApartDelegate(this));
    setHorizontalScrollMode(ScrollPerPixel);
    setModel(lines_);
    header()->setSectionsMovable(false);
    header()->setResizeContentsPrecision(kMeasured);
    header()->setStretchLastSection(false);
    connect(this, &QTreeView::activated, this, [this](const QModelIndex& index) {
        events_.Run([&] { list_.Activate(static_cast<std::size_t>(index.row()) + 1); });
    });
    list_.Filled().connect(sigc::track_obj([this] { lines_->Replace(); }, *this));
    list_.Changed().connect(sigc::track_obj([this] { Sync(); }, *this));
    Sync();
}

void RowListView::Stretch(const std::vector<std::size_t>& columns)
{
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    for (const std::size_t column : columns)
        header()->setSectionResizeMode(static_cast<int>(column), QHeaderView::Stretch);
    searched_ = static_cast<int>(columns.front());
}

const RowList::Line& RowListView::LineAt(const QModelIndex& index) const
{
    return lines_->Line(index);
}

void RowListView::Sync()
{
    const QScopedValueRollback guard(syncing_, true);
    setEnabled(list_.Enabled());
    const auto line = static_cast<int>(list_.Chosen()) - 1;
    if (line == currentIndex().row())
        return;
    setCurrentIndex(line < 0 ? QModelIndex() : lines_->index(line, searched_));
    // The heading of the first row of a day is shown with it.
    if (line > 0 && list_.Lines()[static_cast<std::size_t>(line) - 1].IsHeading())
        scrollTo(lines_->index(line - 1, searched_));
}

void RowListView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (syncing_ || !current.isValid())
        return;
    events_.Run([&] { list_.Choose(static_cast<std::size_t>(current.row()) + 1); });
}

void RowListView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const
{
    if (!LineAt(index).IsHeading()) {
        QTreeView::drawRow(painter, option, index);
        return;
    }
    const GridColors colors(palette());
    const int gap = fontMetrics().averageCharWidth() / 2 + 2;
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    painter->save();
    painter->fillRect(option.rect, colors.group);
    painter->setFont(bold);
    painter->setPen(colors.text);
    const QRect room = option.rect.adjusted(gap, 0, -gap, 0);
    painter->drawText(
        room, Qt::AlignVCenter | Qt::AlignLeft,
        QFontMetrics(bold).elidedText(index.siblingAtColumn(0).data().toString(), Qt::ElideRight,
                                      std::min(room.width(), viewport()->width() - 2 * gap)));
    painter->restore();
}

bool RowListView::IsCut(const QModelIndex& index) const
{
    if (LineAt(index).IsHeading())
        return fontMetrics().horizontalAdvance(index.data().toString()) > viewport()->width();
    return sizeHintForIndex(index).width() - fontMetrics().averageCharWidth() >
           header()->sectionSize(index.column());
}

bool RowListView::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QTreeView::viewportEvent(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    QModelIndex index = indexAt(help->pos());
    if (index.isValid() && LineAt(index).IsHeading())
        index = index.siblingAtColumn(0);
    if (index.isValid() && IsCut(index))
        // A tip of rich text is broken into lines, and "<" in a text is not a tag.
        QToolTip::showText(help->globalPos(),
                           QStringLiteral("<p style='white-space: pre-wrap'>%1</p>")
                               .arg(index.data(Qt::AccessibleTextRole).toString().toHtmlEscaped()),
                           viewport());
    else
        QToolTip::hideText();
    return true;
}

}  // namespace clb
