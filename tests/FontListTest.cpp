#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <gtest/gtest.h>

#include <cstdint>
#include <regex>
#include <string>
#include <tuple>
#include <vector>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;

namespace {

constexpr auto filters = {FontList::getActivatedFont, FontList::getFavoritedFont,
                          FontList::getAuthorizedFont};

Records<FontItem> fonts(const std::string& text) { return FontList(JSON::parse(text)).List(); }

/// The product names, one after the other.
std::string names(const Records<FontItem>& list) {
    std::string joined;
    for (const auto& font : list)
        joined += font->ProductName();
    return joined;
}

TEST(FontList, MakesAFontOfEachObject) {
    EXPECT_EQ(names(fonts(R"([{"ProductName":"A"},5,{"ProductName":"B"}])")), "AB");
    EXPECT_EQ(names(fonts(R"([null,"x",true,[{"ProductName":"X"}],{"ProductName":"A"},1.5])")),
              "A");
    for (const char* json : {R"({"ProductName":"A"})", "[]", "[7]", R"("A")", "1", "null"})
        EXPECT_TRUE(fonts(json).empty()) << json;
}

TEST(FontList, QueriesTakeLeavesInTheOrderOfTheTree) {
    // A star stands for the flags; only A, C, D and E are leaves with them that a query may look
    // at.
    const std::string flags = R"("isActivated":true,"IsFavorited":true,"IsAuthed":true)";
    const auto list = fonts(std::regex_replace(R"([
        {"ProductName":"G","IsGroup":true,*,"Children":[
            {"ProductName":"A",*},{"ProductName":"B","IsFontAuth":true,"IsFree":true,"IsMemberFont":true},
            {"IsGroup":true,"Children":[{"ProductName":"C",*}]}]},
        {"ProductName":"D",*,"Children":[{"ProductName":"X",*}]},{"ProductName":"H","IsGroup":true,*},
        {"ProductName":"Y","Children":[{"ProductName":"Z",*}]},{"ProductName":"E",*},
        {"ProductName":"1","isActivated":true},{"ProductName":"2","IsFavorited":true},
        {"ProductName":"3","IsAuthed":true}])",
                                               std::regex("\\*"), flags));
    char own = '0'; // each reads its own flag
    for (const auto& filter : filters) {
        EXPECT_EQ(names(filter(list)), std::string("ACDE") + ++own);
        EXPECT_TRUE(filter({}).empty());
        // An object comes as often as it stands in the tree, and it is the object itself.
        const auto a = list[0]->Children()[0], c = list[0]->Children()[2]->Children()[0],
                   e = list[4];
        EXPECT_TRUE((filter({e, list[0], e, list[0]}) == Records<FontItem>{e, a, c, e, a, c}));
    }
    EXPECT_EQ(FontList::getFontCount(list) * 10 + FontList::getActivatedFontCount(list), 95);
}

TEST(FontList, MarksTheLeavesThatAReferenceMatches) {
    struct Font {
        std::int64_t id;
        std::string name;
        bool isPrivate = false;
        std::shared_ptr<FontItem> make() const {
            return FontItem::create({.id = id, .productName = name, .isPrivate = isPrivate});
        }
    };
    // A leaf, references that match it, and others that do not.
    const std::tuple<Font, std::vector<Font>, std::vector<Font>> cases[] = {
        // From Id 1 on, Id and IsPrivate decide, and names do not.
        {{12, "A"}, {{12, "A"}, {12, "B"}}, {{12, "A", true}, {13, "A"}, {0, "A"}}},
        {{12, "A", true}, {{12, "B", true}}, {{12, "A"}, {0, "A", true}}},
        {{1, "A"}, {{1, ""}}, {{2, "A"}, {0, "A"}, {-1, "A"}, {4294967297, "A"}}},
        {{INT64_MAX, "A"}, {{INT64_MAX, "B"}}, {{-1, "A"}}},
        // Below, the name alone decides.
        {{0, "A"},
         {{0, "A"}, {7, "A", true}},
         {{0, "B"}, {0, "a"}, {0, "A "}, {0, {"A\0", 2}}, {0, ""}}},
        {{-3, "AB", true}, {{7, "AB"}, {-4, "AB"}}, {{-3, "B", true}, {-3, "A", true}}},
        {{0, ""}, {{9, ""}}, {{0, "A"}}},
        // Names are equal when they are canonically equivalent; bytes that are no text stand for
        // U+FFFD.
        {{0, "caf\u00E9"}, {{0, "cafe\u0301"}}, {{0, "cafe"}, {0, "caf\u00C9"}, {0, "cafE\u0301"}}},
        {{0, "cafe\u0301"}, {{0, "caf\u00E9"}}, {{0, "cafe"}}},
        {{0, "\u212B"}, {{0, "\u00C5"}, {0, "A\u030A"}}, {{0, "A"}, {0, "\u00E5"}}},
        {{0, "q\u0307\u0323"}, {{0, "q\u0323\u0307"}}, {{0, "q\u0307"}}},
        {{0, "\uD55C\uFB01"}, {{0, "\u1112\u1161\u11AB\uFB01"}}, {{0, "\uD55Cfi"}}},
        {{0, "a\xff"}, {{0, "a\uFFFD"}, {0, "a\xfe"}}, {{0, "a"}}},
    };
    for (const auto& [leaf, matching, different] : cases)
        for (const bool expected : {true, false})
            for (const Font& other : expected ? matching : different) {
                SCOPED_TRACE(testing::Message()
                             << leaf.id << leaf.name << " / " << other.id << other.name);
                // The leaf stands alone, in a group, and below another leaf, where it is never
                // found.
                const auto alone = leaf.make(), inner = leaf.make(), hidden = leaf.make();
                const auto group = FontItem::create({.groupTag = "g"}),
                           host = Font{77, "host"}.make();
                host->setChildren({hidden});
                group->setChildren({host, inner});
                const Records<FontItem> list{host, group, alone},
                    known{Font{9, "-"}.make(), other.make()};
                const auto marked =
                    expected ? Records<FontItem>{inner, alone} : Records<FontItem>{};
                FontList::setActivatedFont(list, known);
                EXPECT_TRUE(FontList::getActivatedFont(list) == marked);
                EXPECT_TRUE(FontList::getFavoritedFont(list).empty())
                    << "the other flag is not touched";
                FontList::setFavoritedFont(list, known);
                EXPECT_TRUE(FontList::getFavoritedFont(list) == marked);
                EXPECT_FALSE(hidden->isActivated() || hidden->IsFavorited());
            }
}

TEST(FontList, MarkingNeverClearsAndLeavesGroupsAlone) {
    const auto list = fonts(R"([{"Id":1},{"Id":3,"IsGroup":true,"Children":[{"Id":1},{"Id":2}]},
                                {"Id":3,"IsGroup":true},{"Id":9,"isActivated":true,"IsFavorited":true}])");
    const auto& members = list[1]->Children();
    const auto marks = [&](const auto& mark, const std::string& references) {
        mark(list, fonts(references));
        std::string text;
        for (const auto& font : {list[0], list[1], members[0], members[1], list[2], list[3]})
            text += "-afb"[(font->isActivated() ? 1 : 0) + (font->IsFavorited() ? 2 : 0)];
        return text;
    };
    EXPECT_EQ(marks(FontList::setActivatedFont, "[]"), "-----b");
    EXPECT_EQ(marks(FontList::setActivatedFont, R"([{"Id":1},{"Id":3}])"), "a-a--b");
    // References are a plain array: a group is a reference itself, its members are none.
    EXPECT_EQ(marks(FontList::setActivatedFont, R"([{"IsGroup":true,"Children":[{"Id":2}]}])"),
              "a-a--b");
    EXPECT_EQ(marks(FontList::setActivatedFont, R"([{"Id":2,"IsGroup":true}])"), "a-aa-b");
    EXPECT_TRUE(list[1]->IsActivated())
        << "every member is, though the group's own flag is not set";
    EXPECT_EQ(marks(FontList::setFavoritedFont, R"([{"Id":2}])"), "a-ab-b");
    EXPECT_EQ(marks(FontList::setFavoritedFont, R"([{"Id":1}])"), "b-bb-b");
}

/// A leaf whose accessors answer in place of what is stored.
struct ClientFont : FontItem {
    std::string name = "Client", writes;
    std::int64_t Id() const override { return 12; }
    bool IsPrivate() const override { return true; }
    const std::string& ProductName() const override { return name; }
    std::string DisplayName() const override { return "Shown"; }
    bool IsActivated() const override { return true; }
    bool IsFavorited() const override { return true; }
    bool IsAuthed() const override { return true; }
    std::string LocalFile() const override { return "/dev/null"; }
    void setIsActivated(bool flag) override { writes += flag ? "A" : "a"; }
    void setIsFavorited(bool flag) override { writes += flag ? "F" : "f"; }
    PerchAppLibrary::Dictionary Dict() const override {
        return {{"client", FontItem::Dict().at("Id")}};
    }
};

/// A group by its accessors alone.
struct ClientGroup : FontItem {
    Records<FontItem> members;
    bool IsGroup() const override { return true; }
    const Records<FontItem>& Children() const override { return members; }
    bool isActivated() const override { return true; }
};

TEST(FontList, QueriesAndDerivedValuesHonourOverriddenAccessors) {
    const auto group = FontItem::create<ClientGroup>();
    const auto client = FontItem::create<ClientFont>();
    const auto plain = FontItem::create({.id = 12, .productName = "A", .isPrivate = true});
    const auto other = FontItem::create({.id = 12, .productName = "Client", .isPrivate = false});
    const auto byName = FontItem::create({.productName = "Client"});
    group->setChildren({other}); // stored, but not what the group answers
    group->members = {client, plain, byName};
    for (const auto& filter : filters)
        EXPECT_TRUE(filter({group}) == Records<FontItem>{client});
    EXPECT_EQ(FontList::getFontCount({group}) + FontList::getActivatedFontCount({group}), 4);
    FontList::setActivatedFont({group}, {other});
    EXPECT_EQ(client->writes, "");
    FontList::setActivatedFont({group, other}, {client});
    FontList::setFavoritedFont({group}, {plain});
    EXPECT_EQ(client->writes, "AF");
    EXPECT_TRUE(plain->IsActivated() && byName->IsActivated() && !other->IsActivated());

    EXPECT_EQ(client->PreviewText() + client->TreeNodeTitle(), "ShownClient(, )");
    EXPECT_TRUE(client->IsLocaled());
    group->members = {FontItem::create<ClientGroup>()};
    EXPECT_TRUE(group->IsActivated()) << "a member's stored flag is read through its accessor";
    group->members = {client};
    EXPECT_FALSE(group->IsActivated()) << "the stored flag counts, not the member's IsActivated";
    group->setActivated(true);
    group->setActivated(false);
    EXPECT_EQ(client->writes, "AFAa");
    EXPECT_EQ(group->DisplayName(), " (1)");
    EXPECT_TRUE(group->Dict().at("IsGroup").as_bool());
    EXPECT_EQ(PerchAppLibrary::toText(group->Dict().at("Children")), R"([{"client":12}])");
    EXPECT_EQ(PerchAppLibrary::toText(FontItem::getFontArray({client})), R"([{"client":12}])");
}

/// Writes down how it is filled, and changes what it is given.
struct FilledFont : FontItem {
    std::vector<std::string> excludedKeys;
    void setId(std::int64_t newId) override { FontItem::setId(newId + 100); }
    void setProductName(std::string newName) override { FontItem::setProductName("my " + newName); }
    void setValue(const JSON& json) override { FontItem::setValue(json["font"]); }
    void setValue(const JSON& json, PerchAppLibrary::Excluded excluded) override {
        excludedKeys.assign(excluded.keys().begin(), excluded.keys().end());
        FontItem::setValue(json, excluded);
    }
};

TEST(FontList, ConstructionAndMappingHonourOverriddenOperations) {
    EXPECT_EQ(
        (FontItem::create<FilledFont>({.id = 7, .productName = "A", .isPrivate = true})->Id()),
        107);
    const auto font =
        FontItem::create<FilledFont>(JSON::parse(R"({"font":{"Id":7,"ProductName":"A"}})"));
    EXPECT_EQ(std::to_string(font->Id()) + font->ProductName(), "107my A");
    EXPECT_EQ(font->excludedKeys, std::vector<std::string>{"Children"});
}

} // namespace
