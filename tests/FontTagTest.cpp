#include <VelmoCloudEntity/catalogue/FontTagList.hpp>

#include "RecordTesting.hpp"

#include <regex>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;
using PerchAppLibrary::toText;

namespace {

using Ids = std::vector<std::int64_t>;
using Tags = Records<FontTagItem>;

constexpr auto collected = FontTagList::getCheckedFontTagList;
constexpr auto filtered = FontTagList::getCheckedFontTagFontIdList;

/// The tags of a JSON array in short: '*' is a tick, G a group, N its Name, F its FontIdList, C its
/// Children, and T its SubTagFilterType.
Tags tags(std::string text) {
    const std::pair<const char*, const char*> members[] = {
        {"\\*", R"("IsChecked":true)"}, {"G", R"("IsGroup":true)"},
        {"N:", R"("Name":)"},           {"F:", R"("FontIdList":)"},
        {"C:", R"("Children":)"},       {"T:", R"("SubTagFilterType":)"},
    };
    for (const auto& [letter, member] : members)
        text = std::regex_replace(text, std::regex(letter), member);
    return FontTagList(JSON::parse("[" + text + "]")).List();
}

std::string names(const Tags& list) {
    std::string joined;
    for (const auto& tag : list)
        joined += tag->Name();
    return joined;
}

TEST(FontTag, LeavesTheFontsOfItsTickedTags) {
    const Ids given{5, 4, 3, 2, 1, 4};
    const std::string two = "{G,*,F:[1],C:[{*,F:[2,1,2]},{F:[9]},{*,F:[3,2]}]";
    const struct {
        const char* rule;
        std::string tags;
        const char* ofFirst; // the CheckedFontTagFontIdList of the first tag
        Ids left;            // what all tags leave of the fonts that are given
    } cases[] = {
        {"no tag filters nothing", "{}", "null", given},
        {"a plain tag filters only with sub-tags", "{*,F:[3,1,3]}", "[3,1,3]", given},
        {"with sub-tags it does", "{*,F:[4,9,1],C:[{}]}", "[4,9,1]", {1, 4}},
        {"only if it is ticked itself", "{F:[1],C:[{*,F:[1]}]}", "null", given},
        {"a group's own tick and fonts do not count", "{G,*,F:[1],C:[{F:[2]}]}", "null", given},
        {"one ticked tag is as it is", "{G,C:[{F:[9]},{*,F:[3,1,3]}]}", "[3,1,3]", {1, 3}},
        {"two without fonts leave none", "{G,C:[{*},{*}]}", "[]", {}},
        {"Or is the default", two + "}", "[1,2,3]", {1, 2, 3}},
        {"And", two + ",T:\"And\"}", "[2]", {2}},
        {"And of three", "{G,C:[{*,F:[1,2]},{*,F:[2]},{*,F:[1]}],T:\"And\"}", "[]", {}},
        {"another type takes the first", two + ",T:\"or\"}", "[2,1,2]", {1, 2}},
        {"groups narrow one another", two + "},{G,C:[{*,F:[4,3,2]}]}", "[1,2,3]", {2, 3}},
        {"and plain tags a group", "{*,F:[4,3],C:[{}]}," + two + "}", "[4,3]", {3}},
        {"a ticked group in a group is a plain tag", "{G,C:[{G,*,F:[1],C:[{*}]}]}", "[1]", {1}},
    };
    for (const auto& each : cases) {
        const auto list = tags(each.tags);
        EXPECT_EQ(toText(list[0]->value("CheckedFontTagFontIdList")), each.ofFirst) << each.rule;
        EXPECT_EQ(filtered(list, given), each.left) << each.rule;
    }
}

TEST(FontTag, ListCollectsAndTicksTheLeavesOfGroups) {
    const auto list = tags(R"({N:"g",G,*,C:[{N:"a",*},{N:"b"},{N:"h",G,C:[{N:"c",*}]}]},
        {N:"d",*,C:[{N:"x",*}]},{N:"i",G},{N:"e",C:[{N:"y"}]})");
    const auto& members = list[0]->Children();
    EXPECT_EQ(names(collected(list)), "acd");
    EXPECT_EQ(names(collected({members[0], members[2], members[0]})), "aca");
    FontTagList::setFontTagItemCheck(list, true);
    EXPECT_EQ(names(collected(list)), "abcde");
    EXPECT_FALSE(members[2]->IsChecked()) << "a group";
    EXPECT_FALSE(list[3]->Children()[0]->IsChecked()) << "below a leaf";
    FontTagList::setFontTagItemCheck(list, false);
    EXPECT_EQ(names(collected(list)), "");
    EXPECT_TRUE(list[0]->IsChecked()) << "a group";
    EXPECT_TRUE(list[1]->Children()[0]->IsChecked()) << "below a leaf";
}

/// A tag whose accessors return something other than what is stored.
struct ClientTag : FontTagItem {
    Ids ids{2, 1, 2};
    Tags subTags;
    std::string filter = "And", writes;
    std::optional<Ids> left;
    bool IsGroup() const override { return !subTags.empty(); }
    bool IsChecked() const override { return true; }
    const Ids& FontIdList() const override { return ids; }
    const Tags& Children() const override { return subTags; }
    const std::string& SubTagFilterType() const override { return filter; }
    void setIsChecked(bool flag) override { writes += flag ? "+" : "-"; }
    std::optional<Ids> CheckedFontTagFontIdList() const override {
        return left ? left : FontTagItem::CheckedFontTagFontIdList();
    }
};

TEST(FontTag, ReadsAndTicksThroughOverriddenAccessors) {
    const auto plain = FontTagItem::create<ClientTag>(), group = FontTagItem::create<ClientTag>();
    const Ids given{3, 2, 1};
    group->subTags = {plain};
    plain->left = Ids{3, 3}; // only a group is asked for it
    EXPECT_EQ(group->CheckedFontTagFontIdList(), plain->ids);
    EXPECT_EQ(filtered({group}, given), (Ids{1, 2}));
    EXPECT_EQ(collected({group}), Tags{plain});
    FontTagList::setFontTagItemCheck({group, plain}, true);
    EXPECT_EQ(plain->writes + group->writes, "++");
    group->subTags.push_back(tags("{*,F:[7,2]}")[0]);
    EXPECT_EQ(group->CheckedFontTagFontIdList(), Ids{2}) << "SubTagFilterType";
    group->left = Ids{3, 3};
    EXPECT_EQ(filtered({group}, given), Ids{3});
    EXPECT_EQ(filtered({plain}, given), given);
}

TEST(FontTag, TakesManyTagsInLinearTime) {
    // Each of many tags adds or takes away next to nothing of a list that is far longer.
    Ids many;
    for (std::int64_t i = 0; i < 500'000; ++i)
        many.push_back(60 * i);
    Tags list(500'000, tags("{*,F:[60,0],C:[{}]}")[0]);
    list.front() = tags("{*,C:[{}]}")[0];
    list.front()->setFontIdList(many);
    EXPECT_EQ(filtered(list, many), (Ids{0, 60}));
    const auto group = tags("{G}")[0];
    group->setChildren(list);
    EXPECT_EQ(group->CheckedFontTagFontIdList().value().size(), many.size());
    group->setSubTagFilterType("And");
    EXPECT_EQ(group->CheckedFontTagFontIdList(), (Ids{0, 60}));
}

} // namespace
