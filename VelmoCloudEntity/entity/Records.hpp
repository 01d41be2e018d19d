#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>
#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/record/RecordSink.hpp>

#include <iterator>
#include <memory>
#include <new>
#include <utility>
#include <vector>

/// Arrays of records: how they are made from JSON, and how trees of them are taken down.
namespace VelmoCloudEntity {

using PerchAppLibrary::isExactly;

/// Records of the class Item, in order. An element is never null.
template <class Item>
using Records = std::vector<std::shared_ptr<Item>>;

/// Which elements of a JSON array become records.
enum class Elements { all, objects };

/// Makes one record for each element of the JSON array, or for each that is an object, in order, as
/// `Item::create(element)` does. Empty for a JSON value that is not an array.
template <class Item>
Records<Item> makeRecords(const PerchAppLibrary::JSON& json, Elements which = Elements::all) {
    PerchAppLibrary::RecordsSink<Item> sink;
    PerchAppLibrary::readRecords(json, which == Elements::objects, sink);
    return std::move(sink.records);
}

/// Destroys the records that nobody else holds, and what hangs below them, in a loop: a chain of
/// groups of any length would otherwise be taken down by as many nested destructors. `takeChildren`
/// moves the children out of an item. Where there is no memory for the list of what is left, nested
/// destructors do the rest.
template <class Item, class TakeChildren>
void releaseTree(Records<Item>& records, TakeChildren takeChildren) noexcept {
    Records<Item> doomed = std::move(records);
    while (!doomed.empty()) {
        const std::shared_ptr<Item> item = std::move(doomed.back());
        doomed.pop_back();
        if (item.use_count() != 1)
            continue;
        Records<Item> children = takeChildren(*item);
        try {
            doomed.insert(doomed.end(), std::make_move_iterator(children.begin()),
                          std::make_move_iterator(children.end()));
        } catch (const std::bad_alloc&) {
            children.clear();
        }
    }
}

} // namespace VelmoCloudEntity
