// Draws the lines of the navigation tree.
#pragma once
#include "desktop/look/PaddedItemDelegate.h"

namespace clb {

/// Draws the tree's lines: picture, name, and at the right a figure in grey, or red below 0. The
/// name gives way to the figure, down to a few characters; then there is no figure. A selected line
/// shows whether the tree has the focus.
class TreeLines : public PaddedItemDelegate {
public:
    /// The role of an item's figure, a text.
    static constexpr int kFigure = Qt::UserRole + 1;

    using PaddedItemDelegate::PaddedItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    static void DrawFigure(QPainter& painter, const QStyleOptionViewItem& option,
                           const QString& figure);
};

}  // namespace clb
