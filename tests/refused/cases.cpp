// What must not compile, and what the compiler then says. refused.sh compiles this file once for
// each case, and once without one. A case begins with `#ifdef REFUSED_name // text of the message`.
#include <VelmoCloudEntity/account/EsUserItem.hpp>
#include <VelmoCloudEntity/catalogue/FontSearchItem.hpp>
#include <VelmoCloudEntity/client/ConfigItem.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

using namespace PerchAppLibrary;
using namespace VelmoCloudEntity;

struct NoRecord {};

class Own : public FontItem {
    PERCH_RECORD(Own, FontItem);

    PERCH_PROPERTY(std::int64_t, Stars);
#ifdef REFUSED_int // Count has the type int, which no property can have
    PERCH_PROPERTY(int, Count);
#endif
#ifdef REFUSED_double // Weight has the type double, which no property can have
    PERCH_PROPERTY(double, Weight);
#endif
#ifdef REFUSED_sharedNoRecords // Items is an array of shared objects that are no records
    PERCH_PROPERTY(std::vector<std::shared_ptr<NoRecord>>, Items);
#endif
#ifdef REFUSED_rareInt // Seldom has the type Rare<std::int64_t>, which no property can have
    PERCH_PROPERTY(Rare<std::int64_t>, Seldom);
#endif
#ifdef REFUSED_twoOnALine // onePropertyPerLine
    // clang-format off
    PERCH_PROPERTY(std::int64_t, First); PERCH_PROPERTY(std::int64_t, Second);
    // clang-format on
#endif
#ifdef REFUSED_smallLetter // PERCH_PROPERTY_SET_BY names the setter of small
    PERCH_PROPERTY(std::int64_t, small);
#endif
#ifdef REFUSED_anotherBase // does not name the direct base
#define SKIPPING_BASE BaseEntity
#else
#define SKIPPING_BASE FontItem
#endif
#ifndef REFUSED_noEnd // Own needs PERCH_RECORD_END after its properties
    PERCH_RECORD_END;
#endif

#ifdef REFUSED_late // Late does not stand between PERCH_RECORD and PERCH_RECORD_END
    PERCH_PROPERTY(std::int64_t, Late);
#endif

#ifdef REFUSED_effectOfOthers // PERCH_ON_CHANGE names a property of another class: Format
    PERCH_ON_CHANGE(forget, Format);
#elif defined REFUSED_effectThatThrows // remember of PERCH_ON_CHANGE must be noexcept
    PERCH_ON_CHANGE(remember, Stars);
#else
    PERCH_ON_CHANGE(forget, Stars);
#endif

    void forget() noexcept {}
    void remember() {}
};
PERCH_RECORD_SCHEMA(Own);

class Skipping : public FontItem {
    PERCH_RECORD(Skipping, SKIPPING_BASE);
    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(Skipping);

struct EnterpriseUser : EsUserItem {};

void calls(const JSON& json, FontItem& font) {
    Own::create({.id = 7, .productName = "A", .isPrivate = true});
    FontSearchItem::create({.userGuid = "u", .searchKey = "k"});
    EsUserItem::create<EnterpriseUser>(json);
    font.getLocalPreviewFile({.isFixed = true, .previewTag = "S", .colorTag = "B", .fontSize = 32});
#ifdef REFUSED_labelsLeftOut // no matching
    FontSearchItem::create({"k", "u"});
#endif
#ifdef REFUSED_labelMissing // no matching
    FontItem::create({.id = 7, .productName = "A"});
#endif
#ifdef REFUSED_labelOfAnotherType // no matching
    FontItem::create({.id = 7, .productName = "A", .isPrivate = "no"});
#endif
#ifdef REFUSED_labelThatLoses // no matching
    FontItem::create({.id = 7.5, .productName = "A", .isPrivate = true});
#endif
#ifdef REFUSED_labelMisspelt // no matching
    FontItem::create({.id = 7, .productName = "A", .isPrivat = true});
#endif
#ifdef REFUSED_labelsSwapped // (no matching|designator order|in declaration order)
    FontSearchItem::create({.searchKey = "k", .userGuid = "u"});
#endif
#ifdef REFUSED_inheritedLabelMissing // no matching
    Own::create({.id = 7, .productName = "A"});
#endif
#ifdef REFUSED_locationLabelsLeftOut // no matching
    font.getLocalPreviewFile({true, "S", "B", 32});
#endif
#ifdef REFUSED_withoutJSON // isMadeByCreateFromJSON
    EnterpriseUser user;
#endif
#ifdef REFUSED_configFromJSON // no matching
    ConfigItem::create(json);
#endif
#ifdef REFUSED_recordOfText // no matching
    FontItem::create("{}");
#endif
#ifdef REFUSED_listOfText // deleted
    FontList list("[]");
#endif
#ifdef REFUSED_valueOfText // deleted
    font.setValue("{}");
#endif
#ifdef REFUSED_asUnsigned // JSON::as<T>..: T is
    (void)json.as<unsigned>();
#endif
}
