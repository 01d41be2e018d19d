#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>

#include <PerchAppLibrary/platform/prefetch.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <span>

/// Prefetching for the walk of RecordTree.hpp, which includes this file and is the one to call it.
///
/// The items of a tree lie scattered, and a walk over a large one takes as long as the memory takes
/// to deliver them one by one. With many of them requested at once it takes half as long.
namespace VelmoCloudEntity {

/// How far a walk prefetches: enough items to keep the memory busy, few enough for the caches.
constexpr std::size_t prefetchDistance = 32;        // items of an array
constexpr std::size_t prefetchDistanceOfGroup = 16; // members of each group among them

/// Prefetches what a walk reads of an item, if its class says where that ends.
template <class Item>
void prefetchItem(const Item& item) noexcept {
    if constexpr (requires { item.signatureEnd(); }) {
        PerchAppLibrary::prefetch(&item);
        PerchAppLibrary::prefetch(item.signatureEnd());
    }
}

/// Returns how many members were prefetched with their group: none if Children() may be overridden.
template <class Item>
std::size_t prefetchedMembers(const Item& group, const Records<Item>& members) noexcept {
    return isExactly(group) ? std::min(members.size(), prefetchDistanceOfGroup) : 0;
}

/// Prefetches the items, at most `prefetchDistance`, and what hangs below them.
///
/// Goes down level by level and, in each, through one kind of object after the other, so that all
/// objects of a kind are requested before the first of them is read.
template <class Item>
void prefetchTree(std::span<const std::shared_ptr<Item>> items) {
    constexpr std::size_t capacity = prefetchDistance * prefetchDistanceOfGroup;
    std::array<const Item*, capacity> level;
    std::array<const Records<Item>*, capacity> groups;
    std::size_t itemCount = 0;
    const auto add = [&](std::span<const std::shared_ptr<Item>> added) {
        const std::size_t room = capacity - itemCount;
        for (const std::shared_ptr<Item>& item : added.first(std::min(added.size(), room)))
            level[itemCount++] = item.get();
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

} // namespace VelmoCloudEntity
