// What single types of records do besides what RecordTableTest.cpp expects of all.
#include <VelmoCloudEntity/account/UserFontGroupMapItem.hpp>
#include <VelmoCloudEntity/account/UserItem.hpp>
#include <VelmoCloudEntity/catalogue/FontApplyItem.hpp>
#include <VelmoCloudEntity/catalogue/FontSearchItem.hpp>
#include <VelmoCloudEntity/client/ClientOperaItem.hpp>
#include <VelmoCloudEntity/client/ClientVersionItem.hpp>
#include <VelmoCloudEntity/client/ConfigItem.hpp>
#include <VelmoCloudEntity/entity/ExceptionItem.hpp>

#include "RecordTesting.hpp"

#include <PerchAppLibrary/BaseExceptionEntity.hpp>
#include <PerchAppLibrary/container/uniqueMap.hpp>

using namespace VelmoCloudEntity;
using namespace PerchAppLibrary;

namespace {

template <class Record>
void expectMade(const std::shared_ptr<Record>& record, const char* properties) {
    EXPECT_EQ(changed(record), properties);
}

TEST(Labels, SetThePropertiesOfAUserAndNoOthers) {
    expectMade(UserItem::create({.guid = "g"}), R"({"Guid":"g"})");
    expectMade(UserItem::create({.tel = "t"}), R"({"Tel":"t"})");
    expectMade(UserItem::create({.guid = "g", .tel = "t"}), R"({"Guid":"g","Tel":"t"})");
    expectMade(UserItem::create({.guid = "g", .email = "e"}), R"({"Guid":"g","Email":"e"})");
    expectMade(UserItem::create({.guid = "g", .tel = "t", .telCode = "c", .pwd = "p"}),
               R"({"Guid":"g","Tel":"t","TelCode":"c","Pwd":"p"})");
    expectMade(UserItem::create({.guid = "g", .email = "e", .code = "1234", .pwd = "p"}),
               R"({"Guid":"g","TelCode":"1234","Email":"e","Pwd":"p"})");
    expectMade(
        UserItem::create({.guid = "g", .clientVersion = "v", .clientOemTag = "o", .disksn = "d"}),
        R"({"Guid":"g","ClientVersion":"v","ClientOemTag":"o","Disksn":"d"})");
    expectMade(UserItem::create({.guid = "g", .clientOemTag = "o"}),
               R"({"Guid":"g","ClientOemTag":"o"})");
    expectMade(UserItem::create({.guid = "g", .qqOpenId = "q", .uid = "u", .photoUrl = "h"}),
               R"({"Guid":"g","QqOpenId":"q","Uid":"u","PhotoUrl":"h"})");
    expectMade(
        UserItem::create(
            {.guid = "g", .weChatOpenId = "w", .weChatUnionId = "n", .uid = "u", .photoUrl = "h"}),
        R"({"Guid":"g","WeChatOpenId":"w","WeChatUnionId":"n","Uid":"u","PhotoUrl":"h"})");
    expectMade(
        UserItem::create(
            {.tel = "t", .pwd = "p", .clientVersion = "v", .clientOemTag = "o", .disksn = "d"}),
        R"({"Tel":"t","Pwd":"p","ClientVersion":"v","ClientOemTag":"o","Disksn":"d"})");
    expectMade(
        UserItem::create(
            {.tel = "t", .telCode = "c", .pwd = "p", .clientVersion = "v", .clientOemTag = "o"}),
        R"({"Tel":"t","TelCode":"c","Pwd":"p","ClientVersion":"v","ClientOemTag":"o"})");
    expectMade(
        UserItem::create(
            {.email = "e", .pwd = "p", .clientVersion = "v", .clientOemTag = "o", .disksn = "d"}),
        R"({"Email":"e","Pwd":"p","ClientVersion":"v","ClientOemTag":"o","Disksn":"d"})");
    expectMade(
        UserItem::create({.email = "e", .pwd = "p", .clientVersion = "v", .clientOemTag = "o"}),
        R"({"Email":"e","Pwd":"p","ClientVersion":"v","ClientOemTag":"o"})");
}

TEST(Labels, SetThePropertiesOfOtherRecordsAndNoOthers) {
    expectMade(FontItem::create({.productName = "A"}), R"({"ProductName":"A"})");
    expectMade(FontItem::create({.groupTag = "x"}), R"({"IsGroup":true,"GroupTag":"x"})");
    expectMade(FontItem::create({.id = 7, .productName = "A", .isPrivate = true}),
               R"({"Id":7,"ProductName":"A","IsPrivate":true})");
    expectMade(FontSearchItem::create({.userGuid = "u", .searchKey = "k"}),
               R"({"UserGuid":"u","SearchKey":"k"})");
    expectMade(FontApplyItem::create(
                   {.userGuid = "u", .fontId = 7, .platformId = 0, .appTag = "t", .content = "c"}),
               R"({"UserGuid":"u","FontId":7,"PlatformId":0,"AppTag":"t","Content":"c"})");
    expectMade(ClientOperaItem::create({.userGuid = "u", .clientVersion = "2", .operaTag = "t"}),
               R"({"UserGuid":"u","ClientVersion":"2","OperaTag":"t"})");
    expectMade(ClientVersionItem::create({.version = "3", .versionTag = "t"}),
               R"({"Version":"3","VersionTag":"t"})");
    expectMade(ClientVersionItem::create({.platformId = 3}), R"({"PlatformId":3})");
    expectMade(UserFontGroupMapItem::create({.userGuid = "u"}), R"({"UserGuid":"u"})");
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
        filled->setValue(filled->sms_token());
        EXPECT_EQ(filled->Owned().size(), 2U);
    }
}

TEST(UserItem, GivesTheNamedPropertiesInTheirOrder) {
    const auto user = UserItem::create({.guid = "g", .tel = "t"});
    user->setUriList({"b", "a"});
    EXPECT_EQ(toText(user->getDict({})), "{}");
    EXPECT_EQ(toText(user->getDict({"uriList", "Tel", "Id", "Guid", "Tel"})),
              R"({"uriList":["b","a"],"Tel":"t","Id":0,"Guid":"g"})");
    for (const char* const unknown : {"tel", "Fonts", "", "Code"})
        EXPECT_THROW((void)user->getDict({"Tel", unknown}), UndefinedKeyError) << unknown;
}

TEST(ConfigItem, KnowsTheFixedPreviewTagsAndTheDesignApplications) {
    struct ClientConfig : ConfigItem {
        const std::string& PreviewTag() const override { return Guid(); }
        std::int64_t InteractionAppTag() const override { return Id(); }
    };
    ClientConfig config;
    std::string fixed;
    for (const std::string tag : {"S", "F", "N", "E", "B", "", "s", "SF", " S", "Ｓ"}) {
        config.setGuid(tag);
        fixed += config.UseFixPreviewTag() ? tag + "," : "";
    }
    EXPECT_EQ(fixed, "S,F,N,E,");
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    const std::pair<std::int64_t, const char*> cases[] = {
        {0, "ps"},      {1, "ai"}, {2, "id"}, {3, "ppt"}, {4, "word"},     {5, "sketch"},
        {6, "keynote"}, {7, ""},   {-1, ""},  {most, ""}, {-most - 1, ""}, {1LL << 32, ""}};
    for (const auto& [tag, name] : cases) {
        config.setId(tag);
        EXPECT_EQ(config.InteractionAppTagName(), name) << tag;
    }
}

TEST(ExceptionItem, HasTheMessagesOfItsCodes) {
    const char* const rows[][3] = {
        {"000000", "访问受限", "Access rejected."},
        {"001001", "", ""},
        {"004003", "会员到期时间戳格式错误", "MemberLimitTimeStamp format error."},
        {"006004", "目标微信已占用", "微信 used."}};
    const ExceptionItem item, other;
    EXPECT_EQ(item.Dict().size(), 26U);
    for (const auto& [code, chinese, english] : rows) {
        const auto& entry = item.Dict().at(code);
        EXPECT_EQ(entry->code() + entry->msgDict().at("Ch") + entry->msgDict().at("En"),
                  std::string(code) + chinese + english);
        EXPECT_NE(entry, other.Dict().at(code)) << "each item has a table of its own";
    }
}

TEST(ExceptionItemDeathTest, EndsTheProcessOverACodeThatComesTwice) {
    EXPECT_EQ(uniqueMap<int>({{"a", 1}, {"b", 1}}).size(), 2U);
    EXPECT_DEATH(uniqueMap<int>({{"a", 1}, {"b", 2}, {"a", 1}}), "\"a\" comes twice");
}

} // namespace
