#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/entity/RecordTree.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <latch>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;
using PerchAppLibrary::toText;

// Each case runs in a process of its own, so that its threads are the first to use whatever is made
// on first use. The thread sanitizer finds what equal results do not show.
namespace {

/// What several threads return that start to work at once.
std::vector<std::string> atOnce(const std::function<std::string()>& work) {
    std::vector<std::string> results(4);
    std::latch start(static_cast<std::ptrdiff_t>(results.size()));
    std::vector<std::thread> threads;
    threads.reserve(results.size());
    for (std::string& result : results)
        threads.emplace_back([&] {
            start.arrive_and_wait();
            result = work();
        });
    for (std::thread& thread : threads)
        thread.join();
    return results;
}

/// Fonts and groups whose names need each way of comparing texts: so many that the first searches
/// overlap.
std::string fontsText() {
    std::istringstream pool(
        "Song 宋体Bold Étude E\u0301tude Straße 각진굴림 \u1FB3 ﬁne x\u0323\u0307 "
        "q\u0307\u0323 Ǆ");
    const std::vector<std::string> names(std::istream_iterator<std::string>(pool), {});
    std::string text = "[";
    for (std::size_t id = 1; id <= 2000; ++id) {
        text += (id == 1 ? R"({"Id":)" : R"(,{"Id":)") + std::to_string(id);
        text += R"(,"ProductName":")" + names[id % names.size()];
        text += R"(","ProductSetName":")" + names[id * 5 % names.size()];
        text += R"(","ProductFileName":"file.ttf","Tags":[1,2],"IsAuthed":true,"IsGroup":)";
        text += id % 7 == 0 ? R"(true,"Children":[{"ProductName":"Kai"},{}]})" : "false}";
    }
    return text + "]";
}

const std::string tagsText =
    R"([{"Id":1,"IsGroup":true,"Children":[{"Id":2,"IsChecked":true,"FontIdList":[1,2,9]}]}])";

std::string idsOf(const Records<FontItem>& fonts) {
    std::string ids;
    for (const auto& font : fonts)
        ids += std::to_string(font->Id()) + ' ';
    return ids + '\n';
}

std::string searched(const Records<FontItem>& list) {
    std::string found;
    for (const std::string key : {"s", "Étude", "song", "宋", "각", "ﬁ", "x\u0307\u0323", "\xFE"}) {
        for (const bool fuzzy : {false, true})
            found += idsOf(FontList::getFontByName(list, key, fuzzy)) +
                     idsOf(FontList::getFontByKey(list, key, fuzzy));
        const auto [whole, character] = FontList::getSearchResultFont(list, key);
        found += idsOf(whole) + idsOf(character);
    }
    return found;
}

std::string lookedUp(const Records<FontItem>& list, const Records<FontTagItem>& tags) {
    std::vector<std::int64_t> ids;
    forEachLeaf(list, [&ids](const std::shared_ptr<FontItem>& font) { ids.push_back(font->Id()); });
    return idsOf(FontList::getFontById(list, FontTagList::getCheckedFontTagFontIdList(tags, ids))) +
           idsOf({FontList::getFontItemById(list, 7)}) + idsOf(FontList::getAuthorizedFont(list)) +
           idsOf(FontList::getFontByTags(list, tags));
}

std::string exported(const Records<FontItem>& list) {
    std::string text = FontItem::getFontArrayText(list);
    for (const auto& font : list) {
        text += font->TreeNodeTitle() + font->DisplayName() + font->LocalPreviewFile();
        text += font->getLocalPreviewFile(false, "p1", "c0", 48) + toText(font->Dict());
        text += toText(font->properties()) + font->value("ProductName").as_string().c_str();
    }
    return text;
}

std::string readAll(const Records<FontItem>& list, const Records<FontTagItem>& tags) {
    return searched(list) + lookedUp(list, tags) + exported(list);
}

/// Where two long texts differ, and how they go on there; empty if they are equal.
std::string difference(std::string_view left, std::string_view right) {
    if (left == right)
        return "";
    const auto at = static_cast<std::size_t>(std::ranges::mismatch(left, right).in1 - left.begin());
    return std::to_string(at) + ": " + std::string(left.substr(at, 80)) + " <> " +
           std::string(right.substr(at, 80));
}

TEST(Threads, ReadOneTreeAtOnce) {
    const FontList fonts(JSON::parse(fontsText()));
    const FontTagList tags(JSON::parse(tagsText));
    const auto results = atOnce([&] { return readAll(fonts.List(), tags.List()); });
    const std::string expected = readAll(FontList(JSON::parse(fontsText())).List(), tags.List());
    for (const std::string& result : results)
        EXPECT_EQ(difference(result, expected), "");
}

TEST(Threads, LoadMarkAndReadATreeEachFromOneDocument) {
    const JSON document = JSON::parse(fontsText());
    const auto work = [&document] {
        const FontList fonts(document);
        const FontTagList tags(JSON::parse(tagsText));
        const auto mine = UserFontActivateMapItem::create(
            JSON::parse(R"({"FontList":[{"Id":3},{"Id":0,"ProductName":"Kai"}]})"));
        FontList::setActivatedFont(fonts.List(), mine->FontList());
        return idsOf(FontList::getActivatedFont(fonts.List())) + readAll(fonts.List(), tags.List());
    };
    const auto results = atOnce(work);
    const std::string expected = work();
    for (const std::string& result : results)
        EXPECT_EQ(difference(result, expected), "");
}

} // namespace
