#pragma once

#include <VelmoCloudEntity/entity/UncapitalizedRecordList.hpp>
#include <VelmoCloudEntity/entity/UrlItem.hpp>

namespace VelmoCloudEntity {

/// A list of named addresses.
class UrlList : public UncapitalizedRecordList<UrlItem> {
public:
    using UncapitalizedRecordList::UncapitalizedRecordList;
};

} // namespace VelmoCloudEntity
