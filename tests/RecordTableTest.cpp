// What holds for every type of record and list, on a sample in which each property has a value.
#include "RecordTesting.hpp"

#include <tools/velmo/AllRecords.hpp>

#include <PerchAppLibrary/record/internal/RecordWriter.hpp>

#include <boost/json/parse.hpp>

#include <algorithm>
#include <concepts>
#include <map>
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

/// How a type of record differs from most.
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

const char* const onPlatform1 = R"({"PlatformId":1})";

const std::map<std::string_view, Special> specials{
    {"FontItem", {.dictionary = "tested elsewhere"}},
    {"FontTagItem", {.defaults = R"({"SubNameTextImageStyle":"TextOnly",
                           "SubNameDisplayStyle":"List","SubTagFilterType":"Or"})"}},
    {"UrlItem", {.calls = ""}},
    {"FontSearchItem",
     {.defaults = onPlatform1,
      .dictionary = "UserGuid ProductId SearchKey PlatformId SearchCount Ranking"}},
    {"FontImageItem",
     {.defaults = R"({"BackColor":"#000000","ForeColor":"#FFFFFF","EmSize":32.0})",
      .dictionary = "ProductId PreviewText BackColor ForeColor EmSize"}},
    {"FontApplyItem", {.defaults = onPlatform1}},
    {"ZRFontEffectEntity", {.defaults = R"({"ContainDisabled":true})"}},
    {"FontUploadItem", {.dictionary = "UserGuid ProductFileName"}},
    {"UserItem", {.defaults = R"({"sms_token":"","PlatformId":1})", .dictionary = "all"}},
    {"SmsTokenItem", {.calls = ""}},
    {"EsUserItem", {.dictionary = "all", .calls = "mapping"}},
    {"UserFontGroupMapItem", {.calls = ""}},
    {"UserFontActivateMapItem", {.calls = ""}},
    {"UserFontFavoriteMapItem", {.calls = ""}},
    {"PhoneNumberPrefixItem", {.calls = ""}},
    {"ConfigItem",
     {.defaults = R"({"PreviewTag":"S","PreviewColorTag":"B","PreviewFontSize":32,
                          "hotKeyCode":null,"systemHotKeyCode":null,"hotKeyString":null})",
      .dictionary = "all",
      .calls = ""}},
    {"ClientOperaItem", {.defaults = onPlatform1}},
    {"ClientVersionItem", {.defaults = onPlatform1}},
    {"ZRMessageBubbleItem", {.defaults = R"({"ContainDisabled":true})"}}};

template <class Record>
Type type() {
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
    const auto special = specials.find(Record::recordName);
    return {special == specials.end() ? Special() : special->second, filled, callsWhileMade};
}

template <class... Records>
std::vector<Type> typesOf(PerchAppLibrary::TypeList<Records...>) {
    return {type<Records>()...};
}
const std::vector<Type> types = typesOf(velmo::AllRecords());

static_assert(!std::default_initializable<ZRFontEffectEntity>); // made from JSON alone

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
    if (value.is_number() || value.is_bool())
        return value.is_bool() ? Value(false) : Value(0);
    return value.is_array() ? Value(ValueArray()) : Value("");
}

/// A type's sample, and a record without and with its values.
struct Tested {
    Tested(const Type& tested) // NOLINT(google-explicit-constructor): for loops over types
        : type(tested),
          sample(::sample("records/" + type.name() + ".json")),
          members(boost::json::parse(sample).as_object()),
          fresh(type.filled(JSON::parse("{}"))),
          record(type.filled(JSON::parse(sample))) {}

    bool isConstant(std::string_view property) const {
        return type.name() == "ClientOperaItem" && property == "PlatformId";
    }

    const Type& type;
    std::string sample;
    Dictionary members;
    std::shared_ptr<BaseEntity> fresh;
    std::shared_ptr<BaseEntity> record;
    testing::ScopedTrace trace{__FILE__, __LINE__, type.name()};
};

TEST(RecordTable, PropertiesAreInOrderWithTheirDefaults) {
    for (const Tested each : types) {
        Dictionary expected;
        for (const auto& [name, value] : each.members)
            expected[name] = zeroOfKind(value);
        const Value unusual = boost::json::parse(each.type.special.defaults);
        for (const auto& [name, value] : unusual.as_object())
            expected.at(name) = value;
        for (const char* const json :
             {"{}", R"({"Dict":{}})", "null", "5", R"("Id")", R"([{"Id":1}])", R"({"id":1})"})
            EXPECT_EQ(difference(toText(each.type.filled(JSON::parse(json))->properties()),
                                 toText(expected)),
                      "")
                << json;
    }
}

TEST(RecordTable, FillsFromAFullSampleAndAgain) {
    for (const Tested each : types) {
        for (int fill = 0; fill < 3; ++fill, each.record->setValue(JSON::parse(each.sample)))
            for (const auto& [name, value] : each.members) {
                const Value expected = each.isConstant(name) ? each.fresh->value(name) : value;
                EXPECT_TRUE(holds(each.record->value(name), expected))
                    << name << ": " << each.record->value(name) << " instead of " << expected;
                EXPECT_NE(each.fresh->value(name), value) << name << ": the sample has the default";
            }
        each.record->setValue(JSON::parse(toText(each.fresh->properties())));
        EXPECT_EQ(difference(toText(each.record->properties()), toText(each.fresh->properties())),
                  "");
    }
}

TEST(RecordTable, TakesEachPropertyFromItsOwnKey) {
    for (const Tested each : types)
        for (const auto& [name, value] : each.members) {
            const JSON json = JSON::parse(toText(Dictionary({{name, value}})));
            std::string names;
            for (const auto& [changed, ignored] : changes(*each.type.filled(json), *each.fresh))
                names += changed;
            EXPECT_EQ(names, each.isConstant(name) ? "" : std::string(name));
        }
}

TEST(RecordTable, ReadsBackItsExport) {
    for (const Tested each : types) {
        const Dictionary exported = each.record->properties();
        const std::string text = toText(exported);
        EXPECT_EQ(difference(toText(each.type.filled(JSON::parse(text))->properties()), text), "");
        std::string written = "{";
        each.record->schema().writer().write(*each.record, written);
        EXPECT_EQ(difference(written + "}", text), "");
        const std::string dictionary = each.type.special.dictionary;
        if (dictionary.empty()) {
            EXPECT_THROW((void)each.record->value("Dict"), UndefinedKeyError);
        } else if (dictionary != "tested elsewhere") {
            Dictionary expected = dictionary == "all" ? exported : Dictionary();
            std::istringstream names(dictionary == "all" ? "" : dictionary);
            for (std::string name; names >> name;)
                expected[name] = each.members.at(name);
            EXPECT_EQ(difference(toText(each.record->value("Dict")), toText(expected)), "");
        }
    }
}

TEST(RecordTable, RunsTheOverridesOfItsContractWhileItIsMade) {
    for (const Tested each : types)
        EXPECT_EQ(each.type.callsWhileMade(JSON::parse(each.sample)), each.type.special.calls);
}

template <class List, class Item>
void expectList(const char* type, const Records<Item>& (List::*get)() const&,
                std::size_t itemsOfOdd = 6) {
    SCOPED_TRACE(type);
    const JSON sample = JSON::parse(::sample("records/" + std::string(type) + ".json"));
    EXPECT_EQ((List(sample).*get)().size(), sample.count());
    for (const char* const none : {R"({"List":[{}],"list":[{}]})", "null", R"("[{}]")"})
        EXPECT_EQ((List(JSON::parse(none)).*get)().size(), 0U) << none;
    const List odd(JSON::parse(R"([{"Id":7},5,null,[{"Id":8}],"x",{"Id":9}])"));
    EXPECT_EQ((odd.*get)().size(), itemsOfOdd);
    EXPECT_EQ((odd.*get)().front()->Id() * 10 + (odd.*get)().back()->Id(), 79);
}

TEST(ListTable, MakesOneItemForEachElementOfAnArray) {
    expectList("FontList", &FontList::List, 2); // of each object alone
    expectList("FontTagList", &FontTagList::List);
    expectList("UrlList", &UrlList::list);
    expectList("FontCollectionList", &FontCollectionList::List);
    expectList("FontSearchList", &FontSearchList::List);
    expectList("PhoneNumberPrefixList", &PhoneNumberPrefixList::list);
}

TEST(RecordList, IsARangeThatOutlivesATemporary) {
    std::int64_t ids = 0;
    for (const auto& font : FontList(JSON::parse(R"([{"Id":1},{"Id":2}])")).List())
        ids = ids * 10 + font->Id();
    EXPECT_EQ(ids, 12);
}

} // namespace
