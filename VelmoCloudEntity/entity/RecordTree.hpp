#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>
#include <VelmoCloudEntity/entity/prefetchTree.hpp>

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

/// The walk over the leaves of a tree of records, such as FontItem or FontTagItem. The queries over
/// whole trees use it.
///
/// A tree is an array of items. An item whose IsGroup() is true is a group: its Children() are part
/// of the tree. Any other item is a leaf, and its Children() are not read.
namespace VelmoCloudEntity {

/// Calls `visit(leaf)` for each leaf of the tree, depth first, in the order of the arrays. A group
/// itself is not visited. A leaf that occurs twice is visited twice.
///
///     std::vector<std::int64_t> ids;
///     forEachLeaf(tags.List(), [&ids](const std::shared_ptr<FontTagItem>& tag) {
///         ids.push_back(tag->Id());
///     });
///
/// The visitor takes a `const std::shared_ptr<Item>&`, a reference to the element of the list or of
/// Children(): copy it to keep the leaf. An exception from the visitor ends the walk and
/// propagates. The list may be a temporary. A braced list needs the class:
/// `forEachLeaf<FontItem>({a, b}, visit)`.
///
/// Requires that no item is null and that no group contains itself, at any depth. The visitor may
/// set any property of any record, except the Children() of a group that contains the leaf, and
/// must not change the list. Linear. Works at any depth, since it does not recurse.
template <class Item, class Visitor>
void forEachLeaf(const Records<Item>& list, Visitor&& visit) {
    struct Level {
        std::span<const std::shared_ptr<Item>> remaining;
        std::size_t prefetched; // number of items at the front that are prefetched
    };
    assert(hasNoNull(list));
    Level level{list, 0};
    std::vector<Level> outer;
    while (true) {
        if (level.remaining.empty()) {
            if (outer.empty())
                return;
            level = outer.back();
            outer.pop_back();
            continue;
        }
        if (level.prefetched == 0) {
            level.prefetched = std::min(level.remaining.size(), detail::prefetchDistance);
            detail::prefetchTree(level.remaining.first(level.prefetched));
        }
        const std::shared_ptr<Item>& item = level.remaining.front();
        level.remaining = level.remaining.subspan(1);
        --level.prefetched;
        if (!item->IsGroup()) {
            visit(item);
            continue;
        }
        outer.push_back(level);
        const Records<Item>& members = item->Children();
        assert(hasNoNull(members));
        level = {members, detail::prefetchedMembers(*item, members)};
    }
}

/// Returns the leaves for which `predicate(leaf)` is true, where the leaf is a `const Item&`. Walks
/// like forEachLeaf().
template <class Item, class Predicate>
Records<Item> leavesWhere(const Records<Item>& list, Predicate&& predicate) {
    Records<Item> matches;
    forEachLeaf(list, [&](const std::shared_ptr<Item>& leaf) {
        if (predicate(*leaf))
            matches.push_back(leaf);
    });
    return matches;
}

} // namespace VelmoCloudEntity
