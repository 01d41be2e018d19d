#include <VelmoCloudEntity/font/FontItem.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/Dictionary.hpp>
#include <PerchAppLibrary/JSON.hpp>
#include <PerchAppLibrary/platform/PlatformFont.hpp>

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

using namespace VelmoCloudEntity;
using PerchAppLibrary::Dictionary;
using PerchAppLibrary::JSON;
using PerchAppLibrary::PlatformFont;
using PerchAppLibrary::toText;

namespace {

std::shared_ptr<FontItem> parsed(std::string_view text) { return FontItem::create(JSON::parse(text)); }

/// A chain of groups with the leaf at its bottom.
std::shared_ptr<FontItem> nested(int levels, std::shared_ptr<FontItem> leaf) {
    std::shared_ptr<FontItem> tree = std::move(leaf);
    for (int level = 0; level < levels; ++level) {
        auto group = FontItem::create({.groupTag = "g"});
        group->setChildren({std::move(tree)});
        tree = std::move(group);
    }
    return tree;
}

const std::string defaults =
    R"({"Guid":"","Id":0,"IsDisabled":false,"ErrorCode":0,"Exception":false,"ExceptionCode":"",)"
    R"("ExceptionMessage":"","TimeStamp":"","DateStamp":"","Token":"",)"
    R"("ApplyHot":0,"Ordinal":0,"NameOrdinal":0,"AppendOrdinal":0,"UserOrdinal":0,"TopClassify":"",)"
    R"("ProductSetId":0,"ProductSetName":"","ProductName":"","PostscriptName":"","Format":"","Version":"",)"
    R"("Copyright":"","ProductFileName":"","ProductFileUrl":"","PreviewFileUrl":"","RegisterKey":"",)"
    R"("IsOnline":false,"IsPreOnly":false,"IsAuthed":false,"IsFree":false,"FreeTag":"","IsFontAuth":false,)"
    R"("IsMemberFont":false,"IsPrivate":false,"OemTag":"","IsFavorited":false,"IsRecommended":false,)"
    R"("IsNewly":false,"FontKey":"","IsGroup":false,"GroupTag":"","GroupCollectionId":0,"Tags":[],)"
    R"("DateStampBegin":"","DateStampEnd":"","TopCount":0,"Children":[]})";

TEST(FontItem, ExportsAndReadsBackItsPropertiesInOrderTheChildrenLast) {
    Dictionary document = FontItem::create()->Dict();
    EXPECT_EQ(toText(document), defaults);
    std::int64_t number = 9007199254740993; // has no double
    for (auto& [key, value] : document)
        if (value.is_int64())
            value = ++number;
        else if (value.is_bool())
            value = true;
        else if (value.is_string())
            value = std::string(key) + " 宋";
    document["Tags"] = {3, 1, 3};
    document["Children"] = {document, FontItem::create()->Dict()};
    const auto font = parsed(toText(document));
    EXPECT_EQ(toText(font->Dict()), toText(document));
    EXPECT_EQ(toText(FontItem::getFontArray({font, FontItem::create()})),
              "[" + toText(document) + "," + defaults + "]");

    // The stores of computed properties are filled, but not exported.
    const auto stores = parsed(R"({"isActivated":true,"displayName":"D","previewText":"P"})");
    EXPECT_TRUE(stores->IsActivated());
    EXPECT_EQ(stores->DisplayName() + stores->PreviewText(), "DP");
    EXPECT_EQ(toText(stores->Dict()), defaults);
}

TEST(FontItem, ConstructorsSetWhatTheirLabelsSayAndNothingElse) {
    // Made from JSON by the mapping, the same record comes out.
    const auto same = [](const std::shared_ptr<FontItem>& font, std::string_view text) {
        return font->properties() == parsed(text)->properties();
    };
    EXPECT_TRUE(same(FontItem::create({.productName = "A"}), R"({"ProductName":"A"})"));
    EXPECT_TRUE(same(FontItem::create({.groupTag = "x"}), R"({"IsGroup":true,"GroupTag":"x"})"));
    EXPECT_TRUE(same(FontItem::create({.id = 7, .productName = "A", .isPrivate = true}),
                     R"({"Id":7,"ProductName":"A","IsPrivate":true})"));
    for (const char* text : {"{}", "null", "[]", "5", R"("Id")", R"([{"Id":5}])", R"({"Children":{"Id":1}})",
                             R"({"Children":7,"productname":"A","IsActivated":true,"DisplayName":"D"})"})
        EXPECT_TRUE(same(FontItem::create(), text)) << text;
}

TEST(FontItem, RefillKeepsWhatTheDocumentDoesNotNameAndMakesTheChildrenAnew) {
    const JSON family = JSON::parse(R"({"Id":1,"IsGroup":true,"ProductSetName":"S","Tags":[4],"Children":[
        {"ProductName":"A","Children":[{"ProductName":"B"}]},{"ProductName":"C"}]})");
    const auto font = FontItem::create(family);
    const std::string filled = toText(font->Dict());
    for (const char* text : {R"({"Id":2})", R"({"Id":2,"Children":null})", R"({"Id":2,"Children":"x"})"}) {
        font->setValue(family);
        EXPECT_EQ(toText(font->Dict()), filled) << "a second fill does not add to the first";
        font->setDisplayName("kept");
        font->setValue(JSON::parse(text));
        EXPECT_TRUE(font->Children().empty()) << text;
        EXPECT_EQ(font->displayName(), "kept");
        const auto expected = parsed(R"({"Id":2,"IsGroup":true,"ProductSetName":"S","Tags":[4]})");
        EXPECT_EQ(font->Dict(), expected->Dict());
    }
    // Unlike in a list, each element makes a member, whatever it is.
    EXPECT_EQ(toText(FontItem::getFontArray(parsed(R"({"Children":[1,null,[{"Id":3}]]})")->Children())),
              "[" + defaults + "," + defaults + "," + defaults + "]");
}

TEST(FontItem, AGroupIsActivatedWhenTheStoredFlagsOfItsMembersAre) {
    const std::pair<const char*, bool> cases[] = {
        {R"({"IsGroup":true,"Children":[]})", true},
        {R"({"IsGroup":true,"Children":[{"isActivated":true},{"isActivated":true}]})", true},
        {R"({"IsGroup":true,"Children":[{"isActivated":true},{"isActivated":true},{}]})", false},
        {R"({"IsGroup":true,"isActivated":true,"Children":[{}]})", false},
        {R"({"IsGroup":false,"isActivated":true,"Children":[{}]})", true},
        // A member that is a group is judged by its own flag, not by its members.
        {R"({"IsGroup":true,"Children":[{"IsGroup":true,"Children":[{"isActivated":true}]}]})", false},
        {R"({"IsGroup":true,"Children":[{"IsGroup":true,"isActivated":true,"Children":[{}]}]})", true},
    };
    for (const auto& [font, expected] : cases)
        EXPECT_EQ(parsed(font)->IsActivated(), expected) << font;
}

TEST(FontItem, ActivationReachesTheLeavesOfAGroupAndNoGroupItself) {
    const auto group = parsed(R"({"IsGroup":true,"Children":[
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
    EXPECT_TRUE(group->isActivated());
    EXPECT_FALSE(group->IsActivated()) << "the group's own flag does not reach the members";
}

TEST(FontItem, NamesAndTitles) {
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"{}", "", "", "(, )"},
        {R"({"ProductName":"Kai","Format":"TTF","Version":"1.00"})", "Kai", "Kai", "Kai(TTF, 1.00)"},
        {R"({"ProductName":"楷","ProductSetName":"S","GroupTag":"G","Children":[{}]})", "楷", "楷", "楷(, )"},
        {R"({"ProductName":"A","displayName":"D"})", "D", "D", "A(, )"},
        {R"({"ProductName":"A","displayName":"D","previewText":"P"})", "D", "P", "A(, )"},
        {R"({"IsGroup":true,"ProductSetName":"S","GroupTag":"新","ProductName":"N","displayName":"D"})",
         "S (0)", "S", "新S"},
        {R"({"IsGroup":true,"Children":[{},{"IsGroup":true,"Children":[{},{}]}]})", " (2)", "", ""},
        {R"({"IsGroup":true,"ProductSetName":"S","previewText":"P"})", "S (0)", "P", "S"},
    };
    for (const auto& [text, displayName, previewText, treeNodeTitle] : cases) {
        const auto font = parsed(text);
        EXPECT_EQ(font->DisplayName(), displayName) << text;
        EXPECT_EQ(font->PreviewText(), previewText) << text;
        EXPECT_EQ(font->TreeNodeTitle(), treeNodeTitle) << text;
        // A stored name holds for a leaf until it is taken back.
        font->setDisplayName("stored");
        EXPECT_EQ(font->DisplayName(), font->IsGroup() ? displayName : "stored") << text;
        font->setDisplayName("");
        EXPECT_EQ(font->DisplayName(), font->IsGroup() ? displayName : font->ProductName()) << text;
    }
}

TEST(FontItem, IsLocaledWhenItsFileIsThere) {
    const std::string path =
        testing::TempDir() + "velmo 宋体 " + std::to_string(std::random_device{}()) + ".ttf";
    std::ofstream(path) << "font";
    const auto font = FontItem::create();
    const auto localed = [&](const std::string& fileName) {
        font->setProductFileName(fileName);
        return font->IsLocaled();
    };
    EXPECT_TRUE(localed(path));
    // Paths that no file can have are no error.
    for (const std::string& missing : {std::string(), path + "x", path + "/x", path + std::string("\0x", 2),
                                       std::string(100'000, 'a'), std::string("\xff\xfe")})
        EXPECT_FALSE(localed(missing)) << missing.substr(0, 200);
    std::filesystem::remove(path);
    EXPECT_FALSE(localed(path));
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

TEST(FontItem, QueriesAndDestructionManageAnyDepth) {
    const auto leaf = parsed(R"({"Id":1,"IsAuthed":true})");
    const Records<FontItem> list{nested(100'000, leaf)};
    FontList::setFavoritedFont(list, {leaf});
    FontList::setActivatedFont(list, {leaf});
    for (auto query : {FontList::getFavoritedFont, FontList::getActivatedFont, FontList::getAuthorizedFont})
        EXPECT_EQ(query(list), Records<FontItem>{leaf});
    EXPECT_EQ(FontList::getFontCount(list), 1);
    EXPECT_EQ(FontList::getActivatedFontCount(list), 1);

    // Each way of letting go of a chain is safe; a part that somebody holds outlives the rest.
    list[0]->setValue(JSON::parse("{}"));
    const auto held = nested(100'000, leaf);
    nested(100'000, held).reset();
    EXPECT_EQ(FontList::getFontCount({held}), 1);
    held->setChildren({});
    EXPECT_EQ(leaf.use_count(), 1);
    FontItem::create()->setChildren({nested(100'000, leaf), nested(100'000, leaf)}); // below a leaf
    EXPECT_EQ(leaf.use_count(), 1);
}

TEST(FontItem, ExportsAndActivatesTenThousandLevels) {
    const auto leaf = FontItem::create();
    const auto tree = nested(10'000, leaf);
    tree->setActivated(true);
    EXPECT_TRUE(leaf->IsActivated());
    const Dictionary exported = tree->Dict();
    int depth = 0;
    for (const Dictionary* level = &exported; !level->at("Children").as_array().empty(); ++depth)
        level = &level->at("Children").as_array()[0].as_object();
    EXPECT_EQ(depth, 10'000);
}

} // namespace
