#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>
#include <PerchAppLibrary/JSON.hpp>
#include <PerchAppLibrary/record/MemberOrder.hpp>

#include <concepts>
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

/// What `make(element)` makes of each element of the JSON array, in order; with Elements::objects, of each element that is an object.
/// Empty for a JSON value that is not an array.
template <class Item, class Make>
Records<Item> makeEach(const PerchAppLibrary::JSON& json, Elements which, Make make) {
    using PerchAppLibrary::JSON;
    Records<Item> records;
    if (json.type() != JSON::Type::array)
        return records;
    records.reserve(json.count());
    for (const JSON& element : json)
        if (which == Elements::all || element.type() == JSON::Type::dictionary)
            records.push_back(make(element));
    return records;
}

/// The same of the records that `Item::create` makes.
template <class Item>
Records<Item> makeRecords(const PerchAppLibrary::JSON& json, Elements which = Elements::all) {
    using PerchAppLibrary::JSON;
    using PerchAppLibrary::MemberOrder;
    using One = std::shared_ptr<Item>; // not the one of a base
    if constexpr (requires(MemberOrder& order) {
                      { Item::createOneOfMany(json, order, order) } -> std::same_as<One>;
                  }) {
        MemberOrder order;
        MemberOrder innerOrder;
        return makeEach<Item>(json, which, [&](const JSON& element) {
            return Item::createOneOfMany(element, order, innerOrder);
        });
    } else {
        return makeEach<Item>(json, which, [](const JSON& element) { return Item::create(element); });
    }
}

/// Destroys the records that nobody else holds, and what hangs below them, in a loop: a chain of groups of any length
/// would otherwise be taken down by as many nested destructors. `takeChildren` moves the children out of an item.
/// Where there is no memory for the list of what is left, nested destructors do the rest.
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
