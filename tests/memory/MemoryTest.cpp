// What holds when memory runs out, at any allocation of any operation.
#include "FailingAllocator.hpp"

#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/account/UserItem.hpp>
#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/entity/ExceptionItem.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/BaseExceptionEntity.hpp>
#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/platform/PlatformFont.hpp>
#include <PerchAppLibrary/platform/URL.hpp>
#include <PerchAppLibrary/text/Text.hpp>

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <new>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace VelmoCloudEntity;
using PerchAppLibrary::Excluded;
using PerchAppLibrary::JSON;
using PerchAppLibrary::toText;
using PerchAppLibrary::toValue;

namespace {

// The names are too long to be stored without an allocation. One is not ASCII.
const char* const fontText = R"([{"Id":1,"ProductName":"Étude Straße of a long name","Tags":[1,9],
        "ProductSetName":"A product set with a name","ProductFileName":"Étude Straße of a.ttf",
        "ProductFileUrl":"https://host.example/fonts/Étude.ttf","Token":"a token of some length"},
    {"IsGroup":true,"ProductSetName":"A group","Children":[
        {"ProductName":"仿宋体 of a name without an identifier","ProductFileName":"c.ttf"},
        {"Id":-5000000000000,"ProductName":"Kai","Tags":[7000000000000,9,-3]}]}])";
const char* const tagText = R"([{"Id":9,"Name":"Serif","IsGroup":true,"SubTagFilterType":"And",
    "Children":[{"Id":2,"IsChecked":true,"FontIdList":[1,70000000000,3]},
                {"Id":3,"IsChecked":true,"FontIdList":[3,1,-90000000000]}]},
    {"Id":1,"IsChecked":true,"FontIdList":[1,2,3],"Children":[{"Id":5}]}])";

using Fonts = Records<FontItem>;

std::string names(const Fonts& fonts) {
    std::string text;
    for (const auto& font : fonts)
        text += font->ProductName() + ";";
    return text;
}

std::string parse(const char* text) {
    try {
        const JSON json = JSON::parse(text);
        return toText(toValue(json)) + (json == JSON::parse(text) ? "" : " differs");
    } catch (const JSON::ParseError& error) {
        return error.what();
    }
}

std::string read() {
    failing::start();
    return parse(fontText) +
           parse(R"([18446744073709551616,-1e999,"\ud800 of some length",1E-999])") +
           parse(R"([123456789012345678901234567890, "unfinished])") +
           toText(toValue(JSON("a text of more than some characters"))) +
           toText(toValue(JSON(0.1)));
}

/// Overrides an accessor, so that it is filled through its accessors.
struct ClientFont : FontItem {
    void setId(std::int64_t id) override { FontItem::setId(id); }
};

std::string fill() {
    const JSON fonts = JSON::parse(fontText);
    failing::start();
    const auto font = FontItem::create(fonts[1]);
    const auto client = FontItem::create<ClientFont>(fonts[0]);
    font->setValue(fonts[0]);
    client->setValue(fonts[1], Excluded{"Children"});
    const auto user = UserItem::create(JSON::parse(
        R"({"Guid":"a user's identifier","Token":{"any":["value of some length"]},"Tel":"1"})"));
    return toText(font->properties()) + toText(client->properties()) + toText(user->Dict()) +
           toText(FontList::parse(fontText).List()[1]->properties());
}

/// Writes down whether each name agrees with the search for it, also if a filling is interrupted.
std::string refill() {
    const JSON json = JSON::parse(
        R"({"ProductName":"Étude of a long name","ProductSetName":"a set of a long name","Tags":[1],
            "displayName":"shown with a long name","ProductFileName":"a file of a long name",
            "Children":[{"Id":1}],"Copyright":"a text that is not searched"})");
    const auto font = FontItem::create();
    FontList::getFontByKey({font}, "Étude", true); // so that the font knows its names
    failing::start();
    try {
        font->setValue(json);
    } catch (const std::bad_alloc&) { // NOLINT(bugprone-empty-catch): as it should be
    }
    std::string text;
    for (const char* const name :
         {"ProductName", "ProductSetName", "ProductFileName", "displayName"}) {
        const std::string sought = json[name].as<std::string>().value();
        const bool isFound = !FontList::getFontByKey({font}, sought, true).empty();
        text += isFound == (font->value(name) == toValue(json[name])) ? "agrees " : "differs ";
    }
    return text;
}

std::string query() {
    const Fonts fonts = FontList::parse(fontText).List();
    failing::start();
    const auto map = UserFontActivateMapItem::create(JSON::parse(R"({"UserGuid":"g","FontList":
        [{"Id":1},{"Id":-5000000000000},{"ProductName":"仿宋体 of a name without an identifier"}]})"));
    FontList::setActivatedFont(fonts, map->FontList());
    FontList::setFavoritedFont(fonts, fonts);
    const FontTagList tags = FontTagList::parse(tagText);
    const auto passing =
        FontTagList::getCheckedFontTagFontIdList(tags.List(), {1, 3, -1, 1LL << 50});
    const auto [whole, character] = FontList::getSearchResultFont(fonts, "étude straSSE OF a long");
    return names(FontList::getActivatedFont(fonts)) + names(FontList::getFavoritedFont(fonts)) +
           names(FontList::getFontById(fonts, passing)) +
           names(FontList::getFontByTags(fonts, tags.List())) +
           names(FontList::getFontByName(fonts, "Kai", false)) +
           names(FontList::getFontByName(fonts, "仿宋体", true)) +
           names(FontList::getFontByKey(fonts, "a PRODUCT set with a name", false)) +
           names(FontList::getFontByKey(fonts, "e\u0301tude", true)) + names(whole) +
           names(character);
}

std::string write() {
    const Fonts fonts = FontList::parse(fontText).List();
    failing::start();
    return FontItem::getFontArrayText(fonts) + toText(FontItem::getFontArray(fonts)) +
           toText(fonts[0]->value("TreeNodeTitle")) + fonts[1]->DisplayName() +
           fonts[0]->LocalPreviewFile() + fonts[0]->findRemotePreviewFile().value().c_str() +
           fonts[0]->getLocalPreviewFile(true, "tag", "colour", 12) +
           ExceptionItem().Dict().at("002004")->msgDict().at("En");
}

std::string findInstalledFont() {
    const Fonts fonts = FontList::parse(fontText).List();
    fonts[0]->setProductName("DejaVu Sans Mono");
    failing::startWithoutMalloc(); // fontconfig crashes if an allocation of its own fails
    return fonts[0]->Font().name() + fonts[1]->Font().name();
}

using Scenario = std::string (*)();
constexpr Scenario scenarios[] = {read, fill, refill, query, write, findInstalledFont};

/// What a forked process reports.
struct Report {
    bool isReached; // whether an allocation has failed
    long blocks;    // that are left at the end
    std::array<char, 16'384>
        now; // what the scenario gives while an allocation fails, unless bad_alloc
    std::array<char, 16'384> later;
};

/// Runs the scenario while the allocation fails, and twice more, in a process of its own, where
/// nothing but ICU has been used before. Returns whether the process came to its end.
bool runAlone(Scenario scenario, long number, Report& report) {
    const auto run = [&]() noexcept {
        const auto keep = [](auto& kept, const std::string& text) {
            std::snprintf(kept.data(), kept.size(), "%s", text.c_str());
        };
        const long before = failing::blocks();
        failing::arm(number);
        try {
            keep(report.now, scenario());
        } catch (const std::bad_alloc&) { // NOLINT(bugprone-empty-catch): as it should be
        }
        report.isReached = failing::stop();
        keep(report.later, scenario() + scenario());
        report.blocks = failing::blocks() - before;
    };
    const pid_t child = fork();
    if (child == 0) {
        alarm(20);
        run();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status == 0;
}

TEST(OutOfMemory, GivesBadAllocAndLeavesAllUsableWhicheverAllocationFails) {
    // ICU does not recover if an allocation of its first use fails.
    ASSERT_EQ(PerchAppLibrary::text::graphemeCount(PerchAppLibrary::text::composed("\u00c9")), 1U);
    constexpr std::size_t size = 2 * sizeof(Report);
    auto* const shared = static_cast<Report*>(
        mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    Report &report = shared[0], &expected = shared[1];
    for (const Scenario& each : scenarios) {
        expected = {};
        ASSERT_TRUE(runAlone(each, 0, expected));
        long number = 0;
        do {
            report = {};
            SCOPED_TRACE("scenario " + std::to_string(&each - scenarios) + " at allocation " +
                         std::to_string(++number));
            ASSERT_TRUE(runAlone(each, number, report)) << "the process died";
            EXPECT_TRUE(report.now[0] == '\0' || report.now == expected.now) << report.now.data();
            EXPECT_STREQ(report.later.data(), expected.later.data());
            EXPECT_LE(report.blocks, expected.blocks) << "blocks leaked";
        } while (report.isReached && number < 10'000);
        EXPECT_FALSE(report.isReached);
    }
    munmap(shared, size);
}

} // namespace
