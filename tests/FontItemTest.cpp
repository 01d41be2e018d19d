#include "RecordTesting.hpp"

#include <PerchAppLibrary/platform/PlatformFont.hpp>
#include <PerchAppLibrary/platform/URL.hpp>

#include <csignal>
#include <malloc.h>

using namespace VelmoCloudEntity;
using namespace PerchAppLibrary;

namespace {

TEST(FontItem, ExportsAllButThreeOfItsPropertiesTheChildrenLast) {
    const auto font = FontItem::parse(sample("records/FontItem.json"));
    font->setChildren({font->Children().at(0)});
    Dictionary expected = font->properties();
    for (const char* const hidden : {"displayName", "previewText", "isActivated", "Children"})
        expected.stable_erase(hidden);
    expected["Children"] = ValueArray(1, font->Children().at(0)->Dict());
    EXPECT_EQ(difference(toText(font->Dict()), toText(expected)), "");
}

TEST(FontItem, CopiesOfADictGiveBackWhatTheyTook) {
    const Dictionary dict = FontItem::parse(R"({"Children":[{"Id":5},{"Id":6}]})")->Dict();
    const auto used = [] { return mallinfo2().uordblks; };
    const std::size_t before = used();
    if (before == 0)
        GTEST_SKIP() << "mallinfo2() reports nothing here";
    for (int round = 0; round < 100; ++round) {
        Dictionary copy = dict;
        copy["Remark"] = std::string(10'000, 'x');
        EXPECT_GT(used(), before + 10'000);
    }
    EXPECT_LT(used(), before + 10'000);
}

TEST(FontItem, ExportsTheSameTextOfSubclassesWithDictionariesAndWithout) {
    struct Renamed : FontItem { // its accessor changes what is exported
        const std::string& ProductName() const override { return PostscriptName(); }
    };
    struct Brief : FontItem {
        Dictionary Dict() const override { return {{"brief", Id()}}; }
    };
    const auto font =
        FontItem::create({.productName = "quote \" nul \1 del \x7F \xFF\xED\xA0\x80"});
    const auto renamed = FontItem::create<Renamed>(JSON::parse(R"({"PostscriptName":"p"})"));
    const auto group = nested<FontItem>(2, FontItem::create<Brief>(JSON::parse(R"({"Id":5})")));
    group->setChildren({font, renamed, group->Children().front()});
    for (const Records<FontItem>& list : {Records<FontItem>{}, {font}, {group, renamed, font}})
        EXPECT_EQ(FontItem::getFontArrayText(list), toText(FontItem::getFontArray(list)));
    EXPECT_NE(FontItem::getFontArrayText({renamed}).find(R"("ProductName":"p")"),
              std::string::npos);
}

TEST(FontItem, AGroupIsActivatedWhenTheStoredFlagsOfItsMembersAre) {
    const std::pair<std::string, bool> cases[] = {
        {"[]", true},
        {R"([{"isActivated":true},{"isActivated":true}])", true},
        {R"([{"isActivated":true},{"isActivated":true},{}])", false},
        {R"([{"IsGroup":true,"Children":[{"isActivated":true}]}])", false},
        {R"([{"IsGroup":true,"isActivated":true,"Children":[{}]}])", true}};
    for (const auto& [members, expected] : cases) {
        const auto group = FontItem::parse(R"({"IsGroup":true,"Children":)" + members + "}");
        EXPECT_EQ(group->IsActivated(), expected) << members;
    }
}

TEST(FontItem, ActivationReachesTheLeavesOfAGroupAndNoGroupItself) {
    const auto group = FontItem::parse(R"({"IsGroup":true,"Children":[
        {},{"IsGroup":true,"Children":[{}]},{"Children":[{}]},{"IsGroup":true}]})");
    const Records<FontItem>& members = group->Children();
    const auto flags = [&] {
        std::string text;
        for (const auto& font : {members[0], members[1]->Children()[0], members[2], group,
                                 members[1], members[3], members[2]->Children()[0]})
            text += font->isActivated() ? '1' : '0';
        return text;
    };
    group->setActivated(true);
    EXPECT_EQ(flags(), "1110000");
    group->setIsActivated(true);
    group->setActivated(false);
    EXPECT_EQ(flags(), "0001000");
    EXPECT_FALSE(group->IsActivated()) << "the group's own flag does not reach the members";
}

TEST(FontItem, NamesAndTitles) {
    const std::pair<const char*, const char*> cases[] = {
        // JSON, then DisplayName, PreviewText and TreeNodeTitle
        {R"({"ProductName":"Kai","Format":"TTF","Version":"1"})", "Kai|Kai|Kai(TTF, 1)"},
        {R"({"ProductName":"楷","ProductSetName":"S","GroupTag":"G","Children":[{}]})",
         "楷|楷|楷(, )"},
        {R"({"displayName":"D"})", "D|D|(, )"},
        {R"({"ProductName":"A","displayName":"D","previewText":"P"})", "D|P|A(, )"},
        {R"({"IsGroup":true,"ProductSetName":"S","GroupTag":"新","ProductName":"N",
             "displayName":"D"})",
         "S (0)|S|新S"},
        {R"({"IsGroup":true,"Children":[{},{"IsGroup":true,"Children":[{},{}]}]})", " (2)||"},
        {R"({"IsGroup":true,"ProductSetName":"S","previewText":"P"})", "S (0)|P|S"}};
    for (const auto& [text, expected] : cases) {
        const auto font = FontItem::parse(text);
        EXPECT_EQ(font->DisplayName() + "|" + font->PreviewText() + "|" + font->TreeNodeTitle(),
                  expected)
            << text;
    }
}

TEST(FontItem, LocationsAreMadeOfTheirParts) {
    setenv("XDG_CACHE_HOME", "/c", 1);
    const std::pair<const char*, const char*> cases[] = {
        // JSON, then LocalFile, stem, the preview's address and getRemoteFileUrl
        {R"({"ProductFileName":"a.ttf","ProductFileUrl":"https://h:80/宋 b?c#d%.ttf"})",
         "a.ttf|a|https://h:80/%E5%AE%8B%20b?c%23d%25_B.png|p/S/1/a.ttf"},
        {R"({"ProductFileName":"/a.ttf","IsPrivate":true,"ProductFileUrl":":.ttf"})",
         "/a.ttf|/a||own/u//a.ttf"},
        {R"({"ProductFileName":"//a.ttf","IsOnline":true,"ProductFileUrl":"b😀"})",
         "/c/VelmoCloud/a.ttf|//a||p/S/1///a.ttf"},
        {R"({"ProductFileName":"a😀ttf","ProductFileUrl":".😀f"})", // half of a character is left
         "a😀ttf|a\uFFFD|_B.png|p/S/1/a😀ttf"}};
    for (const auto& [json, expected] : cases) {
        const auto font = FontItem::parse(json);
        font->setProductSetName("S");
        font->setVersion("1");
        const auto preview = font->findRemotePreviewFile();
        const FontItem::RemoteFileLabels labels{
            .productFileUrlHeader = "p/", .privateProductFileUrlHeader = "own/", .userGuid = "u"};
        EXPECT_EQ(font->LocalFile() + "|" + font->stem().value_or("none") + "|" +
                      std::string(preview ? preview->buffer() : "") + "|" +
                      font->getRemoteFileUrl(labels),
                  expected);
    }
}

TEST(FontItem, PreviewsAreNamedByTheirTagsOrByTheMD5OfThese) {
    setenv("XDG_CACHE_HOME", "/c", 1);
    const auto font = FontItem::parse(
        R"({"ProductFileName":"a.ttf","ProductSetName":"S","PreviewFileUrl":"https://h/"})");
    EXPECT_EQ(font->LocalPreviewFile(), "/c/VelmoCloud/a_B.png");
    for (const auto& [isPrivate, isFixed, folder] :
         {std::tuple(false, false, "p/S//"), {false, true, "f/S//"}, {true, true, "own/u/"}}) {
        font->setIsPrivate(isPrivate);
        const std::string name = isFixed ? "a_T_c_-3.png" : "ed6be0aa23de0d72019281ca6974e62b";
        const FontItem::PreviewLabels labels{
            .isFixed = isFixed, .previewTag = "T", .colorTag = "c", .fontSize = -3};
        EXPECT_EQ(font->getLocalPreviewFile(labels), "/c/VelmoCloud/" + name);
        EXPECT_EQ(font->getRemotePreviewFile(labels), "https://h/" + name);
        EXPECT_EQ(font->getRemotePreviewFile(isFixed, "T", "c", -3, "f/", "p/", "own/", "u"),
                  folder + name);
    }
}

TEST(FontItem, LocationsWithoutAStemOrAURLEndTheProcess) {
    const auto died = testing::KilledBySignal(SIGABRT);
    const auto font =
        FontItem::parse(R"({"ProductFileName":"宋体字","ProductFileUrl":"http://h:p/a.ttf"})");
    EXPECT_EXIT(font->LocalPreviewFile(), died, "too short");
    EXPECT_EXIT(font->getRemotePreviewFile(true, "p", "c", 1, "f/", "p/", "own/", "u"), died, ".");
    EXPECT_EXIT(font->remotePreviewFile(), died, "gives no preview URL");
}

TEST(FontItem, AlwaysHasAFontToDrawWith) {
    const auto item = FontItem::create({.productName = "DejaVu Sans Mono"});
    EXPECT_FALSE(item->Font().isSystem());
    EXPECT_EQ(item->Font().points(), 32);
    item->setIsOnline(true);
    EXPECT_TRUE(item->Font().isSystem());
}

TEST(FontItem, TakesQueriesAndDestructionOfAnyDepthInLinearTime) {
    const auto leaf = FontItem::parse(R"({"Id":1})");
    const Records<FontItem> list{nested<FontItem>(100'000, leaf)};
    FontList::setActivatedFont(list, {leaf});
    EXPECT_EQ(FontList::getActivatedFont(list), Records<FontItem>{leaf});
    EXPECT_EQ(FontList::getFontCount(list), 1);

    // Each way of letting go of a chain is safe; a part that somebody holds outlives the rest.
    list[0]->setValue(JSON::parse("{}"));
    const auto held = nested<FontItem>(100'000, leaf);
    nested<FontItem>(100'000, held).reset();
    EXPECT_EQ(FontList::getFontCount({held}), 1);
    held->setChildren({});
    FontItem::create()->setChildren(
        {nested<FontItem>(100'000, leaf), nested<FontItem>(100'000, leaf)}); // below a leaf
    EXPECT_EQ(leaf.use_count(), 1);
}

} // namespace
