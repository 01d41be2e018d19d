#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>
#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/record/RecordSink.hpp>
#include <PerchAppLibrary/record/readRecords.hpp>

#include <concepts>
#include <iterator>
#include <memory>
#include <new>
#include <utility>
#include <vector>

/// Arrays of records: making them from JSON, and destroying trees of them.
namespace VelmoCloudEntity {

/// An array of records of the class Item. No element is null.
template <class Item>
using Records = std::vector<std::shared_ptr<Item>>;

/// Returns whether no record is null. For assertions. Linear.
template <class Item>
bool hasNoNull(const Records<Item>& records) noexcept {
    // Not by <algorithm>, which would take a sixth of what a client's file includes.
    for (const std::shared_ptr<Item>& record : records)
        if (record == nullptr)
            return false;
    return true;
}

/// Returns the records as records of another class: a base, or the class that they are of. Throws
/// std::bad_cast if one is not of the class To. Linear.
template <class To, class From>
Records<To> recordsAs(const Records<From>& records) {
    if constexpr (std::derived_from<From, To>)
        return {records.begin(), records.end()};
    Records<To> converted;
    converted.reserve(records.size());
    for (const std::shared_ptr<From>& record : records) {
        (void)dynamic_cast<To&>(*record);
        converted.push_back(std::static_pointer_cast<To>(record));
    }
    return converted;
}

/// Selects the elements of a JSON array that become records.
enum class Elements { all, objects };

/// Makes one record, by `Item::create(element)`, for each element of a JSON array, in order; with
/// Elements::objects, for each element that is an object. Any other value gives an empty array.
template <class Item>
Records<Item> makeRecords(const PerchAppLibrary::JSON& json, Elements which = Elements::all) {
    PerchAppLibrary::detail::RecordsSink<Item> sink;
    PerchAppLibrary::detail::readRecords(json, which == Elements::objects, sink);
    return std::move(sink.records);
}

namespace detail {

/// Empties the array. Destroys the records that have no other owner, and their children, in a loop,
/// since nested destructors would overflow the stack for a deep tree. `takeChildren(item)` moves
/// the children out of an item. If memory runs out, nested destructors destroy the rest.
template <class Item, class TakeChildren>
void releaseTree(Records<Item>& records, TakeChildren takeChildren) noexcept {
    Records<Item> pending = std::move(records);
    while (!pending.empty()) {
        const std::shared_ptr<Item> item = std::move(pending.back());
        pending.pop_back();
        if (item.use_count() != 1)
            continue;
        Records<Item> children = takeChildren(*item);
        try {
            pending.insert(pending.end(), std::make_move_iterator(children.begin()),
                           std::make_move_iterator(children.end()));
        } catch (const std::bad_alloc&) { // NOLINT(bugprone-empty-catch): children are destroyed
        }
    }
}

} // namespace detail
} // namespace VelmoCloudEntity
