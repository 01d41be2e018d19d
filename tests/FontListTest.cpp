#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/Dictionary.hpp>
#include <PerchAppLibrary/JSON.hpp>

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

using namespace VelmoCloudEntity;
using PerchAppLibrary::Dictionary;
using PerchAppLibrary::Excluded;
using PerchAppLibrary::JSON;
using PerchAppLibrary::toText;

namespace {

Records<FontItem> fonts(std::string_view text) { return FontList(JSON::parse(text)).List(); }

/// The product names, one after the other.
std::string names(const Records<FontItem>& list) {
    std::string joined;
    for (const auto& font : list)
        joined += font->ProductName();
    return joined;
}

TEST(FontList, MakesAFontOfEachObject) {
    const struct {
        const char* json;
        const char* expected;
    } cases[] = {
        {R"([{"ProductName":"A"},5,{"ProductName":"B"}])", "AB"},
        {R"([null,"x",true,[{"ProductName":"X"}],{"ProductName":"A"},1.5])", "A"},
        {R"([7])", ""},
        {R"([])", ""},
        {R"({"ProductName":"A"})", ""},
        {R"("A")", ""},
        {"1", ""},
        {"null", ""},
    };
    for (const auto& [json, expected] : cases)
        EXPECT_EQ(names(fonts(json)), expected) << json;
    EXPECT_EQ(fonts(R"([{}, 5, {"Children":[1, {}]}])").at(1)->Children().size(), 2u);
}

/// A tree whose leaves A, C, D, E answer every filter and whose groups do so too, but must not come
/// themselves.
constexpr const char* tree = R"([
    {"IsGroup":true,"isActivated":true,"IsFavorited":true,"IsAuthed":true,"ProductName":"G","Children":[
        {"ProductName":"A","isActivated":true,"IsFavorited":true,"IsAuthed":true},
        {"ProductName":"B","IsFontAuth":true,"IsFree":true,"IsMemberFont":true},
        {"IsGroup":true,"Children":[
            {"ProductName":"C","isActivated":true,"IsFavorited":true,"IsAuthed":true}]}]},
    {"ProductName":"D","isActivated":true,"IsFavorited":true,"IsAuthed":true,
        "Children":[{"ProductName":"X","isActivated":true,"IsFavorited":true,"IsAuthed":true}]},
    {"IsGroup":true,"isActivated":true,"IsFavorited":true,"IsAuthed":true,"ProductName":"H"},
    {"ProductName":"Y","Children":[{"ProductName":"Z","isActivated":true,"IsFavorited":true,"IsAuthed":true}]},
    {"ProductName":"E","isActivated":true,"IsFavorited":true,"IsAuthed":true}])";

TEST(FontList, FiltersTakeLeavesInTheOrderOfTheTree) {
    for (const auto& filter :
         {FontList::getActivatedFont, FontList::getFavoritedFont, FontList::getAuthorizedFont}) {
        const Records<FontItem> list = fonts(tree);
        EXPECT_EQ(names(filter(list)), "ACDE");
        EXPECT_TRUE(filter({}).empty());
        // An object comes as often as it stands in the tree, and it is the object itself.
        const Records<FontItem> repeated{list[4], list[0], list[4], list[0]};
        const Records<FontItem> taken = filter(repeated);
        EXPECT_EQ(names(taken), "EACEAC");
        EXPECT_EQ(taken[0], list[4]);
        EXPECT_EQ(taken[3], list[4]);
        EXPECT_EQ(taken[4], list[0]->Children()[0]);
    }
}

TEST(FontList, EachFilterReadsItsOwnFlag) {
    const auto list = fonts(R"([{"ProductName":"A","isActivated":true},{"ProductName":"F","IsFavorited":true},
                                {"ProductName":"U","IsAuthed":true}])");
    EXPECT_EQ(names(FontList::getActivatedFont(list)), "A");
    EXPECT_EQ(names(FontList::getFavoritedFont(list)), "F");
    EXPECT_EQ(names(FontList::getAuthorizedFont(list)), "U");
}

TEST(FontList, CountsLeaves) {
    const struct {
        const char* json;
        std::int64_t fonts;
        std::int64_t activated;
    } cases[] = {
        {"[]", 0, 0},
        {R"([{},{"IsGroup":true},{"IsGroup":true,"Children":[{},{"isActivated":true}]}])", 3, 1},
        {R"([{"IsGroup":true,"isActivated":true,"Children":[{"IsGroup":true,"isActivated":true}]}])", 0, 0},
        {tree, 6, 4},
    };
    for (const auto& [json, count, activated] : cases) {
        EXPECT_EQ(FontList::getFontCount(fonts(json)), count) << json;
        EXPECT_EQ(FontList::getActivatedFontCount(fonts(json)), activated) << json;
    }
}

TEST(FontList, MarksTheLeavesThatAReferenceMatches) {
    const struct {
        const char* leaf;
        const char* references;
        bool expected;
    } cases[] = {
        // From Id 1 on, Id and IsPrivate decide, and names do not.
        {R"("Id":12,"ProductName":"A")", R"([{"Id":12,"ProductName":"B"}])", true},
        {R"("Id":12,"ProductName":"A")", R"([{"Id":12,"IsPrivate":true,"ProductName":"A"}])", false},
        {R"("Id":12,"IsPrivate":true)", R"([{"Id":12}])", false},
        {R"("Id":12,"IsPrivate":true)", R"([{"Id":12},{"Id":12,"IsPrivate":true}])", true},
        {R"("Id":12,"ProductName":"A")", R"([{"Id":13,"ProductName":"A"},{"ProductName":"A"}])", false},
        {R"("Id":1,"ProductName":"A")", R"([{"Id":2,"ProductName":"A"}])", false},
        {R"("Id":1)", R"([{"Id":1}])", true},
        {R"("Id":4294967297)", R"([{"Id":1}])", false},
        {R"("Id":9223372036854775807)", R"([{"Id":1},{"Id":9223372036854775807}])", true},
        // Below, the name alone decides.
        {R"("ProductName":"A")", R"([{"Id":7,"IsPrivate":true,"ProductName":"A"}])", true},
        {R"("Id":-3,"IsPrivate":true,"ProductName":"A")", R"([{"Id":7,"ProductName":"A"}])", true},
        {R"("Id":-3,"ProductName":"A")", R"([{"Id":-3,"ProductName":"B"}])", false},
        {R"("ProductName":"A")", R"([{"ProductName":"B"}])", false},
        {R"("ProductName":"A")", R"([{"ProductName":"a"}])", false},
        {R"("ProductName":"A")", R"([{"ProductName":"A "}])", false},
        {R"("ProductName":"A")", R"([{"ProductName":"AB"},{"ProductName":""}])", false},
        {R"("ProductName":"A")", R"([{"ProductName":"A\u0000"}])", false},
        {R"("ProductName":"")", R"([{"Id":9}])", true},
        // Names are equal when they are canonically equivalent.
        {R"("ProductName":"caf\u00E9")", R"([{"ProductName":"cafe\u0301"}])", true},
        {R"("ProductName":"cafe\u0301")", R"([{"ProductName":"caf\u00E9"}])", true},
        {R"("ProductName":"\u212B")", R"([{"ProductName":"\u00C5"}])", true},
        {R"("ProductName":"q\u0307\u0323")", R"([{"ProductName":"q\u0323\u0307"}])", true},
        {R"("ProductName":"\uD55C")", R"([{"ProductName":"\u1112\u1161\u11AB"}])", true},
        {R"("ProductName":"caf\u00E9")", R"([{"ProductName":"cafe"},{"ProductName":"caf\u00C9"}])", false},
        {R"("ProductName":"\uFB01")", R"([{"ProductName":"fi"}])", false},
        // References are a plain array: a group is a reference itself, its members are none.
        {R"("Id":5)", R"([{"Id":5,"IsGroup":true}])", true},
        {R"("Id":5)", R"([{"Id":6,"IsGroup":true,"Children":[{"Id":5}]}])", false},
        {R"("Id":5)", "[]", false},
    };
    for (const auto& [leaf, references, expected] : cases) {
        SCOPED_TRACE(std::string(leaf) + " " + references);
        // Alone; between others; and deep in a group, next to a child of a leaf that is never entered.
        const std::string font = std::string("{") + leaf + "}";
        const auto list =
            fonts("[" + font + R"(,{"Id":77},{"IsGroup":true,"Children":[{"IsGroup":true,"Children":[)" +
                  font + R"(]},{"Id":78,"Children":[)" + font + "]}]}]");
        const auto group = list[2];
        const auto deep = group->Children()[0]->Children()[0];
        const auto hidden = group->Children()[1]->Children()[0];
        FontList::setActivatedFont(list, fonts(references));
        EXPECT_EQ(list[0]->IsActivated(), expected);
        EXPECT_EQ(deep->IsActivated(), expected);
        EXPECT_EQ(FontList::getActivatedFontCount(list), expected ? 2 : 0);
        EXPECT_FALSE(hidden->isActivated());
        EXPECT_TRUE(FontList::getFavoritedFont(list).empty()) << "the other flag is not touched";
        FontList::setFavoritedFont(list, fonts(references));
        EXPECT_EQ(list[0]->IsFavorited(), expected);
        EXPECT_EQ(FontList::getFavoritedFont(list).size(), expected ? 2u : 0u);
        EXPECT_FALSE(hidden->IsFavorited());
    }
}

TEST(FontList, TextThatIsNotUTF8ComparesAsTheReplacementCharacter) {
    const Records<FontItem> list{FontItem::create({.productName = "a\xff"}),
                                 FontItem::create({.productName = "a"})};
    FontList::setActivatedFont(list, {FontItem::create({.productName = "a\uFFFD"})});
    EXPECT_TRUE(list[0]->IsActivated());
    EXPECT_FALSE(list[1]->IsActivated());
}

TEST(FontList, MarkingNeverClearsAndLeavesGroupsAlone) {
    const auto list = fonts(R"([{"Id":1},{"Id":3,"IsGroup":true,"Children":[{"Id":1},{"Id":2}]},
                                {"Id":3,"IsGroup":true},{"Id":9,"isActivated":true,"IsFavorited":true}])");
    const Records<FontItem> none;
    const auto marks = [&] {
        std::string text;
        for (const auto& font :
             {list[0], list[1], list[1]->Children()[0], list[1]->Children()[1], list[2], list[3]})
            text +=
                font->isActivated() ? (font->IsFavorited() ? "b" : "a") : (font->IsFavorited() ? "f" : "-");
        return text;
    };
    FontList::setActivatedFont(list, none);
    FontList::setFavoritedFont(none, list);
    EXPECT_EQ(marks(), "-----b");
    FontList::setActivatedFont(list, fonts(R"([{"Id":1},{"Id":3}])"));
    EXPECT_EQ(marks(), "a-a--b");
    EXPECT_FALSE(list[1]->IsActivated());
    FontList::setActivatedFont(list, fonts(R"([{"Id":2}])"));
    EXPECT_EQ(marks(), "a-aa-b");
    EXPECT_TRUE(list[1]->IsActivated()) << "every member is, though the group's own flag is not";
    FontList::setFavoritedFont(list,
                               list); // the groups are references too, but nothing is marked for their sake
    EXPECT_EQ(marks(), "b-ba-b");
    FontList::setFavoritedFont(list, none);
    EXPECT_EQ(marks(), "b-ba-b");
}

/// A leaf whose accessors answer for what is stored.
struct ClientFont : FontItem {
    std::string name = "Client";
    std::string shown = "Shown";
    std::string writes;

    std::int64_t Id() const override { return 12; }
    bool IsPrivate() const override { return true; }
    const std::string& ProductName() const override { return name; }
    std::string DisplayName() const override { return shown; }
    bool IsActivated() const override { return true; }
    bool IsFavorited() const override { return true; }
    bool IsAuthed() const override { return true; }
    std::string LocalFile() const override { return "/dev/null"; }
    void setIsActivated(bool flag) override { writes += flag ? "A" : "a"; }
    void setIsFavorited(bool flag) override { writes += flag ? "F" : "f"; }
    Dictionary Dict() const override { return {{"client", FontItem::Dict().at("Id")}}; }
};

/// A group by its accessors alone.
struct ClientGroup : FontItem {
    Records<FontItem> members;
    std::string setName = "Set";

    bool IsGroup() const override { return true; }
    const Records<FontItem>& Children() const override { return members; }
    const std::string& ProductSetName() const override { return setName; }
    bool isActivated() const override { return true; }
};

TEST(FontList, QueriesHonourOverriddenAccessors) {
    const auto group = FontItem::create<ClientGroup>();
    const auto client = FontItem::create<ClientFont>();
    const auto plain = FontItem::create({.id = 12, .productName = "Client", .isPrivate = true});
    const auto byName = FontItem::create({.productName = "Client"});
    const auto other = FontItem::create({.id = 12, .productName = "Client", .isPrivate = false});
    group->setChildren({other}); // stored, but not what the group answers
    group->members = {client, plain, byName, other};
    for (const auto& filter :
         {FontList::getActivatedFont, FontList::getFavoritedFont, FontList::getAuthorizedFont})
        EXPECT_EQ(filter({group}), Records<FontItem>{client});
    EXPECT_EQ(FontList::getFontCount({group}), 4);
    EXPECT_EQ(FontList::getActivatedFontCount({group}), 1);

    FontList::setActivatedFont({group}, {other}); // matches byName, but not the client's font
    EXPECT_EQ(client->writes, "");
    EXPECT_TRUE(byName->IsActivated());
    FontList::setActivatedFont({group}, {client});
    FontList::setFavoritedFont({group}, {plain});
    EXPECT_EQ(client->writes, "AF");
    EXPECT_TRUE(plain->IsActivated());
    FontList::setFavoritedFont({other, byName}, {client});
    EXPECT_FALSE(other->IsFavorited());
    EXPECT_TRUE(byName->IsFavorited()) << "matched by the name that the reference answers";
}

TEST(FontList, DerivedValuesHonourOverriddenAccessors) {
    const auto group = FontItem::create<ClientGroup>();
    const auto client = FontItem::create<ClientFont>();
    EXPECT_EQ(client->PreviewText(), "Shown");
    EXPECT_EQ(client->TreeNodeTitle(), "Client(, )");
    EXPECT_TRUE(client->IsLocaled());
    group->members = {client};
    EXPECT_EQ(group->DisplayName(), "Set (1)");
    EXPECT_EQ(group->PreviewText(), "Set");
    EXPECT_EQ(group->TreeNodeTitle(), "Set");
    EXPECT_FALSE(group->IsActivated()) << "the member's stored flag counts, not its IsActivated";
    group->setActivated(true);
    group->setActivated(false);
    EXPECT_EQ(client->writes, "Aa");
    group->members = {FontItem::create<ClientGroup>()};
    EXPECT_TRUE(group->IsActivated()) << "the stored flag is read through its accessor";

    group->members = {client, FontItem::create({.productName = "A"})};
    const Dictionary exported = group->Dict();
    EXPECT_TRUE(exported.at("IsGroup").as_bool());
    EXPECT_EQ(exported.at("ProductSetName").as_string(), "Set");
    EXPECT_EQ(toText(exported.at("Children").at(0)), R"({"client":12})");
    EXPECT_EQ(exported.at("Children").at(1).at("ProductName").as_string(), "A");
    EXPECT_EQ(toText(FontItem::getFontArray({client})), R"([{"client":12}])");
}

/// Writes down how it is filled, and changes what it is given.
struct FilledFont : FontItem {
    std::vector<std::string> excludedKeys;

    void setId(std::int64_t newId) override { FontItem::setId(newId + 100); }
    void setProductName(std::string newName) override { FontItem::setProductName("my " + newName); }
    void setChildren(Records<FontItem> newChildren) override {
        newChildren.push_back(create({.productName = "mine"}));
        FontItem::setChildren(std::move(newChildren));
    }
    void setValue(const JSON& json) override {
        FontItem::setValue(json);
        setVersion("filled");
    }
    void setValue(const JSON& json, Excluded excluded) override {
        excludedKeys.assign(excluded.keys().begin(), excluded.keys().end());
        FontItem::setValue(json, excluded);
    }
};

TEST(FontList, ConstructionAndMappingHonourOverriddenOperations) {
    EXPECT_EQ((FontItem::create<FilledFont>({.id = 7, .productName = "A", .isPrivate = true}))->Id(), 107);
    const auto font =
        FontItem::create<FilledFont>(JSON::parse(R"({"Id":7,"ProductName":"A","Children":[{}]})"));
    EXPECT_EQ(font->Version(), "filled");
    EXPECT_EQ(font->excludedKeys, std::vector<std::string>{"Children"});
    EXPECT_EQ(font->Id(), 107);
    EXPECT_EQ(font->ProductName(), "my A");
    EXPECT_EQ(font->Children().size(), 2u);
    EXPECT_EQ(names(font->Children()), "mine");
}

} // namespace
