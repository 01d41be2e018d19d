#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>

#include <PerchAppLibrary/platform/Prefetch.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

/// The one walk that every query over a tree of records makes: of fonts, of tags.
namespace VelmoCloudEntity {

/// Asks the memory for what a walk reads of an item: from its begin, where its class is known, to its `walkedEnd()`, if it
/// says where that is.
struct PrefetchWalked {
    template <class Item>
    void operator()(const Item& item) const noexcept {
        if constexpr (requires { item.walkedEnd(); }) {
            PerchAppLibrary::prefetch(&item);
            PerchAppLibrary::prefetch(item.walkedEnd());
        }
    }
};

/// How far a walk looks ahead: so many items of a list, of each group below them so many members, and so many items of one
/// depth in all. Enough to keep the memory busy, and few enough for the nearest caches.
constexpr std::size_t mostAhead = 32;
constexpr std::size_t mostMembersAhead = 16;
constexpr std::size_t mostOfDepthAhead = mostAhead * mostMembersAhead;

/// Asks the memory for what a walk reads of the items, and below the groups among them: depth by depth and, in each, one kind
/// of thing after the other, so that waiting for the first of them is waiting for all.
template <class Item, class Prefetch>
void prefetchBranches(std::span<const std::shared_ptr<Item>> items, Prefetch prefetchItem) {
    std::array<const Item*, mostOfDepthAhead> depth;
    std::array<const Records<Item>*, mostOfDepthAhead> groups;
    std::size_t itemCount = 0;
    const auto addAll = [&](std::span<const std::shared_ptr<Item>> added) {
        for (const std::shared_ptr<Item>& item :
             added.first(std::min(added.size(), depth.size() - itemCount)))
            depth[itemCount++] = item.get();
    };
    addAll(items);
    while (itemCount > 0) {
        const std::span found = std::span(depth).first(itemCount);
        for (const Item* const item : found)
            prefetchItem(*item);
        std::size_t groupCount = 0;
        for (const Item* const item : found)
            if (isExactly(*item) && item->Item::IsGroup())
                groups[groupCount++] = &item->Item::Children();
        const std::span branches = std::span(groups).first(groupCount);
        for (const Records<Item>* const members : branches)
            PerchAppLibrary::prefetch(members);
        for (const Records<Item>* const members : branches)
            PerchAppLibrary::prefetch(members->data());
        itemCount = 0;
        for (const Records<Item>* const members : branches)
            addAll(std::span(*members).first(std::min(members->size(), mostMembersAhead)));
    }
}

/// Visits the leaves below the list, depth first, in order: an item that is a group is replaced by its
/// Children at its place, and is not visited itself. Manages any depth. A visitor that reads other fields of an item than those
/// of which the walk knows may bring its own `prefetchItem(item)`.
template <class Item, class Visitor, class Prefetch = PrefetchWalked>
void forEachLeaf(const Records<Item>& list, Visitor&& visit, Prefetch prefetchItem = {}) {
    struct Level {
        std::span<const std::shared_ptr<Item>> left;
        std::size_t prefetched; // the first of these
    };
    Level level{list, 0};
    std::vector<Level> outer;
    while (true) {
        if (level.left.empty()) {
            if (outer.empty())
                return;
            level = outer.back();
            outer.pop_back();
            continue;
        }
        if (level.prefetched == 0) {
            level.prefetched = std::min(level.left.size(), mostAhead);
            prefetchBranches(level.left.first(level.prefetched), prefetchItem);
        }
        const std::shared_ptr<Item>& item = level.left.front();
        level.left = level.left.subspan(1);
        --level.prefetched;
        if (!item->IsGroup()) {
            visit(item);
            continue;
        }
        outer.push_back(level);
        const Records<Item>& members = item->Children();
        level = {members, isExactly(*item) ? std::min(members.size(), mostMembersAhead) : 0};
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
