// What several threads may do at once, and what a static object may do at the end of the process.
#include "RecordTesting.hpp"

#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/account/UserItem.hpp>

#include <cstdio>
#include <cstdlib>
#include <latch>
#include <thread>

using namespace VelmoCloudEntity;
using namespace PerchAppLibrary;

// Each case runs in a process of its own, so that its threads are the first to use whatever is made
// on first use. The thread sanitizer finds what equal results do not show.
namespace {

/// Writes down what each way of reading a tree gives.
std::string readAll(const FontList& list) {
    const auto& fonts = list.List();
    std::string text = FontItem::getFontArrayText(fonts);
    const auto add = [&text](const Records<FontItem>& found) {
        for (const auto& font : found)
            text += std::to_string(font->Id()) + ' ';
    };
    add(FontList::getActivatedFont(fonts));
    add(FontList::getFontById(fonts, {1, 9, 3}));
    for (const std::string key : {"s", "Étude", "각", "q\u0323\u0307", "\xFE"}) {
        for (const bool fuzzy : {false, true}) {
            add(FontList::getFontByName(fonts, key, fuzzy));
            add(FontList::getFontByKey(fonts, key, fuzzy));
        }
        add(FontList::getSearchResultFont(fonts, key).second);
    }
    for (const auto& font : list)
        text += font->TreeNodeTitle() + toText(font->Dict()) + toText(font->properties());
    return text;
}

TEST(Threads, ReadOneTreeAndLoadOthersFromOneDocument) {
    const JSON document = JSON::parse(sample("font-list.json"));
    const JSON mine = JSON::parse(sample("activated-fonts.json"));
    const FontList shared(document);
    const auto work = [&] {
        const FontList fonts(document);
        FontList::setActivatedFont(fonts.List(), UserFontActivateMapItem::create(mine)->FontList());
        return readAll(shared) + readAll(fonts);
    };
    std::vector<std::string> results(4);
    std::latch start(std::ssize(results));
    {
        std::vector<std::jthread> threads;
        threads.reserve(results.size());
        for (std::string& result : results)
            threads.emplace_back([&] {
                start.arrive_and_wait();
                result = work();
            });
    }
    EXPECT_TRUE(results == std::vector(results.size(), work())) << results[0].size() << " bytes";
}

/// Reads what the library keeps in static objects.
std::string readStatics() {
    const auto user = UserItem::parse(R"({"Guid":"u","Token":[18446744073709551616]})");
    return toText(user->Dict()) + toText(toValue(JSON::emptyString())) +
           readAll(FontList::parse(R"([{"Id":2,"ProductName":"宋体 é","Token":"t"}])"));
}

/// Is made before all that a test makes, so it is destroyed last.
struct Client {
    std::optional<std::string> expected;
    ~Client() {
        if (!expected || readStatics() == *expected)
            return;
        std::puts("FAILED: records differ at the end of the process");
        std::_Exit(1);
    }
} client;

TEST(EndOfTheProcess, LetsAStaticObjectUseRecords) { client.expected = readStatics(); }

} // namespace
