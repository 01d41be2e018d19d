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

/// So many items does a walk look ahead: enough to keep the memory busy, and few enough for the nearest cache.
constexpr std::size_t mostAhead = 16;

/// Asks the memory for what a walk reads of these items, of the groups among them, and of the first members of each: one
/// kind after the other, so that waiting for the first of a kind is waiting for all.
template <class Item, class Prefetch>
void prefetchBranches(std::span<const std::shared_ptr<Item>> items, Prefetch prefetchItem) {
    std::array<const Records<Item>*, mostAhead> groups;
    std::size_t groupCount = 0;
    const auto forEachGroup = [&](auto&& visit) {
        for (const Records<Item>* const members : std::span(groups).first(groupCount))
            visit(*members);
    };
    for (const std::shared_ptr<Item>& item : items)
        prefetchItem(*item);
    for (const std::shared_ptr<Item>& item : items)
        if (item->IsGroup())
            groups[groupCount++] = &item->Children();
    forEachGroup([](const Records<Item>& members) { PerchAppLibrary::prefetch(&members); });
    forEachGroup([](const Records<Item>& members) { PerchAppLibrary::prefetch(members.data()); });
    forEachGroup([prefetchItem](const Records<Item>& members) {
        for (const std::shared_ptr<Item>& member :
             std::span(members).first(std::min(members.size(), mostAhead)))
            prefetchItem(*member);
    });
}

/// Visits the leaves below the list, depth first, in order: an item that is a group is replaced by its
/// Children at its place, and is not visited itself. Manages any depth. A visitor that reads other fields of an item than those
/// of which the walk knows may bring its own `prefetchItem(item)`.
template <class Item, class Visitor, class Prefetch = PrefetchWalked>
void forEachLeaf(const Records<Item>& list, Visitor&& visit, Prefetch prefetchItem = {}) {
    struct Level {
        std::span<const std::shared_ptr<Item>> left;
        std::size_t prefetched = 0; // the first of these

        explicit Level(const Records<Item>& items) : left(items) {}
    };
    Level level(list);
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
        level = Level(item->Children());
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
