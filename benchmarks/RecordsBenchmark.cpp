#include "Benchmarks.hpp"
#include "Comparison.hpp"

#include <VelmoCloudEntity/account/EsUserItem.hpp>
#include <VelmoCloudEntity/account/PhoneNumberPrefixItem.hpp>
#include <VelmoCloudEntity/account/SmsTokenItem.hpp>
#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/account/UserFontFavoriteMapItem.hpp>
#include <VelmoCloudEntity/account/UserFontGroupMapItem.hpp>
#include <VelmoCloudEntity/account/UserItem.hpp>
#include <VelmoCloudEntity/catalogue/FontApplyItem.hpp>
#include <VelmoCloudEntity/catalogue/FontCollectionItem.hpp>
#include <VelmoCloudEntity/catalogue/FontImageItem.hpp>
#include <VelmoCloudEntity/catalogue/FontSearchItem.hpp>
#include <VelmoCloudEntity/catalogue/FontTagItem.hpp>
#include <VelmoCloudEntity/catalogue/FontUploadItem.hpp>
#include <VelmoCloudEntity/catalogue/WebFontItem.hpp>
#include <VelmoCloudEntity/catalogue/ZRFontEffectEntity.hpp>
#include <VelmoCloudEntity/client/ClientOperaItem.hpp>
#include <VelmoCloudEntity/client/ClientStartupNoticeItem.hpp>
#include <VelmoCloudEntity/client/ClientVersionItem.hpp>
#include <VelmoCloudEntity/client/ConfigItem.hpp>
#include <VelmoCloudEntity/client/ZRMessageBubbleItem.hpp>
#include <VelmoCloudEntity/entity/UrlItem.hpp>
#include <VelmoCloudEntity/font/FontItem.hpp>

#include <boost/unordered/unordered_flat_map.hpp>
#include <simdjson.h>

#include <fstream>
#include <optional>
#include <sstream>

namespace {

namespace ondemand = simdjson::ondemand;
using PerchAppLibrary::JSON;

/// The code that a developer would write by hand for each type: a plain struct, filled with
/// simdjson on-demand. A hash table has the reader of each key.
namespace plain {

/// A value of any kind, as JSON text.
struct Raw {
    std::string json;
};

template <class Record>
using Readers = boost::unordered_flat_map<std::string_view, void (*)(Record&, ondemand::value)>;

void read(ondemand::value value, std::int64_t& field) { field = value.get_int64(); }
void read(ondemand::value value, bool& field) { field = value.get_bool(); }
void read(ondemand::value value, float& field) {
    field = static_cast<float>(value.get_double().value());
}
void read(ondemand::value value, std::string& field) {
    field = std::string_view(value.get_string());
}
void read(ondemand::value value, Raw& field) {
    field.json = simdjson::to_json_string(value).value();
}
void read(ondemand::value value, std::optional<std::string>& field) {
    read(value, field.emplace());
}
template <class Element>
void read(ondemand::value value, std::vector<Element>& field) {
    for (ondemand::value element : value.get_array())
        read(element, field.emplace_back());
}
template <class Record>
void read(ondemand::value value, std::shared_ptr<Record>& field) {
    field = std::make_shared<Record>();
    field->fill(value.get_object());
}

#define DECLARE(Type, Name) Type Name{};
#define READER(Type, Name) \
    {#Name, [](Self& record, ondemand::value value) { read(value, record.Name); }},
/// Defines a struct with the fields `(Type, Name)...` and fill(), which reads them from JSON.
#define PLAIN_STRUCT(Struct, ...)                                                               \
    struct Struct {                                                                             \
        using Self = Struct;                                                                    \
        PERCH_DETAIL_FOR_EACH(DECLARE, __VA_ARGS__)                                             \
        void fill(ondemand::object object) {                                                    \
            static const Readers<Self> readers{PERCH_DETAIL_FOR_EACH(READER, __VA_ARGS__)};     \
            for (auto member : object)                                                          \
                if (const auto reader = readers.find(std::string_view(member.unescaped_key())); \
                    reader != readers.end())                                                    \
                    reader->second(*this, member.value());                                      \
        }                                                                                       \
    }
/// Like PLAIN_STRUCT, with the fields of BaseEntity first.
#define PLAIN_RECORD(Struct, ...)                                                            \
    PLAIN_STRUCT(Struct, (std::string, Guid), (std::int64_t, Id), (bool, IsDisabled),        \
                 (std::int64_t, ErrorCode), (bool, Exception), (std::string, ExceptionCode), \
                 (std::string, ExceptionMessage), (std::string, TimeStamp),                  \
                 (std::string, DateStamp), (std::string, Token), __VA_ARGS__)

PLAIN_RECORD(FontItem, (std::int64_t, ApplyHot), (std::int64_t, Ordinal),
             (std::int64_t, NameOrdinal), (std::int64_t, AppendOrdinal),
             (std::int64_t, UserOrdinal), (std::string, TopClassify), (std::int64_t, ProductSetId),
             (std::string, ProductSetName), (std::string, ProductName),
             (std::string, PostscriptName), (std::string, displayName), (std::string, Format),
             (std::string, Version), (std::string, Copyright), (std::string, ProductFileName),
             (std::string, ProductFileUrl), (std::string, PreviewFileUrl),
             (std::string, previewText), (std::string, RegisterKey), (bool, IsOnline),
             (bool, IsPreOnly), (bool, IsAuthed), (bool, IsFree), (std::string, FreeTag),
             (bool, IsFontAuth), (bool, IsMemberFont), (bool, IsPrivate), (std::string, OemTag),
             (bool, isActivated), (bool, IsFavorited), (bool, IsRecommended), (bool, IsNewly),
             (std::string, FontKey), (bool, IsGroup), (std::string, GroupTag),
             (std::int64_t, GroupCollectionId), (std::vector<std::int64_t>, Tags),
             (std::vector<std::shared_ptr<FontItem>>, Children), (std::string, DateStampBegin),
             (std::string, DateStampEnd), (std::int64_t, TopCount));
PLAIN_RECORD(ClientOperaItem, (std::string, UserGuid), (std::int64_t, PlatformId),
             (std::string, ClientVersion), (std::string, OperaTag), (std::int64_t, FontId),
             (std::string, SortTypeTag));
PLAIN_RECORD(ClientStartupNoticeItem, (std::string, Title), (std::string, Content));
PLAIN_RECORD(ClientVersionItem, (std::int64_t, PlatformId), (std::string, Version),
             (std::string, VersionTag), (std::string, Url), (std::vector<std::string>, News),
             (std::vector<std::string>, Bugs));
PLAIN_RECORD(ConfigItem, (std::string, LastUseVersion), (std::string, PreviewTag),
             (std::string, PreviewColorTag), (std::int64_t, PreviewFontSize),
             (std::int64_t, InteractionAppTag), (std::optional<std::string>, hotKeyCode),
             (std::optional<std::string>, systemHotKeyCode),
             (std::optional<std::string>, hotKeyString));
PLAIN_RECORD(EsUserItem, (std::string, UserId), (std::string, Pwd), (std::int64_t, EnterpriseId),
             (bool, ContainDisabled), (std::int64_t, Tag));
PLAIN_RECORD(FontApplyItem, (std::string, UserGuid), (std::int64_t, FontId),
             (std::int64_t, PlatformId), (std::string, AppTag), (std::string, Content));
PLAIN_RECORD(FontCollectionItem, (std::string, Cover), (std::string, Title), (std::string, Alias),
             (std::string, Abstract), (std::int64_t, Ordinal),
             (std::vector<std::int64_t>, FontIdList), (std::int64_t, TopCount));
PLAIN_RECORD(FontImageItem, (std::string, UserGuid), (std::int64_t, ProductId), (bool, IsPrivate),
             (std::string, PreviewText), (std::string, BackColor), (std::string, ForeColor),
             (float, EmSize), (std::string, PreviewUrl));
PLAIN_RECORD(FontSearchItem, (std::string, UserGuid), (std::int64_t, ProductId),
             (std::string, SearchKey), (std::int64_t, PlatformId), (std::int64_t, SearchCount),
             (std::int64_t, Ranking));
PLAIN_RECORD(FontTagItem, (std::int64_t, SubNameWidth), (std::string, Name), (std::string, Alias),
             (bool, IsGroup), (std::string, SubNameTextImageStyle),
             (std::string, SubNameDisplayStyle), (std::int64_t, SubNameRowSum),
             (std::int64_t, SubTagCountPerRow), (std::string, SubTagFilterType),
             (std::string, TagImageName), (std::int64_t, GroupId), (std::int64_t, Ordinal),
             (bool, IsChecked), (std::vector<std::int64_t>, FontIdList),
             (std::vector<std::shared_ptr<FontTagItem>>, Children));
PLAIN_RECORD(FontUploadItem, (std::string, UserGuid), (std::string, ProductFileName));
PLAIN_RECORD(PhoneNumberPrefixItem, (std::string, Region), (std::string, Prefix));
PLAIN_RECORD(SmsTokenItem, (std::string, ImageBase64String));
PLAIN_RECORD(UrlItem, (std::string, Name), (std::string, Url));
PLAIN_RECORD(UserFontActivateMapItem, (std::string, UserGuid),
             (std::vector<std::shared_ptr<FontItem>>, FontList));
PLAIN_RECORD(UserFontFavoriteMapItem, (std::string, UserGuid),
             (std::vector<std::shared_ptr<FontItem>>, FontList));
PLAIN_RECORD(UserFontGroupMapItem, (std::string, UserGuid),
             (std::vector<std::shared_ptr<FontItem>>, FontList));
PLAIN_RECORD(UserItem, (Raw, sms_token), (std::string, Tel), (std::int64_t, MemberLimitDays),
             (std::int64_t, MembershipStatus), (bool, IsTelBinded), (std::string, TelCode),
             (std::string, Email), (bool, IsEmailBinded), (std::string, QqOpenId),
             (bool, IsQqBinded), (std::string, WeChatOpenId), (std::string, WeChatUnionId),
             (bool, IsWeChatBinded), (std::string, ZbjOpenId), (bool, IsZbjBinded),
             (std::string, AliUserId), (std::string, Pwd), (std::string, Uid), (std::string, Name),
             (std::string, City), (std::string, Career), (std::string, PhotoUrl),
             (std::string, PhotoFileName), (std::string, PhotoBase64String), (std::string, WorkUrl),
             (std::int64_t, PlatformId), (std::string, ClientVersion), (std::string, ClientOemTag),
             (std::string, Disksn), (std::string, AdSpaceUrl), (std::vector<std::string>, uriList),
             (bool, IsAdvanced), (bool, AutoLogin), (bool, IsMember),
             (std::string, MemberLimitTimeStamp), (bool, IsPartner));
PLAIN_RECORD(WebFontItem, (std::string, UserGuid), (std::int64_t, ProductId), (std::string, Chas),
             (std::string, FontFamily), (std::string, ClassName), (std::string, RefLink));
PLAIN_RECORD(ZRFontEffectEntity, (std::string, ProductName), (bool, IsFavorite),
             (bool, IsMemberEffect), (std::int64_t, FontId), (std::string, Url),
             (bool, ContainDisabled));
PLAIN_RECORD(ZRMessageBubbleItem, (std::string, Title), (std::string, Content), (std::string, Url),
             (std::int64_t, UserGroupId), (std::string, UserGroupName),
             (std::string, SendTimeStamp), (std::string, InvalidTimeStamp), (bool, ContainDisabled),
             (std::int64_t, Tag));

} // namespace plain

constexpr std::size_t recordCount = 2'000;

/// Returns a JSON array of the type's sample, recordCount times.
std::string documentOf(std::string_view type) {
    std::ifstream file(VELMO_SAMPLES "/records/" + std::string(type) + ".json");
    std::ostringstream sample;
    sample << file.rdbuf();
    std::string text = "[" + sample.str();
    for (std::size_t count = 1; count < recordCount; ++count)
        text.append(",").append(sample.str());
    text += ']';
    text.reserve(text.size() + simdjson::SIMDJSON_PADDING);
    return text;
}

template <class Record>
std::shared_ptr<Record> recordOf(const JSON& json) {
    if constexpr (requires { Record::create(json); }) {
        return Record::create(json);
    } else {
        auto record = Record::create();
        record->setValue(json);
        return record;
    }
}

template <class Record, class Plain>
void registerRecord() {
    const auto text = std::make_shared<const std::string>(documentOf(Record::recordName));
    Comparison reading("read " + std::string(Record::recordName), recordCount);
    reading.add(
        "VelmoCloudEntity",
        [text] {
            std::vector<std::shared_ptr<Record>> records;
            for (const JSON& json : JSON::parse(*text))
                records.push_back(recordOf<Record>(json));
            return records;
        },
        [](const auto& records) {
            return digestOf(records, [](const auto& record) { return record->Id(); });
        });
    reading.add(
        "simdjson on-demand by hand",
        [text] {
            std::vector<std::shared_ptr<Plain>> records;
            ondemand::parser parser;
            ondemand::document document = parser.iterate(*text);
            plain::read(document.get_value(), records);
            return records;
        },
        [](const auto& records) {
            return digestOf(records, [](const auto& record) { return record->Id; });
        });
}

} // namespace

void registerRecords() {
    registerRecord<VelmoCloudEntity::FontItem, plain::FontItem>();
    registerRecord<VelmoCloudEntity::ClientOperaItem, plain::ClientOperaItem>();
    registerRecord<VelmoCloudEntity::ClientStartupNoticeItem, plain::ClientStartupNoticeItem>();
    registerRecord<VelmoCloudEntity::ClientVersionItem, plain::ClientVersionItem>();
    registerRecord<VelmoCloudEntity::ConfigItem, plain::ConfigItem>();
    registerRecord<VelmoCloudEntity::EsUserItem, plain::EsUserItem>();
    registerRecord<VelmoCloudEntity::FontApplyItem, plain::FontApplyItem>();
    registerRecord<VelmoCloudEntity::FontCollectionItem, plain::FontCollectionItem>();
    registerRecord<VelmoCloudEntity::FontImageItem, plain::FontImageItem>();
    registerRecord<VelmoCloudEntity::FontSearchItem, plain::FontSearchItem>();
    registerRecord<VelmoCloudEntity::FontTagItem, plain::FontTagItem>();
    registerRecord<VelmoCloudEntity::FontUploadItem, plain::FontUploadItem>();
    registerRecord<VelmoCloudEntity::PhoneNumberPrefixItem, plain::PhoneNumberPrefixItem>();
    registerRecord<VelmoCloudEntity::SmsTokenItem, plain::SmsTokenItem>();
    registerRecord<VelmoCloudEntity::UrlItem, plain::UrlItem>();
    registerRecord<VelmoCloudEntity::UserFontActivateMapItem, plain::UserFontActivateMapItem>();
    registerRecord<VelmoCloudEntity::UserFontFavoriteMapItem, plain::UserFontFavoriteMapItem>();
    registerRecord<VelmoCloudEntity::UserFontGroupMapItem, plain::UserFontGroupMapItem>();
    registerRecord<VelmoCloudEntity::UserItem, plain::UserItem>();
    registerRecord<VelmoCloudEntity::WebFontItem, plain::WebFontItem>();
    registerRecord<VelmoCloudEntity::ZRFontEffectEntity, plain::ZRFontEffectEntity>();
    registerRecord<VelmoCloudEntity::ZRMessageBubbleItem, plain::ZRMessageBubbleItem>();
}
