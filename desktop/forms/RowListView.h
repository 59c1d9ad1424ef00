// Draws a table of texts.
#pragma once
#include <sigc++/trackable.h>

#include <QTreeView>
#include <cstddef>
#include <vector>

#include "controls/RowList.h"

namespace clb {

class UserEvents;

/// Draws a row list. It opens at once however many lines there are, because only the visible ones
/// are read. The keys go from row to row past the headings; typed letters find a row.
class RowListView : public QTreeView, public sigc::trackable {
public:
    /// Both are borrowed and outlive the view.
    RowListView(RowList& list, UserEvents& events, QWidget* parent = nullptr);

    /// Columns, from 0, that share the width which the others leave. The first of them is the one
    /// that typed letters are looked for in.
    void Stretch(const std::vector<std::size_t>& columns);

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    bool viewportEvent(QEvent* event) override;

private:
    class Lines;

    void Sync();
    [[nodiscard]] const RowList::Line& LineAt(const QModelIndex& index) const;
    [[nodiscard]] bool IsCut(const QModelIndex& index) const;

    RowList& list_;
    UserEvents& events_;
    Lines* lines_;
    int searched_ = 0;  // column
    bool syncing_ = false;
};

}  // namespace clb
