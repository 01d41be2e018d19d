#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>

#include <PerchAppLibrary/platform/prefetch.hpp>

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <memory>
#include <span>

/// Prefetching for the walk of RecordTree.hpp, which includes this file. Other files include
/// RecordTree.hpp.
///
/// The items of a tree lie scattered in memory. A walk over a large tree waits for each of them in
/// turn. Requesting many items at once halves its time.
namespace VelmoCloudEntity::detail {

/// Number of items of an array to prefetch at once: enough to keep the memory busy, few enough for
/// the caches.
constexpr std::size_t prefetchDistance = 32;

/// Number of members to prefetch of each group among these items.
constexpr std::size_t prefetchDistanceOfGroup = 16;

/// Prefetches the fields of an item that a walk reads, if lastWalkedByte(item) gives the last
/// byte of them. Does nothing for any other class.
template <class Item>
void prefetchItem(const Item& item) noexcept {
    if constexpr (requires { lastWalkedByte(item); }) {
        PerchAppLibrary::prefetch(&item);
        PerchAppLibrary::prefetch(lastWalkedByte(item));
    }
}

/// Returns the number of members that prefetchTree() has prefetched with their group, or zero if
/// Children() may be overridden.
template <class Item>
std::size_t prefetchedMembers(const Item& group, const Records<Item>& members) noexcept {
    return isExactly(group) ? std::min(members.size(), prefetchDistanceOfGroup) : 0;
}

/// Prefetches the items and the items below them, at most prefetchDistanceOfGroup of each group.
/// Requires at most prefetchDistance items.
///
/// Descends level by level. On each level it requests all objects of one kind before it reads the
/// first of them.
template <class Item>
void prefetchTree(std::span<const std::shared_ptr<Item>> items) {
    constexpr std::size_t capacity = prefetchDistance * prefetchDistanceOfGroup;
    std::array<const Item*, capacity> level;
    std::array<const Records<Item>*, capacity> groups;
    std::size_t itemCount = 0;
    const auto add = [&](std::span<const std::shared_ptr<Item>> added) {
        const std::size_t room = capacity - itemCount;
        for (const std::shared_ptr<Item>& item : added.first(std::min(added.size(), room))) {
            assert(item != nullptr && "no member of a group is null");
            level[itemCount++] = item.get();
        }
    };
    add(items);
    while (itemCount > 0) {
        const std::span found = std::span(level).first(itemCount);
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
            add(std::span(*members).first(std::min(members->size(), prefetchDistanceOfGroup)));
    }
}

} // namespace VelmoCloudEntity::detail
