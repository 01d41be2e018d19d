// What holds for every type of record and list, on a sample in which each property has a value.
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

#include "RecordTesting.hpp"

#include <PerchAppLibrary/record/RecordWriter.hpp>

#include <boost/json/parse.hpp>

#include <algorithm>
#include <concepts>
#include <fstream>
#include <iterator>
#include <sstream>

using namespace VelmoCloudEntity;
using namespace PerchAppLibrary;

namespace {

/// Notes which of a subclass's overrides run while a record is made from JSON.
template <class Record>
struct Overriding : Record {
    using Record::setValue;
    void setValue(const JSON& json) override {
        calls += "setValue ";
        Record::setValue(json);
    }
    void setValue(const JSON& json, Excluded excluded) override {
        calls += "mapping";
        Record::setValue(json, std::move(excluded));
    }
    std::string calls;
};

/// In what a type of record differs from most.
struct Special {
    const char* defaults = "{}";            // those that are not zero, false or empty
    const char* dictionary = "";            // the keys of Dict, "all", or empty without a Dict
    const char* calls = "setValue mapping"; // the overrides that create(json) runs
};

/// A type of record. Its sample has the names of its properties, in their order.
struct Type {
    Special special;
    std::shared_ptr<BaseEntity> (*filled)(const JSON& json);
    std::string (*callsWhileMade)(const JSON& json);

    std::string name() const {
        return std::string(filled(JSON::parse("{}"))->schema().className());
    }
};

void PrintTo(const Type& type, std::ostream* out) { *out << type.name(); }

template <class Record>
Type type(Special special = {}) {
    const auto filled = [](const JSON& json) -> std::shared_ptr<BaseEntity> {
        if constexpr (requires { Record::create(json); }) {
            return Record::create(json);
        } else {
            auto record = Record::create();
            record->setValue(json);
            return record;
        }
    };
    const auto callsWhileMade = [](const JSON& json) -> std::string {
        if constexpr (requires { Record::create(json); })
            return Record::template create<Overriding<Record>>(json)->calls;
        return "";
    };
    return {special, filled, callsWhileMade};
}

static_assert(!std::default_initializable<ZRFontEffectEntity>); // made from JSON alone

const char* const onPlatform1 = R"({"PlatformId":1})";

const Type types[] = {
    type<FontItem>({.dictionary = "tested elsewhere"}),
    type<FontTagItem>({.defaults = R"({"SubNameTextImageStyle":"TextOnly",
                           "SubNameDisplayStyle":"List","SubTagFilterType":"Or"})"}),
    type<UrlItem>({.calls = ""}),
    type<FontCollectionItem>(),
    type<FontSearchItem>(
        {.defaults = onPlatform1,
         .dictionary = "UserGuid ProductId SearchKey PlatformId SearchCount Ranking"}),
    type<FontImageItem>(
        {.defaults = R"({"BackColor":"#000000","ForeColor":"#FFFFFF","EmSize":32.0})",
         .dictionary = "ProductId PreviewText BackColor ForeColor EmSize"}),
    type<FontApplyItem>({.defaults = onPlatform1}),
    type<ZRFontEffectEntity>({.defaults = R"({"ContainDisabled":true})"}),
    type<WebFontItem>(),
    type<FontUploadItem>({.dictionary = "UserGuid ProductFileName"}),
    type<UserItem>({.defaults = R"({"sms_token":"","PlatformId":1})", .dictionary = "all"}),
    type<SmsTokenItem>({.calls = ""}),
    type<EsUserItem>({.dictionary = "all", .calls = "mapping"}),
    type<UserFontGroupMapItem>({.calls = ""}),
    type<UserFontActivateMapItem>({.calls = ""}),
    type<UserFontFavoriteMapItem>({.calls = ""}),
    type<PhoneNumberPrefixItem>({.calls = ""}),
    type<ConfigItem>({.defaults = R"({"PreviewTag":"S","PreviewColorTag":"B","PreviewFontSize":32,
                          "hotKeyCode":null,"systemHotKeyCode":null,"hotKeyString":null})",
                      .dictionary = "all",
                      .calls = ""}),
    type<ClientOperaItem>({.defaults = onPlatform1}),
    type<ClientVersionItem>({.defaults = onPlatform1}),
    type<ClientStartupNoticeItem>(),
    type<ZRMessageBubbleItem>({.defaults = R"({"ContainDisabled":true})"})};

std::string sampleOf(const std::string& type) {
    std::ifstream file(VELMO_SAMPLES "/records/" + type + ".json");
    EXPECT_TRUE(file) << type << " has no sample";
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Returns whether the exported value is the sample's. A nested record may have more properties.
bool holds(const Value& exported, const Value& sample) {
    if (sample.is_object())
        return std::ranges::all_of(sample.as_object(), [&](const auto& member) {
            return holds(exported.at(member.key()), member.value());
        });
    if (sample.is_array())
        return std::ranges::equal(exported.as_array(), sample.as_array(), holds);
    return exported == sample;
}

Value zeroOfKind(const Value& value) {
    if (value.is_number())
        return 0;
    if (value.is_bool())
        return false;
    return value.is_array() ? Value(ValueArray()) : Value("");
}

class RecordTable : public testing::TestWithParam<Type> {
protected:
    const Type& type = GetParam();
    const Special special = type.special;
    const std::string sample = sampleOf(type.name());
    const Dictionary members = boost::json::parse(sample).as_object();
    const std::shared_ptr<BaseEntity> fresh = type.filled(JSON::parse("{}"));
    const std::shared_ptr<BaseEntity> record = type.filled(JSON::parse(sample));

    bool isConstant(std::string_view property) const {
        return type.name() == "ClientOperaItem" && property == "PlatformId";
    }
};

TEST_P(RecordTable, HasItsPropertiesInOrderWithTheirDefaults) {
    Dictionary expected;
    for (const auto& [name, value] : members)
        expected[name] = zeroOfKind(value);
    const Value unusual = boost::json::parse(special.defaults);
    for (const auto& [name, value] : unusual.as_object())
        expected.at(name) = value;
    for (const char* const json :
         {"{}", R"({"Dict":{}})", "null", "5", R"("Id")", R"([{"Id":1}])", R"({"id":1})"})
        EXPECT_EQ(toText(type.filled(JSON::parse(json))->properties()), toText(expected)) << json;
}

TEST_P(RecordTable, IsFilledFromAFullSampleAndFilledAgain) {
    for (int fill = 0; fill < 3; ++fill, record->setValue(JSON::parse(sample)))
        for (const auto& [name, value] : members) {
            const Value expected = isConstant(name) ? fresh->value(name) : value;
            EXPECT_TRUE(holds(record->value(name), expected))
                << name << ": " << record->value(name) << " instead of " << expected;
            EXPECT_NE(fresh->value(name), value) << name << ": the sample has the default";
        }
    record->setValue(JSON::parse(toText(fresh->properties())));
    EXPECT_EQ(toText(changes(*record, *fresh)), "{}");
}

TEST_P(RecordTable, TakesEachPropertyFromItsOwnKey) {
    for (const auto& [name, value] : members) {
        const JSON json = JSON::parse(toText(Dictionary({{name, value}})));
        std::string names;
        for (const auto& [changed, ignored] : changes(*type.filled(json), *fresh))
            names += changed;
        EXPECT_EQ(names, isConstant(name) ? "" : std::string(name));
    }
}

TEST_P(RecordTable, IsReadBackFromItsExport) {
    const std::string text = toText(record->properties());
    EXPECT_EQ(toText(type.filled(JSON::parse(text))->properties()), text);
    std::string written = "{";
    record->schema().writer().write(*record, written);
    EXPECT_EQ(written + "}", text);
    const std::string dictionary = special.dictionary;
    if (dictionary.empty()) {
        EXPECT_THROW((void)record->value("Dict"), UndefinedKeyError);
    } else if (dictionary != "tested elsewhere") {
        Dictionary expected = dictionary == "all" ? record->properties() : Dictionary();
        std::istringstream names(dictionary == "all" ? "" : dictionary);
        for (std::string name; names >> name;)
            expected[name] = members.at(name);
        EXPECT_EQ(toText(record->value("Dict")), toText(expected));
    }
}

TEST_P(RecordTable, RunsTheOverridesOfItsContractWhileItIsMade) {
    EXPECT_EQ(type.callsWhileMade(JSON::parse(sample)), special.calls);
}

INSTANTIATE_TEST_SUITE_P(All, RecordTable, testing::ValuesIn(types),
                         [](const auto& type) { return type.param.name(); });

template <class List, class Item>
void expectList(const char* type, const Records<Item>& (List::*get)() const&,
                void (List::*set)(Records<Item>), std::size_t itemsOfOdd = 6) {
    SCOPED_TRACE(type);
    const JSON sample = JSON::parse(sampleOf(type));
    List list(sample);
    for (std::size_t i = 0; i < sample.count(); ++i)
        EXPECT_EQ(toText((list.*get)().at(i)->properties()),
                  toText(Item::create(sample[i])->properties()));
    for (const char* const none : {R"({"List":[{}],"list":[{}]})", "[]", "null", R"("[{}]")"})
        EXPECT_EQ((List(JSON::parse(none)).*get)().size(), 0U) << none;
    const List odd(JSON::parse(R"([{"Id":7},5,null,[{"Id":8}],"x",{"Id":9}])"));
    EXPECT_EQ((odd.*get)().size(), itemsOfOdd);
    EXPECT_EQ((odd.*get)().front()->Id() * 10 + (odd.*get)().back()->Id(), 79);
    (list.*set)((odd.*get)());
    EXPECT_EQ((list.*get)(), (odd.*get)());
}

TEST(ListTable, MakesOneItemForEachElementOfAnArray) {
    expectList("FontList", &FontList::List, &FontList::setList, 2); // of each object alone
    expectList("FontTagList", &FontTagList::List, &FontTagList::setList);
    expectList("UrlList", &UrlList::list, &UrlList::setList);
    expectList("FontCollectionList", &FontCollectionList::List, &FontCollectionList::setList);
    expectList("FontSearchList", &FontSearchList::List, &FontSearchList::setList);
    expectList("PhoneNumberPrefixList", &PhoneNumberPrefixList::list,
               &PhoneNumberPrefixList::setList);
}

TEST(RecordWriter, WritesNullForARecordThatIsNone) {
    const auto font = FontItem::create();
    font->setChildren({nullptr});
    std::string written;
    font->schema().writer().write(*font, written);
    for (const std::string& text : {written, toText(font->properties())})
        EXPECT_NE(text.find(R"("Children":[null])"), std::string::npos) << text;
    EXPECT_EQ(toText(font->value("Children")), "[null]");
}

TEST(RecordList, IsARangeAndOutlivesATemporary) {
    const char* const text = R"([{"Id":1},{"Id":2}])";
    std::string ids;
    for (const auto& font : FontList(JSON::parse(text)).List())
        ids += std::to_string(font->Id());
    for (const auto& address : UrlList(JSON::parse(text)).list())
        ids += std::to_string(address->Id());
    const FontList list = FontList::parse(text);
    for (const auto& font : list)
        ids += std::to_string(font->Id());
    EXPECT_EQ(ids, "121212");
    EXPECT_EQ(std::tuple(list.size(), list.empty(), list[1]->Id()), std::tuple(2U, false, 2));
}

TEST(Export, WritesManyLargeDictionariesInLinearTime) {
    const auto group = FontItem::create();
    group->setIsGroup(true);
    group->setChildren({8, FontItem::create()});
    const Records<FontItem> groups(20'000, group);
    EXPECT_EQ(toText(FontItem::getFontArray(groups)), FontItem::getFontArrayText(groups));
}

} // namespace
