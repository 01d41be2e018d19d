#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>

#include <utility>

namespace VelmoCloudEntity {

/// What the list wrappers have in common: an array of records that is read from a JSON array. A wrapper names
/// its array, and says which elements become records. A plain value; copies share the records.
template <class Item>
class RecordList {
protected:
    RecordList() = default;
    explicit RecordList(const PerchAppLibrary::JSON& json, Elements which = Elements::all)
        : m_items(makeRecords<Item>(json, which)) {}

    const Records<Item>& items() const noexcept { return m_items; }
    void setItems(Records<Item> newItems) { m_items = std::move(newItems); }

private:
    Records<Item> m_items;
};

} // namespace VelmoCloudEntity
