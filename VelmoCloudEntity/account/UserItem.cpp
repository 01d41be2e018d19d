#include <VelmoCloudEntity/account/UserItem.hpp>

#include <PerchAppLibrary/container/NoDestructor.hpp>
#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <initializer_list>

namespace VelmoCloudEntity {

using PerchAppLibrary::Dictionary;
using PerchAppLibrary::Excluded;
using PerchAppLibrary::Included;
using PerchAppLibrary::JSON;
using PerchAppLibrary::NoDestructor;

PERCH_RECORD_SCHEMA(UserItem);

namespace {

/// Keys of the user's fonts, which the mapping ignores.
constexpr std::initializer_list<const char*> fontLists{"Fonts", "Activates", "Favorites", "Systems",
                                                       "Personals"};

} // namespace

void UserItem::setValue(const JSON& json) {
    static const NoDestructor<Included> included(fontLists);
    setValue(json, *included);
}

void UserItem::setValue(const JSON& json, Included) {
    static const NoDestructor<Excluded> excluded(fontLists);
    fill(json, *excluded);
}

Dictionary UserItem::Dict() const { return properties(); }

Dictionary UserItem::getDict(const std::vector<std::string>& names) const { return select(names); }

} // namespace VelmoCloudEntity
