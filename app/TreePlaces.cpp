#include "app/TreePlaces.h"

#include "controls/Tree.h"
#include "views/NodeTag.h"

namespace clb {

std::int32_t NodeLike(const Tree& tree, const TreeNode& sought, std::int32_t place)
{
    const auto find = [&tree](const auto& fits) {
        for (std::int32_t node = 1; node <= tree.Count(); ++node)
            if (fits(tree.Node(node)))
                return node;
        return 0;
    };
    const auto same = [&](const TreeNode& node) {
        return node.tag == sought.tag && node.key == sought.key;
    };
    if (place <= tree.Count() && same(tree.Node(place)))
        return place;
    if (const std::int32_t node = find(same); node != 0)
        return node;
    // The type or the number of the account itself may have changed.
    const std::string number = node_tag::AccountID(sought.tag);
    if (number.empty())
        return 0;
    const std::int32_t moved =
        find([&](const TreeNode& node) { return node_tag::AccountID(node.tag) == number; });
    return moved != 0 ? moved : find([&](const TreeNode& node) {
        return node.text == sought.text && !node_tag::AccountID(node.tag).empty();
    });
}

}  // namespace clb
