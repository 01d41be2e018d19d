#pragma once

#include <VelmoCloudEntity/entity/RecordList.hpp>

#include <utility>

namespace VelmoCloudEntity {

/// A RecordList whose array is named `list`, as the service spells it.
template <class Item>
class LowercaseRecordList : private RecordList<Item> {
public:
    using RecordList<Item>::RecordList;

    /// The records, in order. The array lives as long as the list: copy it from one that is about to go.
    const Records<Item>& list() const noexcept { return this->List(); }
    void setList(Records<Item> newList) { RecordList<Item>::setList(std::move(newList)); }
};

} // namespace VelmoCloudEntity
