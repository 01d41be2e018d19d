#include <VelmoCloudEntity/account/UserFontMap.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

namespace VelmoCloudEntity {

PERCH_RECORD_SCHEMA(UserFontMap);

void UserFontMap::initFromJSON(const PerchAppLibrary::JSON& json) {
    static const PerchAppLibrary::Excluded skipped{"FontList"};
    BaseEntity::setValue(json, skipped);
    setFontList(makeRecords<FontItem>(json["FontList"]));
}

} // namespace VelmoCloudEntity
