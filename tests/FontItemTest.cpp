#include <VelmoCloudEntity/font/FontItem.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include "Changes.hpp"

#include <PerchAppLibrary/platform/PlatformFont.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#include <malloc.h>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <vector>

using namespace VelmoCloudEntity;
using PerchAppLibrary::Dictionary;
using PerchAppLibrary::JSON;
using PerchAppLibrary::PlatformFont;
using PerchAppLibrary::toText;

namespace {

/// A chain of groups with the leaf at its bottom.
std::shared_ptr<FontItem> nested(int levels, std::shared_ptr<FontItem> tree) {
    for (; levels > 0; --levels) {
        auto group = FontItem::create({.groupTag = "g"});
        group->setChildren({std::move(tree)});
        tree = std::move(group);
    }
    return tree;
}

TEST(FontItem, ExportsAndReadsBackItsPropertiesTheChildrenLast) {
    Dictionary document = FontItem::create()->properties();
    for (auto& [key, value] : document)
        if (value.is_int64())
            value = 9007199254740993; // has no double
        else if (value.is_bool())
            value = true;
        else if (value.is_string())
            value = std::string(key) + " 宋";
    document["Tags"] = {3, 1, 3};
    const auto font = FontItem::parse(toText(document));
    for (const char* const hidden : {"displayName", "previewText", "isActivated", "Children"})
        document.stable_erase(hidden);
    document["Children"] = boost::json::array();
    EXPECT_EQ(toText(font->Dict()), toText(document));
    font->setChildren({FontItem::parse(toText(document))});
    document["Children"] = {document};
    EXPECT_EQ(toText(font->Dict()), toText(document));
}

TEST(FontItem, PartsOfADictOutliveIt) {
    std::optional<Dictionary> dict =
        FontItem::parse(R"({"Children":[{"Id":5,"Copyright":"a text that is long enough"}]})")
            ->Dict();
    const PerchAppLibrary::Value taken = std::move(dict->at("Children").at(0));
    Dictionary copy = *dict;
    dict.reset();
    EXPECT_EQ(taken.at("Copyright"), "a text that is long enough");
    copy["IsGroup"] = taken;
    EXPECT_EQ(copy.at("IsGroup").at("Id"), 5);
}

TEST(FontItem, CopiesOfADictGiveBackWhatTheyTook) {
    const Dictionary dict = FontItem::parse(R"({"Children":[{"Id":5},{"Id":6}]})")->Dict();
    const auto used = [] { return mallinfo2().uordblks; };
    const std::size_t before = used();
    if (before == 0)
        GTEST_SKIP() << "this heap does not tell what is used of it";
    for (int round = 0; round < 100; ++round) {
        Dictionary copy = dict;
        copy["Remark"] = std::string(10'000, 'x');
        EXPECT_GT(used(), before + 10'000);
    }
    EXPECT_LT(used(), before + 10'000);
}

/// Its accessor changes what is exported.
struct RenamedFont : FontItem {
    const std::string& ProductName() const override { return PostscriptName(); }
};
struct BriefFont : FontItem {
    Dictionary Dict() const override { return {{"brief", Id()}}; }
};

TEST(FontItem, ExportsTheSameTextWithDictionariesAndWithout) {
    const auto texts =
        FontItem::create({.productName = "quote \" back \\ slash / line \n nul \1 del \x7F"});
    texts->setPostscriptName("ill-formed \xFF\xC3(\xED\xA0\x80 end");
    texts->setCopyright("宋体 \U0001F600 \xC2\x85");
    texts->setTags(
        {-1, std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()});
    texts->setGuid("rare");
    const auto renamed =
        FontItem::create<RenamedFont>(JSON::parse(R"({"PostscriptName":"p","ProductName":"n"})"));
    const auto group = nested(2, FontItem::create<BriefFont>(JSON::parse(R"({"Id":5})")));
    group->setChildren({texts, renamed, group->Children().front()});
    for (const Records<FontItem>& list : {Records<FontItem>{}, {texts}, {group, renamed, texts}})
        EXPECT_EQ(FontItem::getFontArrayText(list), toText(FontItem::getFontArray(list)));
}

/// A font's object of some members in any order, of groups with members of their own.
std::string randomFont(std::mt19937& random, int levels) {
    std::vector<std::string> members;
    for (const char* const key :
         {"Id", "ProductName", "IsGroup", "GroupCollectionId", "Unknown", "TopCount", "OemTag"})
        if (random() % 3 != 0)
            members.push_back("\"" + std::string(key) + "\":" + std::to_string(random() % 2));
    if (levels > 0)
        members.push_back(R"("Children":[)" + randomFont(random, levels - 1) + "," +
                          randomFont(random, 0) + "," + randomFont(random, levels - 1) + "]");
    if (random() % 2 == 0)
        std::ranges::shuffle(members, random);
    std::string object;
    for (const std::string& member : members)
        object += (object.empty() ? "" : ",") + member;
    return "{" + object + "}";
}

TEST(FontItem, IsTheSameInAnArrayWhateverTheOrderOfMembersBefore) {
    std::mt19937 random(5); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same run each time
    std::string text;
    for (int count = 0; count < 200; ++count)
        text += (text.empty() ? "[" : ",") + randomFont(random, count % 4);
    const JSON json = JSON::parse(text + "]");
    const FontList list(json);
    auto font = list.List().begin();
    for (const JSON& element : json)
        EXPECT_EQ(toText((*font++)->Dict()), toText(FontItem::create(element)->Dict()));
    EXPECT_EQ(font, list.List().end());
}

/// A class of more properties than usual.
class WideFont : public FontItem {
    PERCH_RECORD(WideFont, FontItem);

    PERCH_PROPERTY(std::int64_t, A);
    PERCH_PROPERTY(std::int64_t, B);
    PERCH_PROPERTY(std::int64_t, C);
    PERCH_PROPERTY(std::int64_t, D);
    PERCH_PROPERTY(std::int64_t, E);
    PERCH_PROPERTY(std::int64_t, F);
    PERCH_PROPERTY(std::int64_t, G);
    PERCH_PROPERTY(std::int64_t, H);
    PERCH_PROPERTY(std::int64_t, I);
    PERCH_PROPERTY(std::int64_t, J);
    PERCH_PROPERTY(std::int64_t, K);
    PERCH_PROPERTY(std::int64_t, L);
    PERCH_PROPERTY(std::int64_t, M);
    PERCH_PROPERTY(std::int64_t, N);
    PERCH_PROPERTY(std::int64_t, O);

    PERCH_RECORD_END;
};
PERCH_RECORD_SCHEMA(WideFont);

TEST(FontItem, FillsAClassOfManyProperties) {
    ASSERT_GT(WideFont::create()->schema().properties().size(), 64U);
    const auto font =
        WideFont::parse(R"({"O":1,"A":2,"Id":3,"N":4,"O":5,"B":6,"B":"x","Children":[{"Id":7}]})");
    EXPECT_EQ(font->Children().at(0)->Id(), 7);
    font->setChildren({});
    EXPECT_EQ(changed(font), R"({"Id":3,"A":2,"N":4,"O":5})");
    // The keys of the second object are guessed from the first.
    const std::string text = toText(font->Dict());
    for (const auto& again : makeRecords<WideFont>(JSON::parse("[" + text + "," + text + "]")))
        EXPECT_EQ(toText(again->Dict()), text);
}

TEST(FontItem, RefillKeepsWhatTheDocumentDoesNotNameAndMakesTheChildrenAnew) {
    const auto font = FontItem::parse(
        R"({"Id":1,"Tags":[4],"displayName":"D","Children":[{"ProductName":"A"},{}]})");
    font->setValue(JSON::parse(R"({"Id":2,"Children":[1,[{"Id":3}]]})"));
    EXPECT_EQ(font->Children().size(), 2U);
    for (const auto& child : font->Children())
        EXPECT_EQ(changed(child), "{}");
    for (const char* const none : {"{}", R"({"Children":null})", R"({"Children":{"Id":1}})"}) {
        font->setValue(JSON::parse(none));
        EXPECT_EQ(changed(font), R"({"Id":2,"displayName":"D","Tags":[4]})") << none;
    }
}

TEST(FontItem, AGroupIsActivatedWhenTheStoredFlagsOfItsMembersAre) {
    const std::pair<const char*, bool> cases[] = {
        {R"({"IsGroup":true,"Children":[]})", true},
        {R"({"IsGroup":true,"Children":[{"isActivated":true},{"isActivated":true}]})", true},
        {R"({"IsGroup":true,"Children":[{"isActivated":true},{"isActivated":true},{}]})", false},
        // A member that is a group is judged by its own flag, not by its members.
        {R"({"IsGroup":true,"Children":[{"IsGroup":true,"Children":[{"isActivated":true}]}]})",
         false},
        {R"({"IsGroup":true,"Children":[{"IsGroup":true,"isActivated":true,"Children":[{}]}]})",
         true},
    };
    for (const auto& [font, expected] : cases)
        EXPECT_EQ(FontItem::parse(font)->IsActivated(), expected) << font;
}

TEST(FontItem, ActivationReachesTheLeavesOfAGroupAndNoGroupItself) {
    const auto group = FontItem::parse(R"({"IsGroup":true,"Children":[
        {},{"IsGroup":true,"Children":[{}]},{"Children":[{}]},{"IsGroup":true}]})");
    const Records<FontItem>& members = group->Children();
    const auto below = members[1]->Children()[0], hidden = members[2]->Children()[0];
    for (const bool flag : {true, false}) {
        group->setActivated(flag);
        for (const auto& leaf : {members[0], below, members[2]})
            EXPECT_EQ(leaf->IsActivated(), flag);
        for (const auto& untouched : {group, members[1], members[3], hidden})
            EXPECT_FALSE(untouched->isActivated());
    }
    group->setIsActivated(true);
    group->setActivated(false);
    EXPECT_TRUE(group->isActivated() && !group->IsActivated())
        << "the group's own flag does not reach the members";
}

TEST(FontItem, NamesAndTitles) {
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {R"({"ProductName":"Kai","Format":"TTF","Version":"1.00"})", "Kai", "Kai",
         "Kai(TTF, 1.00)"},
        {R"({"ProductName":"楷","ProductSetName":"S","GroupTag":"G","Children":[{}]})", "楷", "楷",
         "楷(, )"},
        {R"({"displayName":"D"})", "D", "D", "(, )"},
        {R"({"ProductName":"A","displayName":"D","previewText":"P"})", "D", "P", "A(, )"},
        {R"({"IsGroup":true,"ProductSetName":"S","GroupTag":"新","ProductName":"N","displayName":"D"})",
         "S (0)", "S", "新S"},
        {R"({"IsGroup":true,"Children":[{},{"IsGroup":true,"Children":[{},{}]}]})", " (2)", "", ""},
        {R"({"IsGroup":true,"ProductSetName":"S","previewText":"P"})", "S (0)", "P", "S"},
    };
    for (const auto& [text, displayName, previewText, treeNodeTitle] : cases) {
        const auto font = FontItem::parse(text);
        EXPECT_EQ(font->DisplayName(), displayName) << text;
        EXPECT_EQ(font->PreviewText(), previewText) << text;
        EXPECT_EQ(font->TreeNodeTitle(), treeNodeTitle) << text;
    }
}

TEST(FontItem, IsLocaledWhenItsFileIsThere) {
    const auto font = FontItem::create();
    const auto path =
        testing::TempDir() + "velmo 宋 " + std::to_string(std::random_device{}()) + ".ttf";
    std::ofstream(path) << "font";
    // Paths that no file can have are no error.
    const std::string zero("\0", 1), tooLong(100'000, 'a');
    for (const std::string& name :
         {std::string(), tooLong, path + "/x", path + zero, path + "\xff", path}) {
        font->setProductFileName(name);
        EXPECT_EQ(font->IsLocaled(), name == path) << name.substr(0, 200);
    }
    std::filesystem::remove(path);
    EXPECT_FALSE(font->IsLocaled());
}

TEST(FontItem, AlwaysHasAFontToDrawWith) {
    for (const std::string& name : {std::string("No Such Font"), PlatformFont::system(12).name()})
        for (const bool isOnline : {false, true}) {
            const auto item = FontItem::create({.productName = name});
            item->setIsOnline(isOnline);
            const auto installed = isOnline ? std::nullopt : PlatformFont::named(name, 32);
            const PlatformFont font = item->Font();
            EXPECT_EQ(font.isSystem(), !installed) << name;
            EXPECT_EQ(font.name(), (installed ? *installed : PlatformFont::system(32)).name());
            EXPECT_EQ(font.points(), 32);
        }
}

TEST(FontItem, TakesQueriesAndDestructionOfAnyDepthInLinearTime) {
    const auto leaf = FontItem::parse(R"({"Id":1,"IsAuthed":true})");
    const Records<FontItem> list{nested(100'000, leaf)};
    FontList::setFavoritedFont(list, {leaf});
    FontList::setActivatedFont(list, {leaf});
    for (auto query :
         {FontList::getFavoritedFont, FontList::getActivatedFont, FontList::getAuthorizedFont})
        EXPECT_TRUE(query(list) == Records<FontItem>{leaf});
    EXPECT_EQ(FontList::getFontCount(list) + FontList::getActivatedFontCount(list), 2);

    // Each way of letting go of a chain is safe; a part that somebody holds outlives the rest.
    list[0]->setValue(JSON::parse("{}"));
    const auto held = nested(100'000, leaf);
    nested(100'000, held).reset();
    EXPECT_EQ(FontList::getFontCount({held}), 1);
    held->setChildren({});
    FontItem::create()->setChildren({nested(100'000, leaf), nested(100'000, leaf)}); // below a leaf
    EXPECT_EQ(leaf.use_count(), 1);
}

TEST(FontItem, ExportsAndActivatesManyLevelsInLinearTime) {
    const auto leaf = FontItem::create(), tree = nested(10'000, leaf);
    tree->setActivated(true);
    EXPECT_TRUE(leaf->IsActivated());
    const Dictionary exported = tree->Dict();
    int depth = 0;
    for (const Dictionary* level = &exported; !level->at("Children").as_array().empty(); ++depth)
        level = &level->at("Children").as_array()[0].as_object();
    EXPECT_EQ(depth, 10'000);
    EXPECT_TRUE(FontItem::getFontArrayText({tree}) == "[" + toText(exported) + "]"); // megabytes
}

} // namespace
