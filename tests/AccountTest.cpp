#include <VelmoCloudEntity/account/EsUserItem.hpp>
#include <VelmoCloudEntity/account/PhoneNumberPrefixList.hpp>
#include <VelmoCloudEntity/account/SmsTokenItem.hpp>
#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/account/UserFontFavoriteMapItem.hpp>
#include <VelmoCloudEntity/account/UserFontGroupMapItem.hpp>
#include <VelmoCloudEntity/account/UserItem.hpp>

#include "Changes.hpp"

#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <gtest/gtest.h>

#include <concepts>
#include <limits>

using namespace VelmoCloudEntity;
using namespace PerchAppLibrary;

namespace {

/// Overrides the setter through which a user gets its identifier.
struct GuidUser : UserItem {
    void setGuid(std::string newGuid) override { UserItem::setGuid("set " + newGuid); }
};

template <class Labels>
std::string made(Labels labels) {
    return toText(changes(*UserItem::create<GuidUser>(std::move(labels)), UserItem()));
}

TEST(UserItem, IsMadeForEachRequest) {
    const std::pair<std::shared_ptr<UserItem>, const char*> cases[] = {
        {UserItem::create<GuidUser>(), "{}"},
        {UserItem::create<GuidUser>(JSON::parse(R"({"Guid":"g","Pwd":"p"})")),
         R"({"Guid":"set g","Pwd":"p"})"},
        {UserItem::create<GuidUser>({.guid = "g"}), R"({"Guid":"set g"})"},
        {UserItem::create<GuidUser>({.tel = "t"}), R"({"Tel":"t"})"},
        {UserItem::create<GuidUser>({.guid = "g", .tel = "t"}), R"({"Guid":"set g","Tel":"t"})"},
        {UserItem::create<GuidUser>({.guid = "g", .email = "e"}),
         R"({"Guid":"set g","Email":"e"})"},
        {UserItem::create<GuidUser>({.guid = "g", .tel = "t", .telCode = "c", .pwd = "p"}),
         R"({"Guid":"set g","Tel":"t","TelCode":"c","Pwd":"p"})"},
        {UserItem::create<GuidUser>({.guid = "g", .email = "e", .code = "1234", .pwd = "p"}),
         R"({"Guid":"set g","TelCode":"1234","Email":"e","Pwd":"p"})"},
        {UserItem::create<GuidUser>(
             {.guid = "g", .clientVersion = "v", .clientOemTag = "o", .disksn = "d"}),
         R"({"Guid":"set g","ClientVersion":"v","ClientOemTag":"o","Disksn":"d"})"},
        {UserItem::create<GuidUser>({.guid = "g", .clientOemTag = "o"}),
         R"({"Guid":"set g","ClientOemTag":"o"})"},
        {UserItem::create<GuidUser>({.guid = "g", .qqOpenId = "q", .uid = "u", .photoUrl = "h"}),
         R"({"Guid":"set g","QqOpenId":"q","Uid":"u","PhotoUrl":"h"})"},
        {UserItem::create<GuidUser>(
             {.guid = "g", .weChatOpenId = "w", .weChatUnionId = "n", .uid = "u", .photoUrl = "h"}),
         R"({"Guid":"set g","WeChatOpenId":"w","WeChatUnionId":"n","Uid":"u","PhotoUrl":"h"})"},
        {UserItem::create<GuidUser>(
             {.tel = "t", .pwd = "p", .clientVersion = "v", .clientOemTag = "o", .disksn = "d"}),
         R"({"Tel":"t","Pwd":"p","ClientVersion":"v","ClientOemTag":"o","Disksn":"d"})"},
        {UserItem::create<GuidUser>(
             {.tel = "t", .telCode = "c", .pwd = "p", .clientVersion = "v", .clientOemTag = "o"}),
         R"({"Tel":"t","TelCode":"c","Pwd":"p","ClientVersion":"v","ClientOemTag":"o"})"},
        {UserItem::create<GuidUser>(
             {.email = "e", .pwd = "p", .clientVersion = "v", .clientOemTag = "o", .disksn = "d"}),
         R"({"Email":"e","Pwd":"p","ClientVersion":"v","ClientOemTag":"o","Disksn":"d"})"},
        {UserItem::create<GuidUser>(
             {.email = "e", .pwd = "p", .clientVersion = "v", .clientOemTag = "o"}),
         R"({"Email":"e","Pwd":"p","ClientVersion":"v","ClientOemTag":"o"})"},
    };
    for (const auto& [user, expected] : cases)
        EXPECT_EQ(toText(changes(*user, UserItem())), expected);
}

/// A client's user with properties for the lists that a user never takes.
class ListUser : public UserItem {
    PERCH_RECORD(ListUser, UserItem);
    PERCH_PROPERTY(std::string, Fonts);
    PERCH_PROPERTY(std::string, Activates);
    PERCH_PROPERTY(std::string, Favorites);
    PERCH_PROPERTY(std::string, Systems);
    PERCH_PROPERTY(std::string, Personals);
    PERCH_PROPERTY(std::string, Extra);
    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(ListUser);

/// Of no schema of its own.
struct DetourUser : ListUser {
    using ListUser::setValue;
    void setValue(const JSON& json, Included included) override {
        for (const std::string& key : included.keys())
            detours += key + " ";
        UserItem::setValue(json, Included{"Tel"}); // the list makes no difference
    }
    std::string detours;
};

TEST(UserItem, NeverTakesTheListsOfFonts) {
    const JSON json =
        JSON::parse(R"({"Fonts":"f","Activates":"a","Favorites":[{"Id":1}],"Systems":"s",
        "Personals":"p","Extra":"x","Tel":"1","IsMember":true,"PlatformId":null})");
    const auto user = UserItem::create<DetourUser>(json);
    const std::string keys = "Fonts Activates Favorites Systems Personals ";
    EXPECT_EQ(user->detours, keys);
    user->setValue(json);
    EXPECT_EQ(user->detours, keys + keys);
    const auto plain = UserItem::create();
    plain->setValue(json, Included{"Pwd"});
    for (const std::shared_ptr<ListUser>& filled :
         {std::shared_ptr<ListUser>(user), ListUser::create(json)})
        EXPECT_EQ(toText(changes(*filled, ListUser())),
                  R"({"Tel":"1","IsMember":true,"Extra":"x"})");
    EXPECT_EQ(toText(changes(*plain, UserItem())), R"({"Tel":"1","IsMember":true})");
}

TEST(UserItem, GivesItsTokenBackAsItWas) {
    const std::string deep = std::string(1000, '[') + std::string(1000, ']');
    const std::pair<std::string, std::string> cases[] = {
        {"\"a\\u0000\\\"\\u5fae\"", "\"a\\u0000\\\"微\""},
        {"\"\"", "\"\""},
        {"18446744073709551615", "18446744073709551615"},
        {"9223372036854775808", "9223372036854775808"},
        {"-9223372036854775808", "-9223372036854775808"},
        {"0", "0"},
        {"1.0", "1E0"},
        {"-0.5e-7", "-5E-8"},
        {"18446744073709551616", "1.8446744073709552E19"},
        {"1e400", "1.7976931348623157E308"},
        {"true", "true"},
        {R"({"b" : [1, {"a": null, "": []}], "a": {}})", R"({"b":[1,{"a":null,"":[]}],"a":{}})"},
        {"[]", "[]"},
        {deep, deep},
        {"null", "null"},
    };
    const auto again = UserItem::create();
    JSON kept;
    for (const auto& [text, expected] : cases) {
        const auto user =
            UserItem::create(JSON::parse("{\"Tel\":\"1\",\"sms_token\":" + text + "}"));
        kept = user->sms_token();
        again->setSms_token(kept);
        again->setValue(JSON::parse(R"({"Tel":"2"})")); // says nothing of a token
        for (const auto& holder : {user, again}) {
            EXPECT_EQ(toText(holder->Dict().at("sms_token")), expected) << text;
            EXPECT_EQ(toText(holder->getDict({"sms_token"})), "{\"sms_token\":" + expected + "}");
        }
        again->setValue(JSON::parse(toText(user->Dict())));
        EXPECT_EQ(again->Dict(), user->Dict()) << text;
    }
    EXPECT_EQ(kept.type(), JSON::Type::null);
    EXPECT_EQ(UserItem().sms_token().type(), JSON::Type::string);
}

TEST(UserItem, GivesTheNamedProperties) {
    const auto user = UserItem::create({.guid = "g", .tel = "t", .telCode = "c", .pwd = "p"});
    user->setUriList({"b", "a"});
    EXPECT_EQ(user->getDict({}), Dictionary());
    EXPECT_EQ(user->getDict({"Tel", "Pwd", "Tel"}), (Dictionary{{"Tel", "t"}, {"Pwd", "p"}}));
    EXPECT_EQ(user->getDict({"Guid", "Id", "IsMember", "PlatformId", "uriList"}),
              (Dictionary{{"Guid", "g"},
                          {"Id", 0},
                          {"IsMember", false},
                          {"PlatformId", 1},
                          {"uriList", boost::json::array{"b", "a"}}}));
    for (const char* const unknown : {"tel", "Fonts", "", "Code"}) {
        const Dictionary before = user->properties();
        try {
            (void)user->getDict({"Tel", unknown, "Pwd"});
            ADD_FAILURE() << unknown;
        } catch (const UndefinedKeyError& error) {
            EXPECT_EQ(error.className() + "." + error.key(), std::string("UserItem.") + unknown);
        }
        EXPECT_EQ(user->properties(), before);
    }
}

/// Notes which of the two ways of filling ran; the mapping itself is replaced by nothing.
template <class Record>
struct Replaced : Record {
    using Record::setValue;
    void setValue(const JSON& json) override {
        ran += "setValue ";
        Record::setValue(json);
    }
    void setValue(const JSON&, Excluded) override { ran += "mapping"; }
    std::string ran;
};

template <class Record>
void expectFilledByTheBaseItself(const char* json) {
    const auto record = Record::template create<Replaced<Record>>(JSON::parse(json));
    EXPECT_EQ(record->ran, "") << json;
    EXPECT_EQ(toText(record->properties()),
              toText(Record::create(JSON::parse(json))->properties()));
    EXPECT_NE(record->properties(), Record().properties());
}

TEST(Accounts, AreFilledByTheBaseItselfOrByTheSubclass) {
    expectFilledByTheBaseItself<SmsTokenItem>(R"({"ImageBase64String":"iVBO"})");
    expectFilledByTheBaseItself<PhoneNumberPrefixItem>(R"({"Region":"中国","Prefix":"+86"})");
    const char* const map = R"({"UserGuid":"u","FontList":[{"Id":1}]})";
    expectFilledByTheBaseItself<UserFontGroupMapItem>(map);
    expectFilledByTheBaseItself<UserFontActivateMapItem>(map);
    expectFilledByTheBaseItself<UserFontFavoriteMapItem>(map);

    const JSON json = JSON::parse(R"({"UserId":"u","Tag":3})");
    const auto user = EsUserItem::create<Replaced<EsUserItem>>(json);
    EXPECT_TRUE(user->ran.ends_with("mapping")) << user->ran;
    EXPECT_EQ(user->properties(), EsUserItem::create(JSON::null)->properties());
    EXPECT_EQ(EsUserItem::create(json)->Dict().size(), UserItem().Dict().size() - 36 + 5);
}

template <class Map>
void expectUserFontMap() {
    const Records<FontItem> fonts{FontItem::create({.productName = "A"}), FontItem::create()};
    const auto given = Map::create({.userGuid = "u", .fontList = fonts});
    EXPECT_EQ(given->UserGuid(), "u");
    EXPECT_EQ(given->FontList(), fonts); // the very fonts
    EXPECT_EQ(toText(changes(*Map::create({.userGuid = "u"}), Map())), R"({"UserGuid":"u"})");
    for (const char* const none :
         {R"({"UserGuid":"u"})", R"({"FontList":null,"UserGuid":"u"})",
          R"({"FontList":"[{}]","UserGuid":"u"})", R"({"FontList":{"Id":1},"UserGuid":"u"})"})
        EXPECT_EQ(toText(changes(*Map::create(JSON::parse(none)), Map())), R"({"UserGuid":"u"})")
            << none;
    const auto read = Map::create(JSON::parse(
        R"({"FontList":[{"Id":1,"IsGroup":true,"Children":[{"Id":2}]},{"ProductName":"B"}]})"));
    ASSERT_EQ(read->FontList().size(), 2U);
    EXPECT_EQ(read->FontList()[0]->Children().at(0)->Id(), 2);
    EXPECT_EQ(read->FontList()[1]->ProductName(), "B");
}

TEST(UserFontMaps, TieAUserToFonts) {
    expectUserFontMap<UserFontGroupMapItem>();
    expectUserFontMap<UserFontActivateMapItem>();
    expectUserFontMap<UserFontFavoriteMapItem>();
}

template <class Record>
concept MadeOfNothing = requires { Record::create(); };
template <class Record>
concept MadeOfPassword = requires { Record::create({.guid = "g", .pwd = "p"}); };
template <class Record>
concept MadeOfEmail = requires { Record::create({.email = "e"}); };
template <class Record>
concept MadeInOtherOrder = requires { Record::create({.tel = "t", .guid = "g"}); };
template <class Record>
concept MadeOfNumber = requires { Record::create({.tel = 1}); };
template <class Record>
concept MadeOfFonts = requires { Record::create({.fontList = Records<FontItem>()}); };

static_assert(!MadeOfPassword<UserItem> && !MadeOfEmail<UserItem> && !MadeInOtherOrder<UserItem>);
static_assert(!MadeOfNumber<UserItem> && !MadeOfFonts<UserFontGroupMapItem>);
static_assert(MadeOfNothing<UserItem> && !MadeOfNothing<EsUserItem>);
static_assert(!std::default_initializable<EsUserItem> && std::default_initializable<SmsTokenItem>);

} // namespace
