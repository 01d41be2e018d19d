#include <VelmoCloudEntity/account/EsUserItem.hpp>
#include <VelmoCloudEntity/account/PhoneNumberPrefixList.hpp>
#include <VelmoCloudEntity/account/SmsTokenItem.hpp>
#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/account/UserFontFavoriteMapItem.hpp>
#include <VelmoCloudEntity/account/UserFontGroupMapItem.hpp>
#include <VelmoCloudEntity/account/UserItem.hpp>
#include <VelmoCloudEntity/catalogue/FontApplyItem.hpp>
#include <VelmoCloudEntity/catalogue/FontCollectionList.hpp>
#include <VelmoCloudEntity/catalogue/FontImageItem.hpp>
#include <VelmoCloudEntity/catalogue/FontSearchList.hpp>
#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/catalogue/FontUploadItem.hpp>
#include <VelmoCloudEntity/catalogue/WebFontItem.hpp>
#include <VelmoCloudEntity/catalogue/ZRFontEffectEntity.hpp>
#include <VelmoCloudEntity/client/ClientOperaItem.hpp>
#include <VelmoCloudEntity/client/ClientStartupNoticeItem.hpp>
#include <VelmoCloudEntity/client/ClientVersionItem.hpp>
#include <VelmoCloudEntity/client/ConfigItem.hpp>
#include <VelmoCloudEntity/client/ZRMessageBubbleItem.hpp>
#include <VelmoCloudEntity/entity/UrlList.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include "Changes.hpp"

#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <concepts>
#include <fstream>
#include <sstream>

using namespace VelmoCloudEntity;
using namespace PerchAppLibrary;

namespace {

/// One type of record.
struct Row {
    std::string type;
    std::string own; // its own stored properties in their order, with their defaults
    std::string
        dict; // what Dict holds: "" no Dict, "all", the names in order, or "tested elsewhere"
    std::string constant;
    std::shared_ptr<BaseEntity> (*fresh)();
    std::shared_ptr<BaseEntity> (*filled)(const JSON& json);
};

template <class Record>
Row row(std::string type, std::string own, std::string dict = "", std::string constant = "") {
    const auto filled = [](const JSON& json) -> std::shared_ptr<BaseEntity> {
        if constexpr (requires { Record::create(json); })
            return Record::create(json);
        else {
            auto record = Record::create();
            record->setValue(json);
            return record;
        }
    };
    const auto fresh = []() -> std::shared_ptr<BaseEntity> {
        if constexpr (std::default_initializable<Record>)
            return Record::create();
        else
            return Record::create(JSON::null);
    };
    return {std::move(type), std::move(own), std::move(dict), std::move(constant), fresh, filled};
}

const char* const inherited =
    R"({"Guid":"","Id":0,"IsDisabled":false,"ErrorCode":0,"Exception":false,"ExceptionCode":"",)"
    R"("ExceptionMessage":"","TimeStamp":"","DateStamp":"","Token":"",)";

const char* const fontMap = R"("UserGuid":"","FontList":[])";

const Row rows[] = {
    row<FontItem>(
        "FontItem",
        R"("ApplyHot":0,"Ordinal":0,"NameOrdinal":0,"AppendOrdinal":0,"UserOrdinal":0,"TopClassify":"",)"
        R"("ProductSetId":0,"ProductSetName":"","ProductName":"","PostscriptName":"","displayName":"","Format":"",)"
        R"("Version":"","Copyright":"","ProductFileName":"","ProductFileUrl":"","PreviewFileUrl":"","previewText":"",)"
        R"("RegisterKey":"","IsOnline":false,"IsPreOnly":false,"IsAuthed":false,"IsFree":false,"FreeTag":"",)"
        R"("IsFontAuth":false,"IsMemberFont":false,"IsPrivate":false,"OemTag":"","isActivated":false,)"
        R"("IsFavorited":false,"IsRecommended":false,"IsNewly":false,"FontKey":"","IsGroup":false,"GroupTag":"",)"
        R"("GroupCollectionId":0,"Tags":[],"Children":[],"DateStampBegin":"","DateStampEnd":"","TopCount":0)",
        "tested elsewhere"),
    row<FontTagItem>(
        "FontTagItem",
        R"("SubNameWidth":0,"Name":"","Alias":"","IsGroup":false,"SubNameTextImageStyle":"TextOnly",)"
        R"("SubNameDisplayStyle":"List","SubNameRowSum":0,"SubTagCountPerRow":0,"SubTagFilterType":"Or",)"
        R"("TagImageName":"","GroupId":0,"Ordinal":0,"IsChecked":false,"FontIdList":[],"Children":[])"),
    row<UrlItem>("UrlItem", R"("Name":"","Url":"")"),
    row<FontCollectionItem>(
        "FontCollectionItem",
        R"("Cover":"","Title":"","Alias":"","Abstract":"","Ordinal":0,"FontIdList":[],"TopCount":0)"),
    row<FontSearchItem>(
        "FontSearchItem",
        R"("UserGuid":"","ProductId":0,"SearchKey":"","PlatformId":1,"SearchCount":0,"Ranking":0)",
        "UserGuid ProductId SearchKey PlatformId SearchCount Ranking"),
    row<FontImageItem>(
        "FontImageItem",
        R"("UserGuid":"","ProductId":0,"IsPrivate":false,"PreviewText":"","BackColor":"#000000",)"
        R"("ForeColor":"#FFFFFF","EmSize":3.2E1,"PreviewUrl":"")",
        "ProductId PreviewText BackColor ForeColor EmSize"),
    row<FontApplyItem>("FontApplyItem",
                       R"("UserGuid":"","FontId":0,"PlatformId":1,"AppTag":"","Content":"")"),
    row<ZRFontEffectEntity>(
        "ZRFontEffectEntity",
        R"("ProductName":"","IsFavorite":false,"IsMemberEffect":false,"FontId":0,"Url":"","ContainDisabled":true)"),
    row<WebFontItem>(
        "WebFontItem",
        R"("UserGuid":"","ProductId":0,"Chas":"","FontFamily":"","ClassName":"","RefLink":"")"),
    row<FontUploadItem>("FontUploadItem", R"("UserGuid":"","ProductFileName":"")",
                        "UserGuid ProductFileName"),
    row<UserItem>(
        "UserItem",
        R"("sms_token":"","Tel":"","MemberLimitDays":0,"MembershipStatus":0,"IsTelBinded":false,"TelCode":"",)"
        R"("Email":"","IsEmailBinded":false,"QqOpenId":"","IsQqBinded":false,"WeChatOpenId":"","WeChatUnionId":"",)"
        R"("IsWeChatBinded":false,"ZbjOpenId":"","IsZbjBinded":false,"AliUserId":"","Pwd":"","Uid":"","Name":"",)"
        R"("City":"","Career":"","PhotoUrl":"","PhotoFileName":"","PhotoBase64String":"","WorkUrl":"",)"
        R"("PlatformId":1,"ClientVersion":"","ClientOemTag":"","Disksn":"","AdSpaceUrl":"","uriList":[],)"
        R"("IsAdvanced":false,"AutoLogin":false,"IsMember":false,"MemberLimitTimeStamp":"","IsPartner":false)",
        "all"),
    row<SmsTokenItem>("SmsTokenItem", R"("ImageBase64String":"")"),
    row<EsUserItem>("EsUserItem",
                    R"("UserId":"","Pwd":"","EnterpriseId":0,"ContainDisabled":false,"Tag":0)",
                    "all"),
    row<UserFontGroupMapItem>("UserFontGroupMapItem", fontMap),
    row<UserFontActivateMapItem>("UserFontActivateMapItem", fontMap),
    row<UserFontFavoriteMapItem>("UserFontFavoriteMapItem", fontMap),
    row<PhoneNumberPrefixItem>("PhoneNumberPrefixItem", R"("Region":"","Prefix":"")"),
    row<ConfigItem>(
        "ConfigItem",
        R"("LastUseVersion":"","PreviewTag":"S","PreviewColorTag":"B","PreviewFontSize":32,"InteractionAppTag":0,)"
        R"("hotKeyCode":null,"systemHotKeyCode":null,"hotKeyString":null)",
        "all"),
    row<ClientOperaItem>(
        "ClientOperaItem",
        R"("UserGuid":"","PlatformId":1,"ClientVersion":"","OperaTag":"","FontId":0,"SortTypeTag":"")",
        "", "PlatformId"),
    row<ClientVersionItem>(
        "ClientVersionItem",
        R"("PlatformId":1,"Version":"","VersionTag":"","Url":"","News":[],"Bugs":[])"),
    row<ClientStartupNoticeItem>("ClientStartupNoticeItem", R"("Title":"","Content":"")"),
    row<ZRMessageBubbleItem>(
        "ZRMessageBubbleItem",
        R"("Title":"","Content":"","Url":"","UserGroupId":0,"UserGroupName":"","SendTimeStamp":"",)"
        R"("InvalidTimeStamp":"","ContainDisabled":true,"Tag":0)"),
};

std::string sampleOf(const std::string& type) {
    std::ifstream file(VELMO_SAMPLES "/records/" + type + ".json");
    EXPECT_TRUE(file) << type << " has no sample";
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// Whether the exported value is the sample's; a nested record may have more properties than its
/// sample.
bool holds(const Value& exported, const Value& sample) {
    if (sample.is_object())
        return exported.is_object() &&
               std::ranges::all_of(sample.as_object(), [&](const auto& member) {
                   const Value* const value = exported.as_object().if_contains(member.key());
                   return value && holds(*value, member.value());
               });
    if (sample.is_array())
        return exported.is_array() &&
               std::ranges::equal(exported.as_array(), sample.as_array(), holds);
    return exported == sample;
}

class RecordTable : public testing::TestWithParam<Row> {
protected:
    const Row& type = GetParam();
    const std::string sample = sampleOf(type.type);
    const Dictionary members = boost::json::parse(sample).as_object();
    const std::shared_ptr<BaseEntity> fresh = type.fresh();
    const std::shared_ptr<BaseEntity> record = type.filled(JSON::parse(sample));
};

TEST_P(RecordTable, HasItsPropertiesInOrderWithTheirDefaults) {
    const std::string expected = inherited + type.own + "}";
    EXPECT_EQ(toText(fresh->properties()), expected);
    for (const char* const json :
         {"{}", "null", "5", R"("Id")", R"([{"Id":1}])", R"({"id":1,"":2})"})
        EXPECT_EQ(toText(type.filled(JSON::parse(json))->properties()), expected) << json;
    EXPECT_EQ(fresh->schema().className(), type.type);
}

TEST_P(RecordTable, IsFilledFromAFullSampleAndFilledAgain) {
    for (int fill = 0; fill < 3; ++fill, record->setValue(JSON::parse(sample))) {
        const Dictionary properties = record->properties();
        ASSERT_EQ(properties.size(), members.size()) << "the sample names every property";
        for (const auto& [name, value] : members) {
            const auto expected = name == type.constant ? fresh->value(name) : value;
            EXPECT_TRUE(holds(properties.at(name), expected))
                << name << ": " << properties.at(name);
            EXPECT_EQ(record->value(name), properties.at(name)) << name;
            EXPECT_NE(fresh->value(name), value) << name << ": the sample's is the default";
        }
    }
    record->setValue(JSON::parse(toText(fresh->properties())));
    for (const auto& [name, value] : changes(*record, *fresh))
        EXPECT_EQ(name, "FontList") << "a user-font map takes its fonts only while it is made";
}

TEST_P(RecordTable, TakesEachPropertyFromItsOwnKey) {
    for (const auto& [name, value] : members) {
        const auto changed =
            changes(*type.filled(JSON::parse(toText(Dictionary({{name, value}})))), *fresh);
        EXPECT_EQ(changed.size(), name == type.constant ? 0U : 1U)
            << name << ": " << toText(changed);
        EXPECT_TRUE(changed.empty() || changed.begin()->key() == name)
            << name << ": " << toText(changed);
    }
}

TEST_P(RecordTable, IsReadBackFromItsExport) {
    const std::string text = toText(record->properties());
    EXPECT_EQ(toText(type.filled(JSON::parse(text))->properties()), text);
    if (type.dict.empty()) {
        EXPECT_THROW((void)record->value("Dict"), UndefinedKeyError);
    } else if (type.dict != "tested elsewhere") {
        Dictionary expected = type.dict == "all" ? record->properties() : Dictionary();
        std::istringstream names(type.dict == "all" ? "" : type.dict);
        for (std::string name; names >> name;)
            expected[name] = members.at(name);
        EXPECT_EQ(toText(record->value("Dict")), toText(expected));
    }
}

INSTANTIATE_TEST_SUITE_P(All, RecordTable, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.type; });

template <class List, class Item>
void expectList(const char* type, const Records<Item>& (List::*get)() const&,
                void (List::*set)(Records<Item>), std::size_t itemsOfOdd = 6) {
    SCOPED_TRACE(type);
    const std::string sample = sampleOf(type);
    const Value elements = boost::json::parse(sample);
    const List list(JSON::parse(sample));
    const Records<Item>& items = (list.*get)();
    ASSERT_EQ(items.size(), elements.as_array().size());
    ASSERT_GE(items.size(), 2U);
    for (std::size_t i = 0; i < items.size(); ++i) {
        EXPECT_TRUE(holds(items[i]->properties(), elements.at(i))) << i;
        EXPECT_EQ(items[i]->properties().size(), elements.at(i).as_object().size());
    }
    const List odd(JSON::parse(R"([{"Id":7},5,null,[{"Id":8}],"x",{"Id":9}])"));
    EXPECT_EQ((odd.*get)().size(), itemsOfOdd);
    EXPECT_EQ((odd.*get)().front()->Id() * 10 + (odd.*get)().back()->Id(), 79);
    List fresh;
    EXPECT_TRUE((fresh.*get)().empty());
    (fresh.*set)(items);
    EXPECT_EQ((fresh.*get)(), items);
    for (const std::string other : {R"({"List":[{}],"list":[{}]})", "[]", "null", "5", R"("[{}]")"})
        EXPECT_TRUE((List(JSON::parse(other)).*get)().empty()) << other;
}

TEST(ListTable, MakesOneItemForEachElementOfAnArray) {
    expectList("FontList", &FontList::List, &FontList::setList, 2); // drops what is no object
    expectList("FontTagList", &FontTagList::List, &FontTagList::setList);
    expectList("UrlList", &UrlList::list, &UrlList::setList);
    expectList("FontCollectionList", &FontCollectionList::List, &FontCollectionList::setList);
    expectList("FontSearchList", &FontSearchList::List, &FontSearchList::setList);
    expectList("PhoneNumberPrefixList", &PhoneNumberPrefixList::list,
               &PhoneNumberPrefixList::setList);
}

} // namespace
