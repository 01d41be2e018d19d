#pragma once

#include <VelmoCloudEntity/entity/RecordList.hpp>

#include <utility>

namespace VelmoCloudEntity {

/// A list wrapper whose array is named `list`, in lower case.
template <class ListClass, class Item>
class LowercaseRecordList : public RecordRange<ListClass, Item> {
public:
    using RecordRange<ListClass, Item>::RecordRange;

    /// Returns the records, in order. Like RecordList::List().
    const Records<Item>& list() const& noexcept { return this->m_records; }
    Records<Item> list() && noexcept { return std::move(this->m_records); }

    /// Replaces the records.
    void setList(Records<Item> newList) { this->m_records = std::move(newList); }
};

} // namespace VelmoCloudEntity
