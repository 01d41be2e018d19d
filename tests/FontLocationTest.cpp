#include <VelmoCloudEntity/font/FontItem.hpp>

#include <PerchAppLibrary/JSON.hpp>
#include <PerchAppLibrary/platform/URL.hpp>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <utility>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;

namespace {

/// Fixes the cache directory, of which nothing exists at first.
class FontLocation : public testing::Test {
protected:
    FontLocation() {
        if (const char* home = std::getenv("XDG_CACHE_HOME"))
            before = home;
        setenv("XDG_CACHE_HOME", root.c_str(), 1);
    }

    ~FontLocation() override {
        before ? setenv("XDG_CACHE_HOME", before->c_str(), 1) : unsetenv("XDG_CACHE_HOME");
        std::filesystem::remove_all(root);
    }

    const std::string root = testing::TempDir() + "velmo-cache-" + std::to_string(std::random_device{}());
    const std::string cache = root + "/VelmoCloud";

private:
    std::optional<std::string> before;
};

using FontLocationDeathTest = FontLocation;

std::shared_ptr<FontItem> named(const std::string& fileName) {
    auto font = FontItem::create();
    font->setProductFileName(fileName);
    return font;
}

TEST_F(FontLocation, LocalFile) {
    const std::tuple<const char*, bool, std::string> cases[] = {
        {"/Library/Fonts/A.ttf", false, "/Library/Fonts/A.ttf"},
        {"", false, ""},
        {"A.ttf", true, cache + "/A.ttf"},
        {"宋体 #1%.ttf", true, cache + "/宋体 #1%.ttf"},
        {"/A.ttf", true, cache + "/A.ttf"}, // one slash between the parts, and never out of the directory
        {"a/b.ttf", true, cache + "/a/b.ttf"},
    };
    for (const auto& [fileName, isOnline, expected] : cases) {
        const auto font = named(fileName);
        font->setIsOnline(isOnline);
        EXPECT_EQ(font->LocalFile(), expected) << fileName << isOnline;
    }

    const auto font = named("A.ttf");
    font->setIsOnline(true);
    EXPECT_FALSE(font->IsLocaled());
    std::filesystem::create_directories(cache);
    std::ofstream(cache + "/A.ttf") << "font";
    EXPECT_TRUE(font->IsLocaled());
}

TEST_F(FontLocation, TheStemLosesFourCodeUnits) {
    const std::pair<const char*, std::optional<std::string>> cases[] = {
        {"SongTi.ttf", "SongTi"},
        {"A.woff2", "A.w"}, // counted, not parsed
        {"宋体.ttf", "宋体"},
        {"宋体字体", ""},
        {"e\u0301.ttf", "e\u0301"},
        {".ttf", ""},
        {"ttf", std::nullopt},
        {"", std::nullopt},
        {"宋体字", std::nullopt}, // nine bytes, three code units
        // A character beyond the BMP is two code units; half of one becomes U+FFFD.
        {"😀.ttf", "😀"},
        {"x😀😀", "x"},
        {"😀a", std::nullopt},
        {"😀ttf", "\uFFFD"},
        {"x😀😀ttf", "x😀\uFFFD"},
        {"😀😀a", "\uFFFD"},
    };
    for (const auto& [fileName, expected] : cases)
        for (const bool isOnline : {false, true}) {
            const auto font = named(fileName);
            font->setIsOnline(isOnline);
            EXPECT_EQ(font->stem(), expected) << fileName;
            if (expected) {
                EXPECT_EQ(font->LocalPreviewFile(), cache + "/" + *expected + "_B.png") << fileName;
            }
        }
    EXPECT_EQ(named("/Library/Fonts/A.ttf")->LocalPreviewFile(), cache + "/Library/Fonts/A_B.png");
}

TEST_F(FontLocation, PreviewsAreNamedInClearOrByTheirDigest) {
    const std::tuple<const char*, const char*, std::int64_t, const char*, const char*> cases[] = {
        {"A.ttf", "c", 12, "A_p_c_12.png", "8e11d97937a5edbf2842efbc583b4fc8"},
        {"宋体.ttf", "c", 12, "宋体_p_c_12.png", "8968ee17c3e7682d5a5dbd9b684c58bd"},
        {".ttf", "c", -1, "_p_c_-1.png", "97ab1fbdf3c88f6ea7da5cb6b339e3d6"},
    };
    for (const auto& [fileName, color, size, clear, digest] : cases)
        for (const bool isFixed : {true, false}) {
            const std::string name = isFixed ? clear : digest;
            const auto font = named(fileName);
            EXPECT_EQ(font->getLocalPreviewFile(isFixed, "p", color, size), cache + "/" + name);
            // The address of the folder keeps its scheme and host; one slash follows, whatever it ends in.
            for (const char* folder :
                 {"https://h.cn:80/a b", "https://h.cn:80/a b/", "https://h.cn:80/a b//"}) {
                font->setPreviewFileUrl(folder);
                EXPECT_EQ(font->getRemotePreviewFile(isFixed, "p", color, size),
                          "https://h.cn:80/a b/" + name);
            }
            font->setProductSetName("宋 S");
            for (const char* version : {"1.0", ""}) {
                font->setVersion(version);
                font->setIsPrivate(false);
                EXPECT_EQ(
                    font->getRemotePreviewFile(isFixed, "p", color, size, "fix:", "other/", "own/", "u 1"),
                    (isFixed ? "fix:宋 S/" : "other/宋 S/") + font->Version() + "/" + name);
                font->setIsPrivate(true);
                EXPECT_EQ(
                    font->getRemotePreviewFile(isFixed, "p", color, size, "fix:", "other/", "own/", "u 1"),
                    "own/u 1/" + name);
            }
        }
}

TEST_F(FontLocation, RemoteFileUrlIsPutTogetherAsItIs) {
    const auto font = FontItem::create(
        JSON::parse(R"({"ProductSetName":"宋 S","Version":"1.0","ProductFileName":"A #.ttf"})"));
    EXPECT_EQ(font->getRemoteFileUrl("https://h/", "own/", "u"), "https://h/宋 S/1.0/A #.ttf");
    font->setVersion("");
    EXPECT_EQ(font->getRemoteFileUrl("x", "own/", "u"), "x宋 S//A #.ttf");
    font->setIsPrivate(true);
    EXPECT_EQ(font->getRemoteFileUrl("https://h/", "own/", "u%"), "own/u%/A #.ttf");
    EXPECT_EQ(FontItem::create()->getRemoteFileUrl("p/", "own/", "u"), "p///"); // no name is no error here
}

TEST_F(FontLocation, RemotePreviewFileIsEncodedAsAFragment) {
    const std::pair<const char*, std::optional<std::string>> cases[] = {
        {"https://h.cn:8080/f/a.ttf", "https://h.cn:8080/f/a_B.png"},
        {"https://h/a?v=1&w=2;@!$'()*+,-._~.ttf", "https://h/a?v=1&w=2;@!$'()*+,-._~_B.png"},
        {"https://h/a b#c.ttf", "https://h/a%20b%23c_B.png"},
        {"https://h/宋.ttf", "https://h/%E5%AE%8B_B.png"},
        {"https://h/%20.ttf", "https://h/%2520_B.png"}, // encoded once more, as any other character
        {"https://h/[^`{|}\"<>\\].ttf", "https://h/%5B%5E%60%7B%7C%7D%22%3C%3E%5C%5D_B.png"},
        {"https://h/\t\u007F.ttf", "https://h/%09%7F_B.png"},
        {".ttf", "_B.png"},
        {"😀😀ttf", "%F0%9F%98%80%EF%BF%BD_B.png"},
        {"ttf", std::nullopt},
        {"宋体字", std::nullopt},
        {"", std::nullopt},
        {"http://h:port/a.ttf", std::nullopt},
        {":a.ttf", std::nullopt},
    };
    for (const auto& [fileUrl, expected] : cases) {
        const auto font = FontItem::create(); // the file name has no part in it
        font->setProductFileUrl(fileUrl);
        const auto found = font->findRemotePreviewFile();
        EXPECT_EQ(found.has_value(), expected.has_value()) << fileUrl;
        if (!found || !expected)
            continue;
        EXPECT_EQ(found->c_str(), *expected);
        EXPECT_EQ(font->remotePreviewFile(), *found);
    }
}

TEST_F(FontLocationDeathTest, LocationsWithoutAStemEndTheProcess) {
    const auto died = testing::KilledBySignal(SIGABRT);
    for (const bool isPrivate : {false, true}) {
        const auto font = named("ttf");
        font->setIsPrivate(isPrivate);
        EXPECT_EXIT(font->LocalPreviewFile(), died, ".");
        EXPECT_EXIT(font->getLocalPreviewFile(true, "p", "c", 1), died, ".");
        EXPECT_EXIT(font->getRemotePreviewFile(false, "p", "c", 1), died, ".");
        EXPECT_EXIT(font->getRemotePreviewFile(true, "p", "c", 1, "f/", "p/", "own/", "u"), died, ".");
    }
    for (const char* fileUrl : {"", "ttf", "http://h:port/a.ttf"}) {
        const auto font = FontItem::create();
        font->setProductFileUrl(fileUrl);
        EXPECT_EXIT(font->remotePreviewFile(), died, ".");
    }
}

} // namespace
