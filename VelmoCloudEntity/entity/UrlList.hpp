#pragma once

#include <VelmoCloudEntity/entity/LowercaseRecordList.hpp>
#include <VelmoCloudEntity/entity/UrlItem.hpp>

namespace VelmoCloudEntity {

/// A list of named addresses.
class UrlList : public LowercaseRecordList<UrlList, UrlItem> {
public:
    using LowercaseRecordList::LowercaseRecordList;
    static constexpr auto parsing = Parsing::direct;
};

} // namespace VelmoCloudEntity
