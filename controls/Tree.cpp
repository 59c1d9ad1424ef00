#include "controls/Tree.h"

#include <algorithm>

#include "base/RuntimeError.h"

namespace clb {

void Tree::Touch()
{
    if (updates_ == 0)
        NotifyChanged();
}

Tree::Batch::~Batch()
{
    --tree_.updates_;
    try {
        tree_.Touch();
    } catch (...) {
        // There is no memory to draw the tree; the next change draws it.
    }
}

void Tree::Clear()
{
    nodes_.clear();
    selected_ = 0;
    Touch();
}

std::int32_t Tree::Add(std::int32_t parent, const std::string& key, const std::string& text,
                       std::int32_t image, std::int32_t selectedImage)
{
    if (parent != 0)
        static_cast<void>(Node(parent));
    const auto taken = [&key](const TreeNode& node) { return node.key == key; };
    if (!key.empty() && std::any_of(nodes_.begin(), nodes_.end(), taken))
        throw RuntimeError(errors::KeyNotUnique, "Key is not unique in collection");
    nodes_.push_back({parent, key, text, "", image, selectedImage, false, ""});
    if (selected_ == 0)
        selected_ = 1;
    Touch();
    return Count();
}

const TreeNode& Tree::Node(std::int32_t index) const
{
    if (index < 1 || index > Count())
        throw RuntimeError(errors::ElementNotFound, "Element not found");
    return nodes_[static_cast<std::size_t>(index - 1)];
}

void Tree::Tag(std::int32_t index, const std::string& tag)
{
    static_cast<void>(Node(index));
    nodes_[static_cast<std::size_t>(index - 1)].tag = tag;
    Touch();
}

void Tree::Figure(std::int32_t index, const std::string& figure)
{
    if (Node(index).figure == figure)
        return;
    nodes_[static_cast<std::size_t>(index - 1)].figure = figure;
    Touch();
}

void Tree::Expand(std::int32_t index, bool expanded)
{
    static_cast<void>(Node(index));
    TreeNode& node = nodes_[static_cast<std::size_t>(index - 1)];
    if (node.expanded == expanded)
        return;
    node.expanded = expanded;
    Touch();
}

std::int32_t Tree::Children(std::int32_t index) const
{
    return static_cast<std::int32_t>(
        std::count_if(nodes_.begin(), nodes_.end(),
                      [index](const TreeNode& node) { return node.parent == index; }));
}

void Tree::Remove(std::int32_t index)
{
    static_cast<void>(Node(index));
    // A child always comes after its parent, so one pass from the front finds all nodes below.
    std::vector<bool> gone(nodes_.size() + 1, false);
    gone[static_cast<std::size_t>(index)] = true;
    std::vector<std::int32_t> moved(nodes_.size() + 1, 0);
    std::vector<TreeNode> kept;
    kept.reserve(nodes_.size());
    for (std::size_t at = 1; at <= nodes_.size(); ++at) {
        TreeNode& node = nodes_[at - 1];
        if (gone[at] || gone[static_cast<std::size_t>(node.parent)]) {
            gone[at] = true;
            continue;
        }
        node.parent = moved[static_cast<std::size_t>(node.parent)];
        kept.push_back(std::move(node));
        moved[at] = static_cast<std::int32_t>(kept.size());
    }
    nodes_ = std::move(kept);
    selected_ = moved[static_cast<std::size_t>(selected_)];
    if (selected_ == 0 && !nodes_.empty())
        selected_ = 1;
    Touch();
}

void Tree::Select(std::int32_t index)
{
    static_cast<void>(Node(index));
    if (selected_ == index)
        return;
    selected_ = index;
    Touch();
}

void Tree::ClickNode(std::int32_t index)
{
    Select(index);
    nodeClick_.emit(index);
}

}  // namespace clb
