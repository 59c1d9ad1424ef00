// Finds nodes again in a rebuilt tree.
#pragma once
#include <cstdint>

namespace clb {

class Tree;
struct TreeNode;

/// Finds the node in a rebuilt tree that represents the same item as `sought`, which was at
/// `place` before. An account whose type, number or description was changed is found by what did
/// not change. Returns 0 if the item no longer exists.
std::int32_t NodeLike(const Tree& tree, const TreeNode& sought, std::int32_t place);

}  // namespace clb
