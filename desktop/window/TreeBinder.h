// Draws the navigation tree.
#pragma once
#include <sigc++/trackable.h>

#include <QTreeWidget>
#include <cstdint>
#include <functional>
#include <vector>

#include "controls/Tree.h"

namespace clb {

class UserEvents;

/// Draws the navigation tree. A mouse press, or a key that moves the selection, is handed to the
/// model as a press of that node. The model decides what is selected afterwards.
class TreeBinder : public QTreeWidget, public sigc::trackable {
public:
    using PressNode = std::function<void(std::int32_t node)>;
    /// tree and events are borrowed and outlive the binder.
    TreeBinder(Tree& tree, UserEvents& events, PressNode press, QWidget* parent = nullptr);

    /// Sets what follows when Enter has shown the current node.
    void OnEnter(std::function<void()> follow) { entered_ = std::move(follow); }
    /// Sets what opens the menu of the selected node, at a place of the screen.
    void OnMenu(std::function<void(const QPoint&)> open) { menu_ = std::move(open); }
    /// Draws the present state of the model.
    void Sync();
    /// The item of a node, numbered as in the model.
    [[nodiscard]] QTreeWidgetItem* ItemOf(std::int32_t node) const
    {
        return items_.at(std::size_t(node - 1));
    }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    void changeEvent(QEvent* event) override;

private:
    void MeasureFonts();
    void SyncLater();
    [[nodiscard]] bool SameNodes() const;
    void Rebuild();
    void FollowSelection();
    [[nodiscard]] std::int32_t NodeOf(const QTreeWidgetItem* item) const;
    void Press(std::int32_t node);
    void PressLater(std::int32_t node);
    void Enter();
    void UserExpanded(QTreeWidgetItem* item, bool expanded);

    Tree& tree_;
    UserEvents& events_;
    PressNode press_;
    std::function<void()> entered_;
    std::function<void(const QPoint&)> menu_;
    std::vector<QTreeWidgetItem*> items_;
    std::vector<std::int32_t> parents_;
    bool syncing_ = false;
    bool syncPending_ = false;
    int pressesPending_ = 0;
};

}  // namespace clb
