#include <PerchAppLibrary/BaseEntity.hpp>

#include <PerchAppLibrary/BaseExceptionEntity.hpp>
#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/entity/UrlList.hpp>

#include <gtest/gtest.h>

#include <concepts>
#include <limits>

using namespace PerchAppLibrary;
using namespace VelmoCloudEntity;

namespace {

#ifdef __clang__
#pragma clang diagnostic ignored \
    "-Winconsistent-missing-override" // of the property that is declared again
#endif

/// A client's own record on top of one of the library's: further properties, one of a base's name,
/// a computed one.
class StarredFont : public FontItem {
    PERCH_RECORD(StarredFont, FontItem);

    PERCH_PROPERTY(std::int64_t, Stars, 3);
    PERCH_PROPERTY_SET_BY(std::string, note_text, setNote_text, "none");
    PERCH_PROPERTY(float, Weight, 400.5F);
    PERCH_COMPUTED(std::string, Badge);
    PERCH_PROPERTY(std::string, Token, "again"); // the base has one as well

    PERCH_RECORD_END;

public:
    using BaseEntity::reflect;
    void setVersion(std::string newVersion) override {
        FontItem::setVersion(newVersion.empty() ? newVersion : "v" + newVersion);
    }
};
PERCH_RECORD_SCHEMA(StarredFont);
std::string StarredFont::Badge() const {
    return ProductName() + std::string(static_cast<std::size_t>(Stars()), '*');
}

TEST(BaseEntity, DeclaresItsPropertiesInTheirOrder) {
    std::string names;
    for (const auto& [name, value] : UrlItem::create()->properties())
        names.append(name).append(" ");
    EXPECT_EQ(names, "Guid Id IsDisabled ErrorCode Exception ExceptionCode ExceptionMessage "
                     "TimeStamp DateStamp Token "
                     "Name Url ");
}

TEST(BaseEntity, ReadsAnyPropertyByName) {
    const auto font =
        StarredFont::create(JSON::parse(R"({"ProductName":"A","Stars":2,"Tags":[4,7],"Id":9})"));
    const std::pair<const char*, const char*> expected[] = {
        {"Id", "9"},
        {"Stars", "2"},
        {"Tags", "[4,7]"},
        {"note_text", R"("none")"},
        {"Badge", R"("A**")"},
        {"Weight", "4.005E2"},
        {"DisplayName", R"("A")"},
        {"IsActivated", "false"},
        {"Children", "[]"},
    };
    for (const auto& [name, text] : expected)
        EXPECT_EQ(toText(font->value(name)), text) << name;
    EXPECT_TRUE(font->value("Dict").is_object());
    EXPECT_TRUE(font->value("Font").is_object());
    for (const char* const unknown : {"", "id", "Badge ", "setId", "value"}) {
        try {
            (void)font->value(unknown);
            ADD_FAILURE() << unknown;
        } catch (const UndefinedKeyError& error) {
            EXPECT_EQ(error.className(), "StarredFont");
            EXPECT_EQ(error.key(), unknown);
            EXPECT_NE(std::string(error.what()).find("StarredFont"), std::string::npos);
        }
    }
}

TEST(BaseEntity, TakesAClientsOwnProperties) {
    const auto font = StarredFont::create();
    const Dictionary dictionary = font->Dict();
    EXPECT_EQ(dictionary.at("Stars").as_int64(), 3);
    EXPECT_EQ(dictionary.find("Badge"), dictionary.end());
    std::string tail;
    for (auto entry = dictionary.end() - 5; entry != dictionary.end(); ++entry)
        tail.append(entry->key()).append(" ");
    EXPECT_EQ(tail, "Stars note_text Weight Token Children ");
    EXPECT_EQ(font->schema().className(), "StarredFont");
    EXPECT_EQ(font->schema().ownProperties().size(), 5U);
    // An override is honoured in a class that declares properties too, and of two of a name its own
    // counts.
    for (const char* const json :
         {R"({"Version":"1","Token":"t"})", R"({"DateStamp":"x","Token":"t","Version":"1"})"}) {
        const auto filled = StarredFont::create(JSON::parse(json));
        EXPECT_EQ(filled->Version(), "v1");
        EXPECT_EQ(filled->Token(), "t") << json;
        EXPECT_EQ(filled->Dict().at("Token").as_string(), "t");
    }
}

TEST(BaseEntity, ExportsWhateverASetterWasGiven) {
    const auto font = StarredFont::create();
    font->setProductName("a\xFF\xC3(");
    font->setTags({std::numeric_limits<std::int64_t>::min(), -1});
    font->setWeight(std::numeric_limits<float>::infinity());
    EXPECT_EQ(font->ProductName(), "a\xFF\xC3(");
    const Dictionary dictionary = font->Dict();
    EXPECT_EQ(dictionary.at("ProductName").as_string(), "a\uFFFD\uFFFD(");
    EXPECT_TRUE(dictionary.at("Weight").is_null());
    font->setWeight(12.7F);
    // Written and read again, the export fills an equal record.
    const auto again = StarredFont::create(JSON::parse(toText(font->Dict())));
    EXPECT_EQ(again->Weight(), 12.7F);
    EXPECT_EQ(again->Tags(), font->Tags());
    EXPECT_EQ(toText(again->Dict()), toText(font->Dict()));
}

TEST(BaseEntity, ClearsTheExceptionThroughItsSetters) {
    const auto item = UrlItem::create(JSON::parse(
        R"({"Exception":true,"ErrorCode":5,"ExceptionCode":"c","ExceptionMessage":"m","Token":"t"})"));
    EXPECT_TRUE(item->Exception());
    item->clearException();
    EXPECT_FALSE(item->Exception());
    EXPECT_EQ(item->ErrorCode(), 0);
    EXPECT_EQ(item->ExceptionCode() + item->ExceptionMessage(), "");
    EXPECT_EQ(item->Token(), "t");
}

TEST(BaseEntityDeathTest, EndsTheProcessOverAnExclusionThatIsNoProperty) {
    const auto font = StarredFont::create();
    EXPECT_DEATH((void)font->reflect(Excluded{"Nonsense"}),
                 "StarredFont has no stored property \"Nonsense\"");
    EXPECT_DEATH((void)font->reflect(Excluded{"Badge"}), "Badge"); // computed
    EXPECT_DEATH((void)font->reflect(Excluded{"Id", "Id"}), "Id");
}

template <class Record>
concept TakesHalfAReference = requires { Record::create({.id = 7, .productName = "A"}); };
template <class Record>
concept TakesOtherOrder =
    requires { Record::create({.productName = "A", .id = 7, .isPrivate = true}); };
template <class Record>
concept TakesUnknownLabel = requires { Record::create({.name = "A"}); };
template <class Record>
concept TakesLossyArgument =
    requires { Record::create({.id = 7.5, .productName = "A", .isPrivate = true}); };
template <class Record>
concept TakesPointerForFlag =
    requires { Record::create({.id = 7, .productName = "A", .isPrivate = "no"}); };
template <class Record>
concept TakesReference =
    requires { Record::create({.id = 7, .productName = "A", .isPrivate = true}); };

static_assert(TakesReference<FontItem>);
static_assert(!TakesHalfAReference<FontItem> && !TakesUnknownLabel<FontItem>);
static_assert(!TakesLossyArgument<FontItem> && !TakesPointerForFlag<FontItem>);
static_assert(!std::copyable<FontItem> && !std::movable<FontItem>);
static_assert(std::default_initializable<FontItem>);

/// Overrides what a filling through the dynamic class would call.
template <class Record>
class Redirected : public Record {
public:
    using Record::setValue;
    void setValue(const JSON& json, Excluded) override {
        BaseEntity::setValue(json, Excluded{"UserGuid", "Name"});
    }
};

TEST(UrlList, MakesOneItemForEachElementOfAnArray) {
    const UrlList list(JSON::parse(R"([{"Name":"a","Url":"u"}, 5, null, {"Name":7}])"));
    ASSERT_EQ(list.list().size(), 4U);
    EXPECT_EQ(list.list()[0]->Url(), "u");
    EXPECT_EQ(list.list()[1]->Name(), "");
    EXPECT_EQ(list.list()[3]->Name(), "7");
    for (const char* const other : {"{\"list\":[{}]}", "null", "\"x\"", "3", "[]"})
        EXPECT_TRUE(UrlList(JSON::parse(other)).list().empty()) << other;
    EXPECT_EQ(UrlItem::create<Redirected<UrlItem>>(JSON::parse(R"({"Name":"n"})"))->Name(), "n");
}

TEST(UserFontActivateMapItem, TiesAUserToFonts) {
    const auto map = UserFontActivateMapItem::create(JSON::parse(
        R"({"Id":3,"UserGuid":"u","FontList":[{"Id":1,"IsGroup":true,"Children":[{"Id":2}]},5,{"ProductName":"B"}]})"));
    EXPECT_EQ(map->UserGuid(), "u");
    EXPECT_EQ(map->Id(), 3);
    ASSERT_EQ(map->FontList().size(), 3U);
    EXPECT_EQ(map->FontList()[0]->Children().at(0)->Id(), 2);
    EXPECT_EQ(map->FontList()[2]->ProductName(), "B");
    for (const char* const none :
         {R"({"UserGuid":"u"})", R"({"UserGuid":"u","FontList":null})",
          R"({"UserGuid":"u","FontList":"x"})", R"({"UserGuid":"u","FontList":{"Id":1}})"}) {
        const auto empty = UserFontActivateMapItem::create(JSON::parse(none));
        EXPECT_EQ(empty->UserGuid(), "u") << none;
        EXPECT_TRUE(empty->FontList().empty()) << none;
    }

    const Records<FontItem> fonts{FontItem::create({.productName = "shared"})};
    const auto given = UserFontActivateMapItem::create({.userGuid = "u", .fontList = fonts});
    fonts[0]->setId(8);
    EXPECT_EQ(given->FontList().at(0)->Id(), 8);
    EXPECT_TRUE(UserFontActivateMapItem::create({.userGuid = "u"})->FontList().empty());
    EXPECT_EQ(UserFontActivateMapItem::create()->UserGuid(), "");

    // It is filled by the base's own mapping, not by a subclass's.
    const auto redirected = UserFontActivateMapItem::create<Redirected<UserFontActivateMapItem>>(
        JSON::parse(R"({"UserGuid":"u","FontList":[{}]})"));
    EXPECT_EQ(redirected->UserGuid(), "u");
    EXPECT_EQ(redirected->FontList().size(), 1U);
}

TEST(BaseExceptionEntity, KeepsWhatItWasGiven) {
    const BaseExceptionEntity error("002004",
                                    {{"Ch", "验证码记录失败"}, {"En", "Code record fail."}});
    EXPECT_EQ(error.code(), "002004");
    EXPECT_EQ(error.msgDict().at("En"), "Code record fail.");
}

} // namespace
