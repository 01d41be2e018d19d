#include <VelmoCloudEntity/catalogue/FontTagList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <regex>
#include <set>
#include <tuple>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;
using PerchAppLibrary::toText;

namespace {

using Ids = std::vector<std::int64_t>;
using Tags = Records<FontTagItem>;

constexpr auto collected = FontTagList::getCheckedFontTagList;
constexpr auto filtered = FontTagList::getCheckedFontTagFontIdList;

/// The tags of a JSON array in which a star stands for a tick.
Tags tags(const std::string& text) {
    return FontTagList(
               JSON::parse(std::regex_replace(text, std::regex("\\*"), R"("IsChecked":true)")))
        .List();
}

std::shared_ptr<FontTagItem> made(bool isGroup, bool isChecked, Ids ids, Tags children) {
    auto tag = FontTagItem::create();
    tag->setIsGroup(isGroup);
    tag->setIsChecked(isChecked);
    tag->setFontIdList(std::move(ids));
    tag->setChildren(std::move(children));
    return tag;
}

std::string names(const Tags& list) {
    std::string joined;
    for (const auto& tag : list)
        joined += tag->Name();
    return joined;
}

TEST(FontTag, HasItsDefaultsAndMakesItsChildrenAnew) {
    const auto tag = FontTagItem::create();
    const std::string text = toText(tag->properties());
    EXPECT_EQ(
        text.substr(text.find("\"SubNameWidth")),
        R"("SubNameWidth":0,"Name":"","Alias":"","IsGroup":false,"SubNameTextImageStyle":"TextOnly",)"
        R"("SubNameDisplayStyle":"List","SubNameRowSum":0,"SubTagCountPerRow":0,"SubTagFilterType":"Or",)"
        R"("TagImageName":"","GroupId":0,"Ordinal":0,"IsChecked":false,"FontIdList":[],"Children":[]})");
    auto document = tag->properties();
    document["FontIdList"] = {3, -1, 3};
    for (int level = 0; level < 3; ++level)
        document["Children"] = {document, tag->properties()};
    for (int fill = 0; fill < 2; ++fill) {
        tag->setValue(JSON::parse(toText(document)));
        EXPECT_EQ(toText(tag->properties()), toText(document));
    }
    tag->setValue(JSON::parse(R"({"Children":{"Id":1}})"));
    EXPECT_EQ(tag->Children().size() + tag->FontIdList().size(), 3U) << "only Children is emptied";
}

TEST(FontTag, EachElementOfAnArrayMakesATag) {
    const std::string array = R"([5,{"Name":"A"},[{"Name":"X"}],null,{"Name":"B"},"x"])";
    const auto parent = FontTagItem::create(JSON::parse("{\"Children\":" + array + "}"));
    for (const Tags& list : {tags(array), parent->Children()}) {
        EXPECT_EQ(std::to_string(list.size()) + names(list), "6AB");
        EXPECT_EQ(list[2]->properties(), FontTagItem::create()->properties());
    }
    for (const char* json : {R"({"List":[{}]})", "[]", R"("A")", "null"})
        EXPECT_TRUE(tags(json).empty()) << json;
    FontTagList list;
    list.setList(parent->Children());
    EXPECT_TRUE(list.List() == parent->Children() && FontTagList().List().empty());
}

TEST(FontTag, LeavesTheFontsOfItsTickedTags) {
    const Ids given{5, 4, 3, 2, 1, 4};
    const std::string group =
        R"({"IsGroup":true,*,"FontIdList":[1],"Children":[)"; // its own tick says nothing
    const std::string two =
        group + R"({*,"FontIdList":[2,1,2]},{"FontIdList":[9]},{*,"FontIdList":[3,2]}])";
    // Tags, what the first of them leaves, and what all of them leave of the fonts given.
    const std::tuple<std::string, const char*, Ids> cases[] = {
        {R"({*,"FontIdList":[3,1,3]})", "[3,1,3]",
         given}, // in a list, a plain tag filters only with sub-tags
        {R"({*,"FontIdList":[4,9,1],"Children":[{*,"FontIdList":[1]}]})", "[4,9,1]", {1, 4}},
        {R"({"FontIdList":[1],"Children":[{*,"FontIdList":[1]}]})", "null", given},
        {group + R"({"FontIdList":[2]}]})", "null", given},
        {group + R"({"FontIdList":[9]},{*,"FontIdList":[3,1,3]}]})", "[3,1,3]", {1, 3}},
        {group + "{*},{*}]}", "[]", {}},
        {two + R"(,"SubTagFilterType":"And"})", "[2]", {2}},
        {two + R"(,"SubTagFilterType":"or"})", "[2,1,2]", {1, 2}},
        {two + "}," + group + R"({*,"FontIdList":[4,3,2]}]})", "[1,2,3]", {2, 3}},
        // In a group, a group is a plain tag.
        {group + group + R"({*,"FontIdList":[6]}]}]})", "[1]", {1}},
        {group + R"({"IsGroup":true,"Children":[{*,"FontIdList":[6]}]}]})", "null", given},
    };
    for (const auto& [text, left, expected] : cases) {
        const auto list = tags("[" + text + "]");
        EXPECT_EQ(toText(list[0]->value("CheckedFontTagFontIdList")), left) << text;
        EXPECT_EQ(filtered(list, given), expected) << text;
    }
}

TEST(FontTag, ListCollectsAndTicksTheLeavesOfGroups) {
    const auto list = tags(R"([{"Name":"G","IsGroup":true,*,"Children":[
            {"Name":"A",*},{"Name":"B"},{"Name":"H","IsGroup":true,"Children":[{"Name":"C",*}]}]},
        {"Name":"D",*,"Children":[{"Name":"X",*}]},{"Name":"I","IsGroup":true},{"Name":"E","Children":[{"Name":"Y"}]}])");
    const auto& members = list[0]->Children();
    EXPECT_EQ(names(collected(list)), "ACD");
    EXPECT_EQ(collected({members[0], members[2], members[0]}),
              (Tags{members[0], members[2]->Children()[0], members[0]}));
    FontTagList::setFontTagItemCheck(list, true);
    EXPECT_EQ(names(collected(list)), "ABCDE");
    EXPECT_FALSE(members[2]->IsChecked() || list[2]->IsChecked() ||
                 list[3]->Children()[0]->IsChecked());
    FontTagList::setFontTagItemCheck(list, false);
    EXPECT_EQ(names(collected(list)), "");
    EXPECT_TRUE(list[0]->IsChecked() && list[1]->Children()[0]->IsChecked());
}

Ids combined(const Ids& left, const Ids& right, bool both) {
    std::set<std::int64_t> ids(left.begin(), left.end()), others(right.begin(), right.end());
    if (both)
        std::erase_if(ids, [&](std::int64_t id) { return !others.contains(id); });
    else
        ids.merge(others);
    return {ids.begin(), ids.end()};
}

/// CheckedFontTagFontIdList() a second time: short, slow and obviously right.
std::optional<Ids> literallyLeft(const FontTagItem& tag) {
    if (!tag.IsGroup())
        return tag.IsChecked() ? std::optional(tag.FontIdList()) : std::nullopt;
    const std::string filter = tag.SubTagFilterType();
    std::optional<Ids> result;
    for (const auto& child : tag.Children())
        if (child->IsChecked() && !result)
            result = child->FontIdList();
        else if (child->IsChecked() && (filter == "Or" || filter == "And"))
            result = combined(*result, child->FontIdList(), filter == "And");
    return result;
}

/// getCheckedFontTagFontIdList() likewise.
Ids literallyFiltered(const Tags& tags, Ids result) {
    for (const auto& tag : tags)
        if (const auto ids = literallyLeft(*tag);
            ids && (tag->IsGroup() || !tag->Children().empty()))
            result = combined(result, *ids, true);
    return result;
}

/// Dense identifiers, with duplicates, and here and there one that lies far away.
Ids randomIds(std::mt19937_64& random) {
    const std::int64_t far[] = {INT64_MIN, INT64_MAX, -1, 1LL << 40, (1LL << 40) + 1};
    const std::size_t range = random() % 8 ? 12 : 200;
    Ids ids(random() % 4 ? random() % range : 0);
    for (std::int64_t& id : ids)
        id = random() % 8 ? static_cast<std::int64_t>(random() % range) : far[random() % 5];
    return ids;
}

std::shared_ptr<FontTagItem> randomTag(std::mt19937_64& random, int depth) {
    Tags children(depth > 0 ? random() % 5 : 0);
    for (auto& child : children)
        child = randomTag(random, depth - 1);
    auto tag = made(random() % 2, random() % 2, randomIds(random), std::move(children));
    const std::string any(random() % 4, static_cast<char>('A' + random() % 50));
    const std::string filters[] = {"Or", "And", "or", "AND", "", any};
    tag->setSubTagFilterType(filters[random() % 6]);
    return tag;
}

TEST(FontTag, FiltersAsTheLiteralReadingDoes) {
    std::mt19937_64 random(4);
    std::map<std::string, int> seen; // what the run was about
    for (int run = 0; run < 6000; ++run) {
        Tags list(random() % 4);
        for (auto& tag : list) {
            tag = randomTag(random, 2);
            const auto ids = literallyLeft(*tag);
            ASSERT_EQ(tag->CheckedFontTagFontIdList(), ids) << toText(tag->properties());
            const auto isTicked = [](const auto& child) { return child->IsChecked(); };
            if (tag->IsGroup() &&
                std::count_if(tag->Children().begin(), tag->Children().end(), isTicked) > 1)
                ++seen["two with " + tag->SubTagFilterType()];
            ++seen[!ids ? "absent" : ids->empty() ? "empty" : "some"];
        }
        const Ids given = randomIds(random), expected = literallyFiltered(list, given);
        ASSERT_EQ(filtered(list, given), expected) << run;
        ++seen[expected == given ? "unchanged" : expected.empty() ? "nothing left" : "fewer left"];
    }
    for (const char* what :
         {"two with Or", "two with And", "two with or", "two with AND", "two with ", "absent",
          "empty", "some", "unchanged", "nothing left", "fewer left"})
        EXPECT_GT(seen[what], 100) << what;
}

/// A tag whose accessors answer in place of what is stored.
struct ClientTag : FontTagItem {
    bool isGroup = false;
    Ids ids{2, 1, 2};
    Tags subTags;
    std::string filter = "And", writes;
    std::optional<Ids> left;
    using FontTagItem::setValue;
    void setValue(const JSON& json) override { FontTagItem::setValue(json["tag"]); }
    bool IsGroup() const override { return isGroup; }
    bool IsChecked() const override { return true; }
    const Ids& FontIdList() const override { return ids; }
    const Tags& Children() const override { return subTags; }
    const std::string& SubTagFilterType() const override { return filter; }
    void setIsChecked(bool flag) override { writes += flag ? "+" : "-"; }
    std::optional<Ids> CheckedFontTagFontIdList() const override {
        return left ? left : FontTagItem::CheckedFontTagFontIdList();
    }
};

TEST(FontTag, HonoursOverriddenAccessors) {
    const auto plain = FontTagItem::create<ClientTag>(), group = FontTagItem::create<ClientTag>();
    const Ids given{3, 2, 1};
    group->isGroup = true;
    group->subTags = {plain};
    plain->left = Ids{3, 3}; // nobody asks a plain tag for it, but reads its FontIdList
    EXPECT_EQ(group->CheckedFontTagFontIdList(), plain->ids);
    EXPECT_EQ(filtered({group}, given), (Ids{1, 2}));
    EXPECT_EQ(collected({group}), Tags{plain});
    FontTagList::setFontTagItemCheck({group, plain}, true);
    FontTagList::setFontTagItemCheck({group}, false);
    EXPECT_EQ(plain->writes + group->writes, "++-");
    group->subTags.push_back(made(false, true, {7, 2}, {}));
    EXPECT_EQ(group->CheckedFontTagFontIdList(), Ids{2});
    group->left = Ids{3, 3};
    EXPECT_EQ(filtered({group}, given), Ids{3});
    EXPECT_EQ(filtered({plain}, given), given);
    plain->subTags = {FontTagItem::create()};
    EXPECT_EQ(filtered({plain}, given), (Ids{1, 2}));
    EXPECT_EQ(FontTagItem::create<ClientTag>(JSON::parse(R"({"tag":{"Name":"A"}})"))->Name(), "A");
}

TEST(FontTag, ManagesAMillionIdentifiers) {
    Ids ids;
    for (std::int64_t i = 0; i < 1'000'000; ++i) // duplicates, a dense row, outliers
        ids.push_back(i % 3 == 0 ? i % 1000 : i % 3 == 1 ? -i : i * (INT64_MAX / 1'000'000));
    const Ids sorted = combined(ids, {}, false), reversed(ids.rbegin(), ids.rend());
    const auto first = made(false, true, ids, {}), second = made(false, true, reversed, {first});
    const auto group = made(true, false, {}, {first, second});
    for (const char* filter : {"Or", "And"}) {
        group->setSubTagFilterType(filter);
        EXPECT_TRUE(filtered({group, second}, ids) == sorted) << filter;
    }
    Tags many; // each adds to what is there already
    for (std::size_t i = 0; i < 100'000; ++i)
        many.push_back(made(false, true, {sorted[i * 5]}, {}));
    EXPECT_EQ(filtered({made(true, false, {}, std::move(many))}, ids).size(), 100'000U);

    // Each takes away next to nothing of a list that is far longer.
    Tags pairs;
    for (std::size_t i = 0; i < 20'000; ++i)
        pairs.push_back(made(false, true, {0, 60}, {FontTagItem::create()}));
    Ids spread;
    for (std::int64_t i = 0; i < 400'000; ++i)
        spread.push_back(60 * i);
    EXPECT_EQ(filtered(pairs, spread), (Ids{0, 60}));
    pairs.insert(pairs.begin(), made(false, true, spread, {}));
    const auto all = made(true, false, {}, std::move(pairs));
    all->setSubTagFilterType("And");
    EXPECT_EQ(all->CheckedFontTagFontIdList(), (Ids{0, 60}));
}

TEST(FontTag, OperationsAndDestructionManageAnyDepth) {
    for (const bool isGroup : {true, false}) {
        const auto leaf = FontTagItem::create();
        Tags list{leaf};
        for (int level = 0; level < 100'000; ++level)
            list = {made(isGroup, true, {2}, std::move(list))};
        FontTagList::setFontTagItemCheck(list, true);
        EXPECT_EQ(leaf->IsChecked(), isGroup);
        EXPECT_TRUE(collected(list) == (isGroup ? Tags{leaf} : list));
        EXPECT_EQ(filtered(list, {3, 2}), Ids{2});
        list.clear();
        EXPECT_EQ(leaf.use_count(), 1);
    }
}

} // namespace
