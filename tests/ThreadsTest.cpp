#include "RecordTesting.hpp"

#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/catalogue/FontTagList.hpp>

#include <algorithm>
#include <functional>
#include <latch>
#include <thread>

using namespace VelmoCloudEntity;
using namespace PerchAppLibrary;

// Each case runs in a process of its own, so that its threads are the first to use whatever is made
// on first use. The thread sanitizer finds what equal results do not show.
namespace {

/// Fonts and groups whose names need each way of comparing texts: so many that the first searches
/// overlap.
std::string fontsText() {
    const char* const names[] = {"Song",          "宋体Bold",      "Étude",  "E\u0301tude",
                                 "Straße",        "각진굴림",      "\u1FB3", "ﬁne",
                                 "x\u0323\u0307", "q\u0307\u0323", "Ǆ"};
    std::string text = "[";
    for (std::size_t id = 1; id <= 2000; ++id) {
        text += (id == 1 ? R"({"Id":)" : R"(,{"Id":)") + std::to_string(id);
        text += R"(,"ProductName":")" + std::string(names[id % std::size(names)]);
        text += R"(","ProductSetName":")" + std::string(names[id * 5 % std::size(names)]);
        text += R"(","ProductFileName":"file.ttf","Tags":[1,2],"IsAuthed":true,"IsGroup":)";
        text += id % 7 == 0 ? R"(true,"Children":[{"ProductName":"Kai"},{}]})" : "false}";
    }
    return text + "]";
}

/// Writes down what each way of reading a tree gives.
std::string readAll(const FontList& list) {
    const auto tags = FontTagList::parse(R"([{"Id":1,"IsGroup":true,
        "Children":[{"Id":2,"IsChecked":true,"FontIdList":[1,2,9]}]}])");
    const auto& fonts = list.List();
    std::vector<Records<FontItem>> found{
        FontList::getFontById(fonts,
                              FontTagList::getCheckedFontTagFontIdList(tags.List(), {1, 9, 3})),
        {FontList::getFontItemById(fonts, 7)},
        FontList::getAuthorizedFont(fonts),
        FontList::getActivatedFont(fonts),
        FontList::getFontByTags(fonts, tags.List())};
    for (const std::string key : {"s", "Étude", "song", "宋", "각", "ﬁ", "x\u0307\u0323", "\xFE"}) {
        for (const bool fuzzy : {false, true}) {
            found.push_back(FontList::getFontByName(fonts, key, fuzzy));
            found.push_back(FontList::getFontByKey(fonts, key, fuzzy));
        }
        const auto [whole, character] = FontList::getSearchResultFont(fonts, key);
        found.insert(found.end(), {whole, character});
    }
    std::string text = FontItem::getFontArrayText(fonts);
    for (const auto& some : found) {
        text += '\n';
        for (const auto& font : some)
            text += std::to_string(font->Id()) + ' ';
    }
    for (const auto& font : list) {
        text += font->TreeNodeTitle() + font->DisplayName() + font->LocalPreviewFile();
        text += font->getLocalPreviewFile(false, "p1", "c0", 48) + toText(font->Dict());
        text += toText(font->properties()) + toText(font->value("ProductName"));
    }
    return text;
}

/// Runs the work in several threads at once, and expects what it gives alone.
void expectOneResult(const std::function<std::string()>& work) {
    std::vector<std::string> results(4);
    std::latch start(static_cast<std::ptrdiff_t>(results.size()));
    std::vector<std::jthread> threads;
    threads.reserve(results.size());
    for (std::string& result : results)
        threads.emplace_back([&] {
            start.arrive_and_wait();
            result = work();
        });
    threads.clear();
    const std::string expected = work();
    for (const std::string& result : results) {
        const auto at =
            static_cast<std::size_t>(std::ranges::mismatch(result, expected).in1 - result.begin());
        EXPECT_EQ(result.substr(at, 80), expected.substr(at, 80)) << "from byte " << at << " on";
    }
}

TEST(Threads, ReadOneTreeAtOnce) {
    const FontList fonts = FontList::parse(fontsText());
    expectOneResult([&] { return readAll(fonts); });
}

TEST(Threads, LoadMarkAndReadATreeEachFromOneDocument) {
    const JSON document = JSON::parse(fontsText());
    const auto work = [&document] {
        const FontList fonts(document);
        const auto mine = UserFontActivateMapItem::parse(
            R"({"FontList":[{"Id":3},{"Id":0,"ProductName":"Kai"}]})");
        FontList::setActivatedFont(fonts.List(), mine->FontList());
        return readAll(fonts);
    };
    expectOneResult(work);
}

} // namespace
