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

/// Fonts and groups whose names need each way of comparing texts: enough for searches to overlap.
std::string fontsText() {
    const std::string names[] = {"Song",          "宋体Bold",      "Étude",  "E\u0301tude",
                                 "Straße",        "각진굴림",      "\u1FB3", "ﬁne",
                                 "x\u0323\u0307", "q\u0307\u0323", "Ǆ"};
    std::string text;
    for (std::size_t id = 1; id <= 2000; ++id)
        text += (id == 1 ? R"([{"Id":)" : R"(,{"Id":)") + std::to_string(id) +
                R"(,"ProductName":")" + names[id % 11] + R"(","ProductSetName":")" +
                names[id * 5 % 11] + R"(","ProductFileName":"file.ttf","Tags":[1,2],"IsGroup":)" +
                (id % 7 == 0 ? R"(true,"Children":[{"ProductName":"Kai"},{}]})" : "false}");
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
        FontList::getActivatedFont(fonts), FontList::getFontByTags(fonts, tags.List())};
    for (const std::string key : {"s", "Étude", "song", "宋", "각", "ﬁ", "x\u0307\u0323", "\xFE"}) {
        for (const bool fuzzy : {false, true})
            found.insert(found.end(), {FontList::getFontByName(fonts, key, fuzzy),
                                       FontList::getFontByKey(fonts, key, fuzzy)});
        const auto [whole, character] = FontList::getSearchResultFont(fonts, key);
        found.insert(found.end(), {whole, character});
    }
    std::string text = FontItem::getFontArrayText(fonts);
    for (const auto& some : found)
        for (const auto& font : some)
            text += std::to_string(font->Id()) + ' ';
    for (const auto& font : list)
        text += font->TreeNodeTitle() + font->DisplayName() + font->LocalPreviewFile() +
                font->getLocalPreviewFile(false, "p1", "c0", 48) + toText(font->Dict()) +
                toText(font->properties()) + toText(font->value("ProductName"));
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
        const auto [at, other] = std::ranges::mismatch(result, expected);
        EXPECT_EQ(std::string(at, result.end()).substr(0, 80),
                  std::string(other, expected.end()).substr(0, 80));
    }
}

TEST(Threads, ReadOneTreeAtOnce) {
    const FontList fonts = FontList::parse(fontsText());
    expectOneResult([&] { return readAll(fonts); });
}

TEST(Threads, LoadMarkAndReadATreeEachFromOneDocument) {
    const JSON document = JSON::parse(fontsText());
    const JSON mine = JSON::parse(R"({"FontList":[{"Id":3},{"Id":0,"ProductName":"Kai"}]})");
    expectOneResult([&] {
        const FontList fonts(document);
        FontList::setActivatedFont(fonts.List(), UserFontActivateMapItem::create(mine)->FontList());
        return readAll(fonts);
    });
}

} // namespace
