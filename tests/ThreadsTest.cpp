#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <latch>
#include <string>
#include <thread>
#include <vector>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;
using PerchAppLibrary::toText;

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

const JSON tagsJSON = JSON::parse(
    R"([{"Id":1,"IsGroup":true,"Children":[{"Id":2,"IsChecked":true,"FontIdList":[1,2,9]}]}])");

/// Writes down what each way of reading a tree gives.
std::string readAll(const Records<FontItem>& list, const Records<FontTagItem>& tags) {
    std::string text;
    const auto add = [&text](const Records<FontItem>& fonts) {
        for (const auto& font : fonts)
            text += std::to_string(font->Id()) + ' ';
        text += '\n';
    };
    for (const std::string key : {"s", "Étude", "song", "宋", "각", "ﬁ", "x\u0307\u0323", "\xFE"}) {
        for (const bool fuzzy : {false, true}) {
            add(FontList::getFontByName(list, key, fuzzy));
            add(FontList::getFontByKey(list, key, fuzzy));
        }
        const auto [whole, character] = FontList::getSearchResultFont(list, key);
        add(whole);
        add(character);
    }
    add(FontList::getFontById(list, FontTagList::getCheckedFontTagFontIdList(tags, {1, 9, 3})));
    add({FontList::getFontItemById(list, 7)});
    add(FontList::getAuthorizedFont(list));
    add(FontList::getActivatedFont(list));
    add(FontList::getFontByTags(list, tags));
    text += FontItem::getFontArrayText(list);
    for (const auto& font : list) {
        text += font->TreeNodeTitle() + font->DisplayName() + font->LocalPreviewFile();
        text += font->getLocalPreviewFile(false, "p1", "c0", 48) + toText(font->Dict());
        text += toText(font->properties()) + toText(font->value("ProductName"));
    }
    return text;
}

/// Runs the work in several threads at once, then alone, and expects one result of all.
void expectOneResult(const std::function<std::string()>& work,
                     const std::function<std::string()>& alone) {
    std::vector<std::string> results(4);
    std::latch start(static_cast<std::ptrdiff_t>(results.size()));
    std::vector<std::jthread> threads;
    for (std::string& result : results)
        threads.emplace_back([&] {
            start.arrive_and_wait();
            result = work();
        });
    threads.clear();
    const std::string expected = alone();
    for (const std::string& result : results) {
        const auto at = std::ranges::mismatch(result, expected).in1 - result.begin();
        EXPECT_EQ(result.substr(at, 80), expected.substr(at, 80)) << "from byte " << at << " on";
    }
}

TEST(Threads, ReadOneTreeAtOnce) {
    const FontList fonts(JSON::parse(fontsText()));
    const FontTagList tags(tagsJSON);
    expectOneResult([&] { return readAll(fonts.List(), tags.List()); },
                    [&] { return readAll(FontList::parse(fontsText()).List(), tags.List()); });
}

TEST(Threads, LoadMarkAndReadATreeEachFromOneDocument) {
    const JSON document = JSON::parse(fontsText());
    const auto work = [&document] {
        const FontList fonts(document);
        const auto mine = UserFontActivateMapItem::parse(
            R"({"FontList":[{"Id":3},{"Id":0,"ProductName":"Kai"}]})");
        FontList::setActivatedFont(fonts.List(), mine->FontList());
        return readAll(fonts.List(), FontTagList(tagsJSON).List());
    };
    expectOneResult(work, work);
}

} // namespace
