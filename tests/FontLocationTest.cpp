#include <VelmoCloudEntity/font/FontItem.hpp>

#include <PerchAppLibrary/platform/URL.hpp>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <random>
#include <string>

using namespace VelmoCloudEntity;

namespace {

/// Fixes the cache directory, which does not exist at first.
class FontLocation : public testing::Test {
protected:
    FontLocation() { setenv("XDG_CACHE_HOME", root.c_str(), 1); }
    ~FontLocation() override {
        unsetenv("XDG_CACHE_HOME");
        std::filesystem::remove_all(root);
    }

    const std::string root =
        testing::TempDir() + "velmo-cache-" + std::to_string(std::random_device{}());
    const std::string cache = root + "/VelmoCloud";
};

std::shared_ptr<FontItem> named(const std::string& fileName) {
    auto font = FontItem::create();
    font->setProductFileName(fileName);
    return font;
}

TEST_F(FontLocation, FilesOfTheCatalogueAreInTheCacheDirectory) {
    const auto font = named("/宋 #1%/A.ttf");
    EXPECT_EQ(font->LocalFile(), "/宋 #1%/A.ttf");
    EXPECT_EQ(font->LocalPreviewFile(), cache + "/宋 #1%/A_B.png");
    font->setIsOnline(true);
    EXPECT_EQ(font->LocalFile(), cache + "/宋 #1%/A.ttf") << "one slash between the parts";
    EXPECT_FALSE(font->IsLocaled());
    std::filesystem::create_directories(cache + "/宋 #1%");
    std::ofstream(font->LocalFile()) << "font";
    EXPECT_TRUE(font->IsLocaled());
}

TEST_F(FontLocation, PreviewsAreCalledByTheirNameOrItsDigest) {
    const struct {
        const char *fileName, *tag;
        std::int64_t size;
        const char *clear, *digest;
    } cases[] = {
        {"SongTi.ttf", "p1", 48, "SongTi_p1_c0_48.png", "229b3edab8dff465834c1d65232b2542"},
        {"宋体.ttf", "p", 12, "宋体_p_c0_12.png", "345867b2eac92c0404298c45d2359899"},
        {".ttf", "p", -1, "_p_c0_-1.png", "74ce3abf614a8683aedb622b44049ff8"},
    };
    for (const auto& [fileName, tag, size, clear, digest] : cases)
        for (const bool isFixed : {true, false}) {
            const std::string name = isFixed ? clear : digest;
            const auto font = named(fileName);
            EXPECT_EQ(font->getLocalPreviewFile(isFixed, tag, "c0", size), cache + "/" + name);
            font->setPreviewFileUrl("https://h:80/a b//");
            EXPECT_EQ(font->getRemotePreviewFile(isFixed, tag, "c0", size),
                      "https://h:80/a b/" + name);
        }
}

TEST_F(FontLocation, AddressesOfAServiceAreJoinedFromTheirPartsAsTheyAre) {
    const auto font = named("宋体.ttf");
    font->setProductSetName("宋 S");
    const auto preview = [&](bool isFixed) {
        return font->getRemotePreviewFile(isFixed, "p", "c0", 12, "fix:", "x/", "own/", "u #");
    };
    const std::string clear = "宋体_p_c0_12.png", digest = "345867b2eac92c0404298c45d2359899";
    EXPECT_EQ(preview(true), "fix:宋 S//" + clear) << "without a version";
    font->setVersion("1.0");
    EXPECT_EQ(preview(true), "fix:宋 S/1.0/" + clear);
    EXPECT_EQ(preview(false), "x/宋 S/1.0/" + digest);
    EXPECT_EQ(font->getRemoteFileUrl("x/", "own/", "u #"), "x/宋 S/1.0/宋体.ttf");
    font->setIsPrivate(true);
    EXPECT_EQ(preview(true), "own/u #/" + clear);
    EXPECT_EQ(preview(false), "own/u #/" + digest);
    EXPECT_EQ(font->getRemoteFileUrl("x/", "own/", "u #"), "own/u #/宋体.ttf");
}

TEST_F(FontLocation, RemotePreviewFileIsEncodedAsAFragment) {
    const std::pair<const char*, const char*> cases[] = {
        {"https://h:80/a?v=1&w=2;@!$'()*+,-._~.ttf", "https://h:80/a?v=1&w=2;@!$'()*+,-._~_B.png"},
        {"https://h/a b#宋\t\u007F.ttf", "https://h/a%20b%23%E5%AE%8B%09%7F_B.png"},
        {"https://h/%20.ttf", "https://h/%2520_B.png"}, // encoded once more, as any character
        {"😀😀ttf", "%F0%9F%98%80%EF%BF%BD_B.png"},
    };
    const auto font = FontItem::create(); // without a file name, which does not count
    for (const auto& [fileUrl, expected] : cases) {
        font->setProductFileUrl(fileUrl);
        EXPECT_STREQ(font->remotePreviewFile().c_str(), expected);
        EXPECT_EQ(font->findRemotePreviewFile(), font->remotePreviewFile());
    }
}

TEST_F(FontLocation, LocationsWithoutAStemOrAURLEndTheProcess) {
    const auto died = testing::KilledBySignal(SIGABRT);
    const auto font = named("宋体字");
    EXPECT_EXIT(font->LocalPreviewFile(), died, ".");
    EXPECT_EXIT(font->getLocalPreviewFile(true, "p", "c", 1), died, ".");
    EXPECT_EXIT(font->getRemotePreviewFile(false, "p", "c", 1), died, ".");
    EXPECT_EXIT(font->getRemotePreviewFile(true, "p", "c", 1, "f/", "p/", "own/", "u"), died, ".");
    for (const char* fileUrl : {"", "ttf", "宋体字", "http://h:port/a.ttf", ":a.ttf"}) {
        font->setProductFileUrl(fileUrl);
        EXPECT_EQ(font->findRemotePreviewFile(), std::nullopt) << fileUrl;
        EXPECT_EXIT(font->remotePreviewFile(), died, ".") << fileUrl;
    }
}

} // namespace
