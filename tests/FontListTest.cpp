#include <VelmoCloudEntity/catalogue/FontTagItem.hpp>
#include <VelmoCloudEntity/entity/RecordTree.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <regex>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;
using PerchAppLibrary::toText;
using testing::PrintToString;

namespace {

using Fonts = Records<FontItem>;
using Ids = std::vector<std::int64_t>;

constexpr auto filters = {FontList::getActivatedFont, FontList::getFavoritedFont,
                          FontList::getAuthorizedFont};

Fonts fonts(const std::string& text) { return FontList(JSON::parse(text)).List(); }

/// The product names, one after the other.
std::string names(const Fonts& list) {
    std::string joined;
    for (const auto& font : list)
        joined += font->ProductName();
    return joined;
}

/// A letter for each font: 'a' if it is activated, 'f' if it is favorited, 'b' if it is both.
std::string marks(const Fonts& list) {
    std::string letters;
    for (const auto& font : list)
        letters += "-afb"[(font->isActivated() ? 1 : 0) + (font->IsFavorited() ? 2 : 0)];
    return letters;
}

/// Tags with these identifiers, all that a query may read of a tag.
Records<FontTagItem> tags(const Ids& ids) {
    Records<FontTagItem> list;
    for (const std::int64_t id : ids)
        list.push_back(FontTagItem::create(JSON::parse("{\"Id\":" + std::to_string(id) + "}")));
    return list;
}

TEST(RecordTree, WalksTheLeavesOfTemporaryLists) {
    const std::string tree = R"([{"Id":1,"IsGroup":true,"Children":[
        {"Id":2},{"Id":3,"IsGroup":true,"Children":[{"Id":4,"Children":[{"Id":5}]}]}]},{"Id":6}])";
    Ids ids;
    const auto visit = [&ids](const auto& leaf) { ids.push_back(leaf->Id()); };
    forEachLeaf(fonts(tree), visit);
    forEachLeaf(makeRecords<FontTagItem>(JSON::parse(tree)), visit);
    EXPECT_EQ(ids, (Ids{2, 4, 6, 2, 4, 6}));
}

TEST(RecordTree, LetsAVisitorChangeWhatComesLaterAndStopTheWalk) {
    const auto list = fonts(R"([{"ProductName":"A"},{"IsGroup":true},{"ProductName":"Z"}])");
    std::string visited;
    const auto visit = [&](const std::shared_ptr<FontItem>& leaf) {
        visited += leaf->ProductName();
        if (visited == "A")
            list[1]->setChildren(fonts(R"([{"ProductName":"B"},{"ProductName":"C"}])"));
        if (visited == "ABC")
            throw std::runtime_error("enough");
    };
    EXPECT_THROW(forEachLeaf(list, visit), std::runtime_error);
    EXPECT_EQ(visited, "ABC");
}

TEST(FontList, FiltersLeavesByTheirOwnFlagInTheOrderOfTheTree) {
    // A star stands for all three flags. Only A, C, D and E are leaves with them.
    const auto list = fonts(std::regex_replace(
        R"([{"ProductName":"G","IsGroup":true,*,"Children":[
                {"ProductName":"A",*}, {"IsFontAuth":true,"IsFree":true,"IsMemberFont":true},
                {"IsGroup":true,"Children":[{"ProductName":"C",*}]}]},
            {"ProductName":"D",*,"Children":[{"ProductName":"X",*}]}, {"IsGroup":true,*},
            {"ProductName":"Y","Children":[{"ProductName":"Z",*}]}, {"ProductName":"E",*},
            {"ProductName":"1","isActivated":true}, {"ProductName":"2","IsFavorited":true},
            {"ProductName":"3","IsAuthed":true}])",
        std::regex("\\*"), R"("isActivated":true,"IsFavorited":true,"IsAuthed":true)"));
    char own = '0';
    for (const auto& filter : filters) {
        EXPECT_EQ(names(filter(list)), std::string("ACDE") + ++own);
        EXPECT_EQ(names(filter({list[4], list[0], list[4]})), "EACE") << "as often as it is there";
        EXPECT_EQ(names(filter({})), "");
    }
    EXPECT_EQ(FontList::getFontCount(list), 9);
    EXPECT_EQ(FontList::getActivatedFontCount(list), 5);
}

struct Key {
    std::int64_t id;
    std::string_view name;
    bool isPrivate = false;

    std::shared_ptr<FontItem> font() const {
        return FontItem::create(
            {.id = id, .productName = std::string(name), .isPrivate = isPrivate});
    }
};

TEST(FontList, MarkingNeverClearsAndTakesReferencesAsAPlainArray) {
    const auto list =
        fonts(R"([{"Id":1},{"Id":9,"isActivated":true,"IsFavorited":true},{"Id":2}])");
    const auto marksAfter = [&](const auto& mark, const char* references) {
        mark(list, fonts(references));
        return marks(list);
    };
    EXPECT_EQ(marksAfter(FontList::setActivatedFont, "[]"), "-b-");
    EXPECT_EQ(marksAfter(FontList::setActivatedFont, R"([{"Id":3},{"Id":1}])"), "ab-");
    const char* const member = R"([{"IsGroup":true,"Children":[{"Id":2}]}])";
    EXPECT_EQ(marksAfter(FontList::setActivatedFont, member), "ab-");
    EXPECT_EQ(marksAfter(FontList::setActivatedFont, R"([{"Id":2,"IsGroup":true}])"), "aba");
    EXPECT_EQ(marksAfter(FontList::setFavoritedFont, R"([{"Id":2}])"), "abb");
}

TEST(FontList, FindsLeavesByTheirIdsAndByTheTagsTheyCarry) {
    const Fonts list = fonts(R"([
        {"ProductName":"G","Id":9,"IsGroup":true,"Tags":[4,7],"Children":[
            {"ProductName":"A","Id":3,"Tags":[7,1,4]},
            {"ProductName":"H","Id":6,"IsGroup":true,"Children":[
                {"ProductName":"B","Id":9,"Tags":[4,4]},{"ProductName":"C","Id":-1}]}]},
        {"ProductName":"D","Id":3,"Tags":[4,4,7],
         "Children":[{"ProductName":"X","Id":5,"Tags":[4,7]}]},
        {"ProductName":"E","Id":9,"Tags":[0,-1]}, {"ProductName":"F","Tags":[8]},
        {"ProductName":"M","Id":9223372036854775807},
        {"ProductName":"N","Id":-9223372036854775808}])");
    const struct {
        Ids ids;
        const char *byId, *byTags, *item; // the item is the first of the list itself
    } cases[] = {
        {{}, "", "ABCDEFMN", ""},
        {{9, 3, 9}, "ABDE", "", "G"}, // each leaf once, and no group
        {{3}, "AD", "", "D"},
        {{6}, "", "", ""},                // a group in a group
        {{5, 1, 4294967299}, "", "", ""}, // below a leaf, and unknown
        {{4}, "", "ABD", ""},
        {{4, 7, 4}, "", "AD", ""},
        {{8, 8}, "", "F", ""},
        {{0, -1}, "CF", "E", "F"},
        {{INT64_MAX, 0, INT64_MIN}, "FMN", "", "M"},
    };
    for (const auto& [ids, byId, byTags, item] : cases) {
        EXPECT_EQ(names(FontList::getFontById(list, ids)), byId) << PrintToString(ids);
        EXPECT_EQ(names(FontList::getFontByTags(list, tags(ids))), byTags) << PrintToString(ids);
        const auto found = ids.empty() ? nullptr : FontList::getFontItemById(list, ids[0]);
        EXPECT_EQ(found ? found->ProductName() : "", item) << PrintToString(ids);
    }
    EXPECT_EQ(names(FontList::getFontById({list[1], list[0], list[1]}, {3})), "DAD");
    const auto group = tags({4});
    group[0]->setIsGroup(true);
    group[0]->setChildren(tags({7}));
    EXPECT_EQ(names(FontList::getFontByTags(list, group)), "ABD") << "a group's own Id counts";
}

TEST(FontList, TakesManyFontsIdentifiersAndTagsInLinearTime) {
    constexpr std::int64_t count = 200'000;
    Ids ids;
    Fonts list, unnamed;
    for (std::int64_t i = 1; i <= count; ++i) {
        ids.push_back(i % 2 ? i : i << 40); // dense ones, and outliers
        list.push_back(Key{2 * i, "A"}.font());
        unnamed.push_back(Key{0, std::to_string(i)}.font());
    }
    list.back()->setId(1);
    EXPECT_EQ(FontList::getFontById(list, ids).size(), 1U);
    FontList::setActivatedFont(list, list);
    FontList::setActivatedFont(unnamed, unnamed);
    EXPECT_EQ(FontList::getActivatedFontCount(list), count);
    EXPECT_EQ(FontList::getActivatedFontCount(unnamed), count);

    const Ids half(ids.begin(), ids.begin() + count / 2);
    Ids allButOne = half;
    allButOne[count / 4] = 0;
    list[0]->setTags(half);
    list[1]->setTags(allButOne);
    Fonts repeated(100, list[0]);
    repeated.push_back(list[1]);
    EXPECT_EQ(FontList::getFontByTags(repeated, tags(half)).size(), 100U);

    std::string key;
    for (char32_t i = 0; i < 300'000; ++i)
        key += {'\xE4', static_cast<char>(0x80 | i / 64 % 64), static_cast<char>(0x80 | i % 64)};
    EXPECT_FALSE(FontList::isFontMatchedByCharacter(list[0], key));
    list[0]->setDisplayName(key);
    EXPECT_EQ(FontList::getSearchResultFont({list[0]}, key).second.size(), 1U);
}

/// Returns texts of 16 ASCII bytes that std::hash of libstdc++, a Murmur hash with a known seed,
/// maps to one number: after any first half, a second half leads to a chosen state.
std::vector<std::string> collidingNames(std::size_t count) {
    constexpr std::uint64_t factor = 0xC6A4A7935BD1E995, inverse = 0x5F7A0EA7E59B19BD,
                            begin = 0xC70F6907 ^ (16 * factor), state = 0x123456789ABCDEF;
    constexpr std::uint64_t highBits = 0x8080808080808080;
    std::vector<std::string> names;
    for (std::uint64_t number = 1; names.size() < count; ++number) {
        const std::uint64_t first = (number * 0x9E3779B97F4A7C15) & ~highBits;
        std::uint64_t mixed = first * factor;
        mixed = (mixed ^ mixed >> 47) * factor;
        std::uint64_t second = (((begin ^ mixed) * factor) ^ (state * inverse)) * inverse;
        second = (second ^ second >> 47) * inverse;
        if ((second & highBits) != 0)
            continue;
        std::string& name = names.emplace_back(16, '\0');
        std::memcpy(name.data(), &first, 8);
        std::memcpy(name.data() + 8, &second, 8);
    }
    return names;
}

TEST(FontList, MarksByNamesThatAreMadeToCollideInLinearTime) {
    Fonts list;
    for (const std::string& name : collidingNames(250'000))
        list.push_back(Key{0, name}.font());
#ifdef __GLIBCXX__
    const auto hashOf = [&](const auto& font) {
        return std::hash<std::string>()(font->ProductName());
    };
    EXPECT_EQ(hashOf(list.front()), hashOf(list.back()));
#endif
    FontList::setActivatedFont(list, list);
    EXPECT_EQ(FontList::getActivatedFontCount(list), std::ssize(list));
}

/// A leaf, or a group of one, whose accessors return something other than what is stored.
struct ClientFont : FontItem {
    std::string name = "Client", writes;
    bool isStored = false;
    Ids tags{4};
    Fonts members;
    std::int64_t Id() const override { return 12; }
    bool IsPrivate() const override { return true; }
    const std::string& ProductName() const override { return name; }
    std::string DisplayName() const override { return "Shown"; }
    bool isActivated() const override { return isStored; }
    bool IsActivated() const override { return true; }
    bool IsFavorited() const override { return true; }
    bool IsAuthed() const override { return true; }
    std::string LocalFile() const override { return "/dev/null"; }
    const Ids& Tags() const override { return tags; }
    bool IsGroup() const override { return !members.empty(); }
    const Fonts& Children() const override { return members; }
    void setId(std::int64_t) override { writes += "I"; }
    void setIsActivated(bool flag) override { writes += flag ? "A" : "a"; }
    void setIsFavorited(bool flag) override { writes += flag ? "F" : "f"; }
    PerchAppLibrary::Dictionary Dict() const override { return {{"client", "own"}}; }
};

TEST(FontList, QueriesReadOverriddenAccessors) {
    const auto client = FontItem::create<ClientFont>(), group = FontItem::create<ClientFont>();
    group->setChildren(fonts(R"([{"ProductName":"Stored"}])"));
    group->members = {client, Key{7, "Plain"}.font()};
    group->name = "Group";
    for (const auto& filter : filters)
        EXPECT_EQ(names(filter({group})), "Client");
    EXPECT_EQ(FontList::getFontCount({group}), 2);
    EXPECT_EQ(FontList::getActivatedFontCount({group}), 1);
    EXPECT_EQ(names(FontList::getFontById({group}, {12})), "Client");
    EXPECT_EQ(names({FontList::getFontItemById({FontItem::create(), group}, 12)}), "Group");
    EXPECT_EQ(names(FontList::getFontByTags({group}, tags({4}))), "Client");
}

TEST(FontList, LabelsAndMarkingCallOverriddenOperations) {
    const auto client =
        FontItem::create<ClientFont>({.id = 7, .productName = "A", .isPrivate = true});
    EXPECT_EQ(client->writes, "I") << "setId";
    const auto byId = Key{12, "A", true}.font(), other = Key{12, "Client"}.font(),
               byName = Key{0, "Client"}.font();
    FontList::setActivatedFont({client}, {other, byName});
    EXPECT_EQ(client->writes, "I") << "Id and IsPrivate count";
    FontList::setActivatedFont({client}, {byId});
    FontList::setFavoritedFont({client}, {byId});
    EXPECT_EQ(client->writes, "IAF");
    FontList::setActivatedFont({byId, other, byName}, {client});
    EXPECT_EQ(marks({byId, other, byName}), "a-a");
}

TEST(FontItem, DerivedValuesReadOverriddenAccessors) {
    const auto client = FontItem::create<ClientFont>(), group = FontItem::create<ClientFont>();
    EXPECT_EQ(client->PreviewText(), "Shown");
    EXPECT_EQ(client->TreeNodeTitle(), "Client(, )");
    EXPECT_TRUE(client->IsLocaled());
    group->members = {client};
    EXPECT_FALSE(group->FontItem::IsActivated()) << "the member's IsActivated() does not count";
    client->isStored = true;
    EXPECT_TRUE(group->FontItem::IsActivated()) << "its isActivated() does";
    group->setActivated(true);
    group->setActivated(false);
    EXPECT_EQ(client->writes, "Aa");
    EXPECT_EQ(group->FontItem::DisplayName(), " (1)");
    EXPECT_EQ(toText(group->FontItem::Dict().at("Children")), R"([{"client":"own"}])");
    EXPECT_EQ(toText(FontItem::getFontArray({client})), R"([{"client":"own"}])");
}

} // namespace
