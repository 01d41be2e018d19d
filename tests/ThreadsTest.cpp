#include "RecordTesting.hpp"

#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>

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
    const std::string names[] = {"Song",     "宋体Bold", "E\u0301tude",  "Straße",
                                 "각진굴림", "ﬁne",      "q\u0307\u0323"};
    std::string text = "[";
    for (std::size_t id = 1; id <= 2000; ++id)
        text +=
            R"({"Id":)" + std::to_string(id) + R"(,"ProductName":")" + names[id % 7] +
            R"(","ProductSetName":")" + names[id * 5 % 7] +
            (id % 9 == 0 ? R"(","IsGroup":true,"Children":[{"ProductName":"Kai"}]},)" : R"("},)");
    return text + "{}]";
}

/// Writes down what each way of reading a tree gives.
std::string readAll(const FontList& list) {
    const auto& fonts = list.List();
    std::vector<Records<FontItem>> found{FontList::getActivatedFont(fonts),
                                         FontList::getFontById(fonts, {1, 9, 3})};
    for (const std::string key : {"s", "Étude", "각", "q\u0323\u0307", "\xFE"}) {
        for (const bool fuzzy : {false, true})
            found.insert(found.end(), {FontList::getFontByName(fonts, key, fuzzy),
                                       FontList::getFontByKey(fonts, key, fuzzy)});
        found.push_back(FontList::getSearchResultFont(fonts, key).second);
    }
    std::string text = FontItem::getFontArrayText(fonts);
    for (const auto& some : found)
        for (const auto& font : some)
            text += std::to_string(font->Id()) + ' ';
    for (const auto& font : list)
        text += font->TreeNodeTitle() + toText(font->Dict()) + toText(font->properties());
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
    for (const std::string& result : results)
        EXPECT_TRUE(result == expected) << result.size() << " bytes";
}

TEST(Threads, ReadOneTreeAndLoadOthersFromOneDocument) {
    const JSON document = JSON::parse(fontsText());
    const JSON mine = JSON::parse(R"({"FontList":[{"Id":3},{"Id":0,"ProductName":"Kai"}]})");
    const FontList shared(document);
    expectOneResult([&] {
        const FontList fonts(document);
        FontList::setActivatedFont(fonts.List(), UserFontActivateMapItem::create(mine)->FontList());
        return readAll(shared) + readAll(fonts);
    });
}

} // namespace
