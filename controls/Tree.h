// A tree control.
#pragma once
#include <string>
#include <vector>

#include "controls/Control.h"

namespace clb {

/// One line of a tree.
struct TreeNode {
    std::int32_t parent = 0;  ///< index of the parent; 0 for a root
    std::string key;          ///< unique in the tree; empty: none
    std::string text;
    std::string tag;
    std::int32_t image = 0;
    std::int32_t selectedImage = 0;
    bool expanded = false;
    std::string figure = {};  ///< drawn at the right of the line; empty: none
};

/// A tree whose nodes form one collection, numbered from 1 in the order of their addition; removing
/// a node moves the later ones down. At most one node is selected.
class Tree : public Control {
public:
    using Control::Control;

    void Clear();
    /// Adds a node below the parent (0: a root); the first node added is selected, without a click.
    /// Returns its index. Throws RuntimeError if the parent does not exist or the key is taken.
    std::int32_t Add(std::int32_t parent, const std::string& key, const std::string& text,
                     std::int32_t image, std::int32_t selectedImage);
    [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(nodes_.size()); }
    /// Throws RuntimeError if there is no such node.
    [[nodiscard]] const TreeNode& Node(std::int32_t index) const;
    void Tag(std::int32_t index, const std::string& tag);
    void Expand(std::int32_t index, bool expanded);
    void Figure(std::int32_t index, const std::string& figure);
    /// Number of nodes directly below.
    [[nodiscard]] std::int32_t Children(std::int32_t index) const;
    /// Removes the node and everything below it. If the selected node goes, the first root is
    /// selected.
    void Remove(std::int32_t index);

    /// Index of the selected node; 0 if there is none.
    [[nodiscard]] std::int32_t Selected() const { return selected_; }
    /// Selects without a click.
    void Select(std::int32_t index);
    /// Selects the node and raises NodeClick, as the mouse does.
    void ClickNode(std::int32_t index);
    Event<void(std::int32_t)> NodeClick() { return nodeClick_; }

    /// Changes made during its lifetime are drawn once, at its end.
    class Batch {
    public:
        explicit Batch(Tree& tree) : tree_(tree) { ++tree_.updates_; }
        ~Batch();
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        Tree& tree_;
    };

private:
    void Touch();

    std::vector<TreeNode> nodes_;
    std::int32_t selected_ = 0;
    int updates_ = 0;
    sigc::signal<void(std::int32_t)> nodeClick_;
};

}  // namespace clb
