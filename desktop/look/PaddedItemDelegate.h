// Draws the items of lists and trees.
#pragma once
#include <QStyledItemDelegate>

namespace clb {

/// Draws the items of a list or tree with some room above and below the text.
class PaddedItemDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index)
            .expandedTo(QSize(0, option.fontMetrics.height() + 8));
    }
};

}  // namespace clb
