#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>

#include <utility>

namespace VelmoCloudEntity {

/// What the list wrappers have in common: an array of records that is read from a JSON array. A plain value;
/// copies share the records.
template <class Item, Elements which = Elements::all>
class RecordList {
public:
    /// An empty list.
    RecordList() = default;

    /// One record for each element of a JSON array, or for each that is an object, in order; empty for any other value.
    explicit RecordList(const PerchAppLibrary::JSON& json) : m_items(makeRecords<Item>(json, which)) {}

    /// The records, in order. The array lives as long as the list: copy it from one that is about to go.
    const Records<Item>& List() const noexcept { return m_items; }
    void setList(Records<Item> newList) { m_items = std::move(newList); }

private:
    Records<Item> m_items;
};

} // namespace VelmoCloudEntity
