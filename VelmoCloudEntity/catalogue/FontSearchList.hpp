#pragma once

#include <VelmoCloudEntity/catalogue/FontSearchItem.hpp>
#include <VelmoCloudEntity/entity/RecordList.hpp>

namespace VelmoCloudEntity {

/// The search keys that the service sends.
class FontSearchList : public RecordList<FontSearchList, FontSearchItem> {
public:
    using RecordList::RecordList;
    static constexpr auto parsing = Parsing::direct;
};

} // namespace VelmoCloudEntity
