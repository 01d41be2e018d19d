#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>
#include <VelmoCloudEntity/entity/prefetchTree.hpp>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

/// The leaves of a tree of records, such as FontItem or FontTagItem: what every query walks over.
///
/// A tree is an array of items. An item whose IsGroup() is true is a group: the tree goes on in its
/// Children(). Any other item is a leaf, whose Children() are not read.
namespace VelmoCloudEntity {

/// Calls `visit(leaf)` for each leaf of the tree, depth first, in the order of the arrays. A group
/// is not visited itself. An item that is there twice is visited twice.
///
///     std::vector<std::int64_t> ids;
///     forEachLeaf(tags.List(), [&ids](const std::shared_ptr<FontTagItem>& tag) {
///         ids.push_back(tag->Id());
///     });
///
/// The visitor takes a `const std::shared_ptr<Item>&` to the element of the list or of Children():
/// copy it to keep the leaf. An exception of the visitor ends the walk and is passed on. The list
/// may be a temporary, since it outlives the call; a braced list needs the class, as in
/// `forEachLeaf<FontItem>({a, b}, visit)`.
///
/// Requires that no item is null, and that no group contains itself. The visitor may set any
/// property of any record, except that it may neither change the list nor the Children() of a group
/// that contains the leaf. Linear, for any depth: a list of the groups above replaces recursion.
template <class Item, class Visitor>
void forEachLeaf(const Records<Item>& list, Visitor&& visit) {
    struct Level {
        std::span<const std::shared_ptr<Item>> left;
        std::size_t prefetched; // number of items, from the first
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
            level.prefetched = std::min(level.left.size(), prefetchDistance);
            prefetchTree(level.left.first(level.prefetched));
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
        level = {members, prefetchedMembers(*item, members)};
    }
}

/// Returns the leaves for which `isTaken(leaf)` is true, where the leaf is a `const Item&`. Walks
/// like forEachLeaf().
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
