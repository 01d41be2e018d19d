// What must not compile, and what the compiler then says. refused.sh compiles this file without a
// case, and once for each of these lines, with the macro defined so: MACRO=code // message.
//
// clang-format off
// PROPERTY=PERCH_PROPERTY(int, Count) // Count has the type int, which no property can have
// PROPERTY=PERCH_PROPERTY(std::optional<float>, Weight) // Weight has the type std::optional<float>, which
// PROPERTY=PERCH_PROPERTY(std::vector<std::shared_ptr<int>>, Items) // objects that are no records
// PROPERTY=PERCH_PROPERTY(Rare<std::int64_t>, Seldom) // Seldom has the type Rare<std::int64_t>
// PROPERTY=PERCH_PROPERTY(bool, First); PERCH_PROPERTY(bool, Second) // propertyAt|cannot be redeclared
// PROPERTY=PERCH_PROPERTY(bool, small) // PERCH_PROPERTY_SET_BY names the setter of small
// PROPERTY=PERCH_PROPERTY(std::map<int, int>, Sizes) // A type with a comma needs an alias
// PROPERTY=PERCH_COMPUTED(std::map<int, int>, Sizes) // A type with a comma needs an alias
// PROPERTY=PERCH_PROPERTY(Rare<std::string>, Seldom, "x") // Rare<std::string>, which takes no default
// PROPERTY=PERCH_PROPERTY(std::int64_t, Count, 3.5) // narrowing
// PROPERTY=PERCH_PROPERTY(std::vector<std::string>, Words, "a", "b") // many initializers|no viable conversion
// PROPERTY=enum class Kind {}; PERCH_COMPUTED(Kind, Sort) // Sort has the type Kind, which no comp
// PROPERTY=enum class Kind {}; PERCH_COMPUTED(std::optional<Kind>, Sort) // Sort has the type std::opt
// PROPERTY=PERCH_COMPUTED(Records<int>, Things) // Things has the type Records<int>, which no computed
// PROPERTY=PERCH_COMPUTED(char, Letter) // Letter has the type char, which no computed property
// PROPERTY=PERCH_PROPERTY(std::string, Text, nullptr) // The default of Text is no std::string: nullptr
// PROPERTY=PERCH_PROPERTY(std::vector<std::string>, Words, {nullptr}) // The default of Words is no
// PROPERTY=PERCH_CONSTANT(std::string, Text, 0) // The value of Text is no std::string: 0
// PROPERTY=PERCH_PROPERTY(bool, IsSet, "no") // The default of IsSet is no bool
// BASE=BaseEntity // does not name the direct base
// END= // Own needs PERCH_RECORD_END after its properties
// EFFECT=PERCH_PROPERTY(bool, Late) // Late does not stand between PERCH_RECORD and PERCH_RECORD
// EFFECT=PERCH_ON_CHANGE(forget, Format) // names a property of another class: Format
// EFFECT=PERCH_ON_CHANGE(remember, Stars) // remember of PERCH_ON_CHANGE must be noexcept
// CALL=FontSearchItem::create({"k", "u"}) // no matching
// CALL=FontSearchItem::create({.searchKey = "k", .userGuid = "u"}) // declaration order|no matching|could not convert
// CALL=FontItem::create({.id = 7, .productName = "A"}) // no matching
// CALL=FontItem::create({.id = 7, .productName = "A", .isPrivat = true}) // no matching
// CALL=FontItem::create(FontItem::ReferenceLabels{.id = 7, .productNmae = "A"}) // no non-static data member named|does not refer to any field
// CALL=FontItem::create({.id = 7, .productName = "A", .isPrivate = "no"}) // no matching
// CALL=FontItem::create({.id = 7.5, .productName = "A", .isPrivate = true}) // no matching
// CALL=Own::create({.id = 7, .productName = "A"}) // no matching
// CALL=Own::create({.productName = "A"}) // no matching
// CALL=UserFontGroupMapItem::create({.userGuid = "u", .fontList = {}}) // no matching
// CALL=UserFontGroupMapItem::create({.userGuid = "u", .fontList = 3}) // no matching
// CALL=UserFontGroupMapItem::create({.userGuid = "u", .fontList = {3, nullptr}}) // no matching
// CALL=UserFontGroupMapItem::create({.userGuid = "u", .fontList = nullptr}) // no matching
// CALL=FontItem::create({.productName = nullptr}) // no matching
// CALL=FontItem::create({.productName = 65}) // no matching
// CALL=font.getLocalPreviewFile({true, "S", "B", 32}) // no matching
// CALL=EnterpriseUser user // abstract
// CALL=ConfigItem::create(json) // no matching
// CALL=FontItem::create("{}") // no matching
// CALL=FontList list("[]") // deleted
// CALL=font.setValue("{}") // deleted
// CALL=font.setIsGroup("false") // deleted
// CALL=font.setIsFree("false") // deleted
// CALL=UserFontGroupMapItem::create({.userGuid = "u", .fontList = std::size_t(3)}) // no matching
// CALL=(void)FontList::parse("[]").begin() // deleted
// CALL=json["a"] = 5 // deleted
// CALL=json["list"][0] = 7 // deleted
// CALL=ClientOperaItem::create()->setPlatformId(2) // has no member|no member named
// NO_SCHEMA= // PERCH_RECORD_SCHEMA.Own. needs #include <PerchAppLibrary/record/RecordSchema.hpp>
// CALL=(void)json.as<unsigned>() // JSON::as<T>..: T is
// clang-format on
#include <VelmoCloudEntity/account/EsUserItem.hpp>
#include <VelmoCloudEntity/account/UserFontGroupMapItem.hpp>
#include <VelmoCloudEntity/catalogue/FontSearchItem.hpp>
#include <VelmoCloudEntity/client/ClientOperaItem.hpp>
#include <VelmoCloudEntity/client/ConfigItem.hpp>
#include <VelmoCloudEntity/entity/ExceptionItem.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#ifndef NO_SCHEMA
#include <PerchAppLibrary/record/RecordSchema.hpp>
#endif

#include <map>
#include <tuple>

using namespace PerchAppLibrary;
using namespace VelmoCloudEntity;

#ifndef PROPERTY
#define PROPERTY
#endif
#ifndef BASE
#define BASE FontItem
#endif
#ifndef END
#define END PERCH_RECORD_END
#endif
#ifndef EFFECT
#define EFFECT PERCH_ON_CHANGE(forget, Stars)
#endif
#ifndef CALL
#define CALL
#endif

class Own : public FontItem {
    PERCH_RECORD(Own, FontItem);

    PERCH_PROPERTY(std::int64_t, Stars);
    PROPERTY;
    END;
    EFFECT;
    PERCH_INHERIT_LABELS(ReferenceLabels);

    void forget() noexcept {}
    void remember() {}
};
PERCH_RECORD_SCHEMA(Own);

class Skipping : public FontItem {
    PERCH_RECORD(Skipping, BASE);
    PERCH_RECORD_END;
    virtual int area() const = 0; // a client's class may be abstract
};
PERCH_RECORD_SCHEMA(Skipping);

struct EnterpriseUser : EsUserItem {};

void calls(const JSON& json, FontItem& font) {
    Own::create({.id = 7, .productName = "A", .isPrivate = true});
    FontSearchItem::create({.userGuid = "u", .searchKey = "k"});
    UserFontGroupMapItem::create({.userGuid = "u", .fontList = {std::make_shared<FontItem>()}});
    EsUserItem::create<EnterpriseUser>(json);
    font.setIsGroup(0);                // an integer is a flag
    const JSON& first = *json.begin(); // a copy, which lives as long
    const auto& chained = FontList::parse("[{}]")[0];
    const auto& dictionary = ExceptionItem().Dict();
    (void)std::tie(first, chained, dictionary);
    font.getLocalPreviewFile({.isFixed = true, .previewTag = "S", .colorTag = "B", .fontSize = 32});
    CALL;
}
