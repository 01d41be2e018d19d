#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>

#include <PerchAppLibrary/platform/Prefetch.hpp>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

/// The one walk that every query over a tree of records makes: of fonts, of tags.
namespace VelmoCloudEntity {

/// Asks the memory for what a walk reads of an item: its begin, where its class is known, and its `walkedFields()`, if it
/// says where they are.
template <class Item>
void prefetchWalked(const Item& item) noexcept {
    if constexpr (requires { item.walkedFields(); }) {
        PerchAppLibrary::prefetch(&item);
        PerchAppLibrary::prefetch(item.walkedFields());
    }
}

/// Visits the leaves below the list, depth first, in order: an item that is a group is replaced by its
/// Children at its place, and is not visited itself. Manages any depth.
template <class Item, class Visitor>
void forEachLeaf(const Records<Item>& list, Visitor&& visit) {
    using Place = const std::shared_ptr<Item>*;
    constexpr std::ptrdiff_t ahead = 8; // far enough for the memory, and few enough for the cache
    Place next = list.data();
    Place end = next + list.size();
    std::vector<std::pair<Place, Place>> outer; // what is left of the levels above
    while (true) {
        if (next == end) {
            if (outer.empty())
                return;
            std::tie(next, end) = outer.back();
            outer.pop_back();
            continue;
        }
        if (end - next > ahead)
            prefetchWalked(*next[ahead]);
        const std::shared_ptr<Item>& item = *next++;
        if (!item->IsGroup()) {
            visit(item);
            continue;
        }
        outer.emplace_back(next, end);
        const Records<Item>& children = item->Children();
        next = children.data();
        end = next + children.size();
        for (Place soon = next; soon != next + std::min(ahead, end - next); ++soon)
            prefetchWalked(**soon);
    }
}

/// The leaves that the test takes, in the order of the walk.
template <class Item, class Test>
Records<Item> leavesWhere(const Records<Item>& list, Test&& isTaken) {
    Records<Item> taken;
    forEachLeaf(list, [&](const std::shared_ptr<Item>& leaf) {
        if (isTaken(*leaf))
            taken.push_back(leaf);
    });
    return taken;
}

} // namespace VelmoCloudEntity
