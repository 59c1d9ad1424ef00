// The tree of the model.

#include <algorithm>

#include "tests/model/ModelWindow.h"

namespace clb::model {
namespace {

std::string Tag(const Account& account)
{
    return std::to_string(ViewOfType(account.type)) + '\x01' + account.id;
}

}  // namespace

void ModelWindow::BuildTree()
{
    tree_ = {{0, "Net Worth", "", "1"}, {1, "Budget", "", "2"}};
    std::vector<Account> accounts = books_.accounts;
    std::stable_sort(accounts.begin(), accounts.end(), BeforeInList);
    std::string type;
    std::size_t parent = 0;
    for (const Account& account : accounts) {
        if (account.type != type) {
            type = account.type;
            tree_.push_back({1, type, type, "3"});
            parent = tree_.size();
        }
        tree_.push_back({parent, account.description, "", Tag(account)});
    }
    selected_ = 1;
}

void ModelWindow::ClickNode(std::size_t node)
{
    selected_ = static_cast<int>(node);
    const Node& one = tree_[node - 1];
    caption_ = one.text + " - Corvane Ledgerbook";
    view_ = one.tag[0] - '0';
    if (view_ == 3)
        type_ = one.text;
    else if (view_ > 3)
        account_ = one.tag.substr(2);
    Refresh();
}

void ModelWindow::PressNode(std::size_t node)
{
    const Node pressed = tree_[node - 1];
    if (!Leave())
        return;
    // Leaving the grid may have saved an account and moved the nodes.
    if (const std::size_t now = NodeLike(pressed, node); now != 0)
        ClickNode(now);
}

std::size_t ModelWindow::NodeLike(const Node& sought, std::size_t place) const
{
    const auto find = [this](const auto& fits) {
        const auto found = std::find_if(tree_.begin(), tree_.end(), fits);
        return found == tree_.end() ? 0 : static_cast<std::size_t>(found - tree_.begin()) + 1;
    };
    const auto same = [&](const Node& node) {
        return node.tag == sought.tag && node.key == sought.key;
    };
    if (place <= tree_.size() && same(tree_[place - 1]))
        return place;
    if (const std::size_t node = find(same))
        return node;
    if (sought.tag.size() < 2)
        return 0;
    const auto number = [](const Node& node) {
        return node.tag.size() < 2 ? std::string() : node.tag.substr(2);
    };
    if (const std::size_t node =
            find([&](const Node& one) { return number(one) == number(sought); }))
        return node;
    return find([&](const Node& node) { return node.text == sought.text && node.tag.size() > 1; });
}

std::size_t ModelWindow::FindTag(const std::string& tag) const
{
    const auto found = std::find_if(tree_.begin(), tree_.end(),
                                    [&tag](const Node& node) { return node.tag == tag; });
    return found == tree_.end() ? 0 : static_cast<std::size_t>(found - tree_.begin()) + 1;
}

void ModelWindow::RemoveNode(std::size_t node)
{
    const std::size_t parent = tree_[node - 1].parent;
    const auto children = std::count_if(tree_.begin(), tree_.end(),
                                        [parent](const Node& one) { return one.parent == parent; });
    const std::size_t first = children == 1 ? parent : node;
    const std::size_t count = node - first + 1;
    const auto selected = static_cast<std::size_t>(selected_);
    if (selected >= first && selected <= node)
        selected_ = 1;
    else if (selected > node)
        selected_ -= static_cast<int>(count);
    tree_.erase(tree_.begin() + static_cast<std::ptrdiff_t>(first - 1),
                tree_.begin() + static_cast<std::ptrdiff_t>(node));
    for (Node& one : tree_)
        if (one.parent > node)
            one.parent -= count;
}

}  // namespace clb::model
