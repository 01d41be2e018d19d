#pragma once

#include <VelmoCloudEntity/entity/RecordList.hpp>
#include <VelmoCloudEntity/entity/UrlItem.hpp>

#include <utility>

namespace VelmoCloudEntity {

/// A list of named addresses.
class UrlList : private RecordList<UrlItem> {
public:
    /// An empty list.
    UrlList() = default;

    /// One item for each element of a JSON array, in order; empty for any other value.
    explicit UrlList(const PerchAppLibrary::JSON& json) : RecordList(json) {}

    /// The items, in order.
    const Records<UrlItem>& list() const noexcept { return items(); }
    void setList(Records<UrlItem> newList) { setItems(std::move(newList)); }
};

} // namespace VelmoCloudEntity
