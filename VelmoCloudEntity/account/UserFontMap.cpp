#include <VelmoCloudEntity/account/UserFontMap.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <utility>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(UserFontMap);

void UserFontMap::init(UserLabels labels) { setUserGuid(std::move(labels.userGuid.value)); }

void UserFontMap::init(UserFontsLabels labels) {
    setUserGuid(std::move(labels.userGuid.value));
    setFontList(std::move(labels.fontList.value));
}

void UserFontMap::initFromJSON(const PerchAppLibrary::JSON& json) {
    static const PerchAppLibrary::Excluded skipped{"FontList"};
    BaseEntity::setValue(json, skipped);
    setFontList(makeRecords<FontItem>(json["FontList"]));
}

} // namespace VelmoCloudEntity
