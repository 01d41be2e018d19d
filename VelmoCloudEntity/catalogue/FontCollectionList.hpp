#pragma once

#include <VelmoCloudEntity/catalogue/FontCollectionItem.hpp>
#include <VelmoCloudEntity/entity/RecordList.hpp>

namespace VelmoCloudEntity {

/// The collections that the service sends.
class FontCollectionList : public RecordList<FontCollectionList, FontCollectionItem> {
public:
    using RecordList::RecordList;
    static constexpr auto parsing = Parsing::direct;
};

} // namespace VelmoCloudEntity
