#pragma once

#include <VelmoCloudEntity/font/FontItem.hpp>

#include <vector>

/// The one walk that every query over a tree of fonts makes.
namespace VelmoCloudEntity {

/// Visits the leaves below the list, depth first, in order: an item that is a group is replaced by its
/// Children at its place, and is not visited itself. Manages any depth.
template <class Visitor>
void forEachLeaf(const Records<FontItem>& list, Visitor&& visit) {
    struct Level {
        const Records<FontItem>* items;
        std::size_t next;
    };
    std::vector<Level> levels{{&list, 0}};
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next == level.items->size()) {
            levels.pop_back();
            continue;
        }
        const std::shared_ptr<FontItem>& item = (*level.items)[level.next++];
        if (item->IsGroup())
            levels.push_back({&item->Children(), 0});
        else
            visit(item);
    }
}

/// The leaves that the test takes, in the order of the walk.
template <class Test>
Records<FontItem> leavesWhere(const Records<FontItem>& list, Test&& isTaken) {
    Records<FontItem> taken;
    forEachLeaf(list, [&](const std::shared_ptr<FontItem>& leaf) {
        if (isTaken(*leaf))
            taken.push_back(leaf);
    });
    return taken;
}

} // namespace VelmoCloudEntity
