// Shortens a failing sequence.
#pragma once
#include <algorithm>
#include <cstddef>
#include <vector>

namespace clb::model {

/// Shortens a list that fails by leaving out items, halves first and single ones last. Returns the
/// shortest list found that still fails. The whole list must fail.
template <class Item, class Fails>
std::vector<Item> Shrink(std::vector<Item> items, const Fails& fails)
{
    for (std::size_t size = std::max<std::size_t>(items.size() / 2, 1); size > 0;) {
        bool shorter = false;
        for (std::size_t from = 0; from < items.size();) {
            std::vector<Item> rest(items.begin(),
                                   items.begin() + static_cast<std::ptrdiff_t>(from));
            const std::size_t next = std::min(from + size, items.size());
            rest.insert(rest.end(), items.begin() + static_cast<std::ptrdiff_t>(next), items.end());
            if (fails(rest)) {
                items = rest;
                shorter = true;
            } else {
                from += size;
            }
        }
        // Single items are tried until none can be left out; larger pieces once.
        if (size > 1)
            size /= 2;
        else if (!shorter)
            break;
    }
    return items;
}

}  // namespace clb::model
