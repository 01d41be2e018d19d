#include <VelmoCloudEntity/client/ClientOperaItem.hpp>
#include <VelmoCloudEntity/client/ClientStartupNoticeItem.hpp>
#include <VelmoCloudEntity/client/ClientVersionItem.hpp>
#include <VelmoCloudEntity/client/ConfigItem.hpp>
#include <VelmoCloudEntity/client/ZRMessageBubbleItem.hpp>
#include <VelmoCloudEntity/entity/ExceptionItem.hpp>

#include "Changes.hpp"

#include <PerchAppLibrary/BaseExceptionEntity.hpp>
#include <PerchAppLibrary/container/uniqueMap.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <gtest/gtest.h>

#include <limits>
#include <map>

using namespace VelmoCloudEntity;
using namespace PerchAppLibrary;

namespace {

TEST(ConfigItem, KnowsTheFixedPreviewTags) {
    ConfigItem config;
    EXPECT_TRUE(config.UseFixPreviewTag());
    const std::pair<const char*, bool> cases[] = {
        {"F", true},   {"N", true},   {"E", true}, {"B", false},  {"", false}, {"s", false},
        {"SF", false}, {" S", false}, {"S", true}, {"Ｓ", false}, {"e", false}};
    for (const auto& [tag, isFixed] : cases) {
        config.setPreviewTag(tag);
        EXPECT_EQ(config.UseFixPreviewTag(), isFixed) << tag;
    }
    config.setPreviewTag(std::string("S\0", 2));
    EXPECT_FALSE(config.UseFixPreviewTag());
}

TEST(ConfigItem, NamesTheDesignApplication) {
    ConfigItem config;
    EXPECT_EQ(config.InteractionAppTagName(), "ps");
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    const std::pair<std::int64_t, const char*> cases[] = {
        {1, "ai"}, {2, "id"}, {3, "ppt"}, {4, "word"},     {5, "sketch"},  {6, "keynote"},
        {7, ""},   {-1, ""},  {most, ""}, {-most - 1, ""}, {1LL << 32, ""}};
    for (const auto& [tag, name] : cases) {
        config.setInteractionAppTag(tag);
        EXPECT_EQ(config.InteractionAppTagName(), name) << tag;
    }
}

struct ClientConfig : ConfigItem {
    std::string tag = "E";
    const std::string& PreviewTag() const override { return tag; }
    std::int64_t InteractionAppTag() const override { return 4; }
};

TEST(ConfigItem, ExportsAnAbsentHotKeyAsNull) {
    ConfigItem config;
    config.setHotKeyString("⌘F");
    config.setHotKeyCode("");
    EXPECT_EQ(toText(changes(config, ConfigItem())), R"({"hotKeyCode":"","hotKeyString":"⌘F"})");
    EXPECT_EQ(config.Dict(), config.properties());
    config.setHotKeyString(std::nullopt);
    EXPECT_TRUE(config.Dict().at("hotKeyString").is_null());
    EXPECT_EQ(config.Dict().size(), 10U + 8U);
    ClientConfig own;
    own.tag = "x";
    EXPECT_EQ(own.InteractionAppTagName(), "word");
    EXPECT_FALSE(own.UseFixPreviewTag());
}

TEST(ClientRecords, AreMadeFromTheirLabels) {
    const auto opera =
        ClientOperaItem::create({.userGuid = "u", .clientVersion = "2.0", .operaTag = "t"});
    EXPECT_EQ(toText(changes(*opera, ClientOperaItem())),
              R"({"UserGuid":"u","ClientVersion":"2.0","OperaTag":"t"})");
    EXPECT_EQ(toText(changes(*ClientVersionItem::create({.version = "3", .versionTag = "t"}),
                             ClientVersionItem())),
              R"({"Version":"3","VersionTag":"t"})");
    EXPECT_EQ(toText(changes(*ClientVersionItem::create({.platformId = 3}), ClientVersionItem())),
              R"({"PlatformId":3})");
}

TEST(ClientOperaItem, StaysOnItsPlatform) {
    const auto opera =
        ClientOperaItem::create({.userGuid = "u", .clientVersion = "2.0", .operaTag = "t"});
    for (const char* const json :
         {R"({"PlatformId":2,"FontId":7})", R"({"FontId":7,"PlatformId":null})",
          R"({"PlatformId":"3","FontId":7,"PlatformId":4})"}) {
        opera->setValue(JSON::parse(json));
        EXPECT_EQ(opera->PlatformId() * 10 + opera->FontId(), 17) << json;
        EXPECT_EQ(opera->value("PlatformId"), 1);
    }
}

template <class Record>
concept TakesPlatform = requires(Record& record) { record.setPlatformId(2); };
template <class Record>
concept MadeFromJSON = requires(const JSON& json) { Record::create(json); };
template <class Record>
concept MadeOfVersion = requires { Record::create({.version = "1"}); };

static_assert(TakesPlatform<ClientVersionItem> && !TakesPlatform<ClientOperaItem>);
static_assert(MadeFromJSON<ClientOperaItem> && !MadeFromJSON<ConfigItem> &&
              !MadeOfVersion<ClientVersionItem>);

TEST(ExceptionItem, HasTheMessagesOfEveryCode) {
    const char* const rows[][3] = {
        {"000000", "访问受限", "Access rejected."},
        {"000001", "数据解析失败", "Data parse fail."},
        {"000002", "认证失败", "Authentication fail."},
        {"000003", "后台处理异常", "Background exception."},
        {"001001", "", ""},
        {"002001", "手机号无效", "Phone number is invalid."},
        {"002002", "手机号不存在", "Phone number no exists."},
        {"002003", "验证码发送失败", "Code sent fail."},
        {"002004", "验证码记录失败", "Code record fail."},
        {"002005", "手机号已存在", "Phone number exists."},
        {"003001", "邮箱地址无效", "Email is invalid."},
        {"003002", "邮箱不存在", "Email no exists."},
        {"003003", "验证码发送失败", "Code sent fail."},
        {"003004", "验证码记录失败", "Code record fail."},
        {"003005", "邮箱已存在", "Email exists."},
        {"004001", "会员试用过期", "Membership trial out of date."},
        {"004002", "已经是试用会员", "Membership trial."},
        {"004003", "会员到期时间戳格式错误", "MemberLimitTimeStamp format error."},
        {"004004", "未绑定有效手机号", "No valid phone number is bound."},
        {"004005", "手机号已有会员信息", "The phone number has member information."},
        {"005001", "登录过期", "The user login has expired."},
        {"005002", "已在其他设备登录", "Logged in on another device."},
        {"006001", "目标QQ已占用", "QQ used."},
        {"006002", "目标QQ已占用", "QQ used."},
        {"006003", "目标微信已占用", "微信 used."},
        {"006004", "目标微信已占用", "微信 used."},
    };
    const ExceptionItem item, other;
    EXPECT_EQ(item.Dict().size(), 26U);
    for (const auto& [code, chinese, english] : rows) {
        ASSERT_TRUE(item.Dict().contains(code)) << code;
        const auto& entry = item.Dict().at(code);
        EXPECT_EQ(entry->code(), code);
        EXPECT_EQ(entry->msgDict(),
                  (std::map<std::string, std::string>{{"Ch", chinese}, {"En", english}}));
        EXPECT_NE(entry, other.Dict().at(code)) << "each item has a table of its own";
    }
    EXPECT_EQ(item.Dict().at("006004")->msgDict().at("En"), "\xE5\xBE\xAE\xE4\xBF\xA1 used.");
    for (const char* const unknown : {"000004", "", "2004", "002004 ", "02004", "0020040"})
        EXPECT_FALSE(item.Dict().contains(unknown)) << unknown;
}

TEST(ExceptionItemDeathTest, EndsTheProcessOverACodeThatComesTwice) {
    EXPECT_EQ(uniqueMap<int>({{"a", 1}, {"b", 1}}).size(), 2U);
    EXPECT_DEATH(uniqueMap<int>({{"a", 1}, {"b", 2}, {"a", 1}}), "\"a\" comes twice");
}

} // namespace
