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

protected:
    /// Some styles veil a selected item that has the focus. The selection's colour shows the focus.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->state.testFlag(QStyle::State_Selected))
            option->state &= ~QStyle::State_HasFocus;
    }
};

}  // namespace clb
