// What single types of records do besides what RecordTableTest.cpp expects of all.
#include <VelmoCloudEntity/account/UserFontGroupMapItem.hpp>
#include <VelmoCloudEntity/account/UserItem.hpp>
#include <VelmoCloudEntity/client/ConfigItem.hpp>
#include <VelmoCloudEntity/entity/ExceptionItem.hpp>

#include "RecordTesting.hpp"

#include <PerchAppLibrary/BaseExceptionEntity.hpp>

using namespace VelmoCloudEntity;
using namespace PerchAppLibrary;

namespace {

TEST(Labels, SetTheirPropertiesAndNoOthers) {
    const auto user = UserItem::create({.guid = "g", .email = "e", .code = "1234", .pwd = "p"});
    EXPECT_EQ(changed(user), R"({"Guid":"g","TelCode":"1234","Email":"e","Pwd":"p"})");
    EXPECT_EQ(changed(FontItem::create({.groupTag = "x"})), R"({"IsGroup":true,"GroupTag":"x"})");
    const Records<FontItem> fonts{FontItem::create(), FontItem::create()};
    const auto map = UserFontGroupMapItem::create({.userGuid = "u", .fontList = fonts});
    EXPECT_EQ(map->FontList(), fonts) << "a map shares its fonts";
    EXPECT_EQ(map->UserGuid(), "u");
}

/// Properties under keys that a user never takes, and an array of records.
class UserWithFonts : public UserItem {
    PERCH_RECORD(UserWithFonts, UserItem);

    PERCH_PROPERTY(Records<FontItem>, Fonts);
    PERCH_PROPERTY(std::string, Personals);
    PERCH_PROPERTY(Records<FontItem>, Owned);

    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(UserWithFonts);

TEST(UserItem, LeavesTheListsOfFontsToTheUserFontMaps) {
    struct DetourUser : UserWithFonts {
        using UserWithFonts::setValue;
        void setValue(const JSON& json, Included included) override {
            for (const std::string& key : included.keys())
                keys += key + " ";
            UserItem::setValue(json, Included{"Tel"}); // the list makes no difference
        }
        std::string keys;
    };
    const JSON json = JSON::parse(R"({"Tel":"1","Fonts":[{}],"Personals":"p","Owned":[{}]})");
    const auto user = UserItem::create<DetourUser>(json);
    EXPECT_EQ(user->keys, "Fonts Activates Favorites Systems Personals ");
    for (const auto& filled : {UserWithFonts::create(json), std::shared_ptr<UserWithFonts>(user)}) {
        EXPECT_EQ(std::tuple(filled->Fonts().size(), filled->Owned().size()), std::tuple(0U, 1U));
        filled->setOwned({});
        EXPECT_EQ(changed(filled), R"({"Tel":"1"})");
        // From its own JSON, which it replaces meanwhile.
        filled->setSms_token(JSON::parse(R"({"sms_token":"inner","Owned":[{},{}]})"));
        filled->setFonts({FontItem::create()});
        filled->setValue(filled->sms_token());
        EXPECT_EQ(std::tuple(filled->Fonts().size(), filled->Owned().size()), std::tuple(1U, 2U));
    }
}

TEST(UserItem, GivesTheNamedPropertiesInTheirOrder) {
    const auto user = UserItem::create({.guid = "g", .tel = "t"});
    user->setUriList({"b", "a"});
    EXPECT_EQ(toText(user->getDict({"uriList", "Tel", "Id", "Guid", "Tel"})),
              R"({"uriList":["b","a"],"Tel":"t","Id":0,"Guid":"g"})");
    EXPECT_THROW((void)user->getDict({"Tel", "Fonts"}), UndefinedKeyError);
}

TEST(ConfigItem, KnowsTheFixedPreviewTagsAndTheDesignApplications) {
    struct ClientConfig : ConfigItem {
        const std::string& PreviewTag() const override { return Guid(); }
        std::int64_t InteractionAppTag() const override { return Id(); }
    };
    ClientConfig config;
    std::string fixed, names;
    for (const std::string tag : {"S", "F", "N", "E", "B", "", "s", "SF", " S", "Ｓ"}) {
        config.setGuid(tag);
        fixed += config.UseFixPreviewTag() ? tag + "," : "";
    }
    EXPECT_EQ(fixed, "S,F,N,E,");
    for (const std::int64_t tag : {-1LL, 0LL, 1LL, 2LL, 3LL, 4LL, 5LL, 6LL, 7LL, 1LL << 32}) {
        config.setId(tag);
        names += config.InteractionAppTagName() + ",";
    }
    EXPECT_EQ(names, ",ps,ai,id,ppt,word,sketch,keynote,,,");
}

TEST(ExceptionItem, HasTheMessagesOfItsCodes) {
    const ExceptionItem item, other;
    EXPECT_EQ(item.Dict().size(), 26U);
    for (const auto& [code, messages] : {std::pair("000000", "访问受限|Access rejected."),
                                         {"001001", "|"},
                                         {"006004", "目标微信已占用|微信 used."}}) {
        const auto& entry = item.Dict().at(code);
        EXPECT_EQ(entry->code(), code);
        EXPECT_EQ(entry->msgDict().at("Ch") + "|" + entry->msgDict().at("En"), messages);
        EXPECT_NE(entry, other.Dict().at(code)) << "each item has a table of its own";
    }
}

} // namespace
