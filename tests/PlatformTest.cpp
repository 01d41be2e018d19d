#include <PerchAppLibrary/ApplicationManager.hpp>
#include <PerchAppLibrary/md5.hpp>
#include <PerchAppLibrary/platform/Path.hpp>
#include <PerchAppLibrary/platform/PlatformFont.hpp>
#include <PerchAppLibrary/platform/URL.hpp>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

using namespace PerchAppLibrary;

namespace {

TEST(MD5, GivesLowerCaseHexadecimal) {
    // The first three are test vectors of RFC 1321.
    EXPECT_EQ(md5(""), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(md5("message digest"), "f96b697d7cb7938d525a2f31aaf161d0");
    EXPECT_EQ(
        md5("12345678901234567890123456789012345678901234567890123456789012345678901234567890"),
        "57edf4a22be3c955ac49da2e2107b67a");
    EXPECT_EQ(md5("宋体"), "71b068f519dcd61e7b8a5ccec2e02ead");
}

TEST(Path, JoinsWithExactlyOneSlash) {
    const struct {
        const char *path, *component, *joined;
    } cases[] = {
        {"/tmp", "a.ttf", "/tmp/a.ttf"},
        {"/tmp/", "a.ttf", "/tmp/a.ttf"},
        {"/tmp//", "//a/b", "/tmp/a/b"},
        {"/", "a", "/a"},
        {"", "a", "a"},
        {"/tmp", "", "/tmp"},
        {"https://h/p?q", "x", "https://h/p?q/x"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(path::append(each.path, each.component), each.joined);
}

TEST(Path, SeesFilesAndNothingElse) {
    const std::string directory = ::testing::TempDir();
    const std::string file = path::append(directory, "velmo-path-test");
    std::ofstream(file) << "x";
    EXPECT_TRUE(path::fileExists(file));
    EXPECT_FALSE(path::fileExists(directory));
    EXPECT_FALSE(path::fileExists(file + std::string("\0more", 5)));
    EXPECT_FALSE(path::fileExists(std::string(100000, 'x')));
    std::filesystem::remove(file);
    EXPECT_FALSE(path::fileExists(file));
}

TEST(URL, EncodesAllThatAFragmentMayNotHold) {
    EXPECT_EQ(url::percentEncodedForFragment("azAZ09-._~!$&'()*+,;=:@/?"),
              "azAZ09-._~!$&'()*+,;=:@/?");
    EXPECT_EQ(url::percentEncodedForFragment("#[]% \"<>\\^`{|}\x7F"),
              "%23%5B%5D%25%20%22%3C%3E%5C%5E%60%7B%7C%7D%7F");
    EXPECT_EQ(url::percentEncodedForFragment("宋"), "%E5%AE%8B");
    EXPECT_EQ(url::percentEncodedForFragment("a\xFF"), "a%EF%BF%BD");
}

TEST(URL, ParsesReferencesByTheRFC) {
    for (const char* const reference :
         {"https://h.example/a_B.png", "a/b", "", "//h", "?q", "mailto:x"})
        EXPECT_EQ(url::parse(reference).value().buffer(), reference);
    for (const char* const wrong : {"1:a", ":a", "a b", "http://h:x/", "%4"})
        EXPECT_FALSE(url::parse(wrong)) << wrong;
}

class Environment : public ::testing::Test {
protected:
    void TearDown() override {
        restore("HOME", m_home);
        restore("XDG_CACHE_HOME", m_cache);
    }

private:
    static std::optional<std::string> get(const char* name) {
        const char* const value = std::getenv(name);
        return value == nullptr ? std::nullopt : std::optional<std::string>(value);
    }
    static void restore(const char* name, const std::optional<std::string>& value) {
        value ? setenv(name, value->c_str(), 1) : unsetenv(name);
    }

    std::optional<std::string> m_home = get("HOME");
    std::optional<std::string> m_cache = get("XDG_CACHE_HOME");
};

#ifndef __APPLE__
TEST_F(Environment, NamesTheCacheDirectoryAfreshAtEachCall) {
    const struct {
        const char *cache, *home, *expected;
    } cases[] = {
        {"/caches", "/home/u", "/caches/VelmoCloud"},
        {"/caches/", "/home/u", "/caches/VelmoCloud"},
        {"relative", "/home/u", "/home/u/.cache/VelmoCloud"},
        {"", "/home/u/", "/home/u/.cache/VelmoCloud"},
    };
    for (const auto& each : cases) {
        setenv("XDG_CACHE_HOME", each.cache, 1);
        setenv("HOME", each.home, 1);
        EXPECT_EQ(ApplicationManager::tmpCachesDir(), each.expected);
    }
    unsetenv("XDG_CACHE_HOME");
    EXPECT_EQ(ApplicationManager::tmpCachesDir(), "/home/u/.cache/VelmoCloud");
    unsetenv("HOME");
    EXPECT_TRUE(ApplicationManager::tmpCachesDir().ends_with("/VelmoCloud"));
}
#endif

TEST(PlatformFont, NeverYieldsNothing) {
    const PlatformFont system = PlatformFont::system(32);
    EXPECT_FALSE(system.name().empty());
    EXPECT_TRUE(system.isSystem());
    EXPECT_EQ(system.points(), 32);
    const std::optional<PlatformFont> named = PlatformFont::named("DejaVu Sans Mono", 12);
    ASSERT_TRUE(named); // installed with fontconfig, or a plain handle
    EXPECT_FALSE(named->isSystem());
    EXPECT_EQ(named->points(), 12);
    if (named->file().empty())
        return; // without a font system every name is one
    EXPECT_TRUE(path::fileExists(named->file()));
    for (const char* const name : {"DejaVuSansMono-Bold", "DejaVu Sans Mono Bold"})
        EXPECT_TRUE(PlatformFont::named(name, 12)) << name;
    for (const char* const name :
         {"dejavu sans mono", "DejaVuSansMono Bold", "No Such Font", "", "*"})
        EXPECT_FALSE(PlatformFont::named(name, 12)) << name;
}

} // namespace
