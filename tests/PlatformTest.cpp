#include <PerchAppLibrary/ApplicationManager.hpp>
#include <PerchAppLibrary/platform/Path.hpp>
#include <PerchAppLibrary/platform/PlatformFont.hpp>
#include <PerchAppLibrary/platform/URL.hpp>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <tuple>

using namespace PerchAppLibrary;

namespace {

TEST(Path, JoinsPartsWithOneSlashAndSeesAllButDirectories) {
    for (const auto& [path, component, joined] : {std::tuple("", "/a", "/a"),
                                                  {"a", "", "a"},
                                                  {"a", "b", "a/b"},
                                                  {"a//", "//b/", "a/b/"},
                                                  {"/", "b", "/b"},
                                                  {"a", "//", "a/"}})
        EXPECT_EQ(path::append(path, component), joined);
    EXPECT_TRUE(path::fileExists("/dev/null"));
    for (const std::string& none : {std::string(), std::string(100'000, 'a'), std::string("/dev"),
                                    std::string("/dev/null\0", 10)})
        EXPECT_FALSE(path::fileExists(none)) << none.size();
}

TEST(URL, IsAReferenceWhosePathDoesNotRunIntoItsAuthority) {
    for (const char* const text : {"", "a", "//h", "http://h:80/a?b#c", "ldap://[2001:db8::7]/c?d"})
        EXPECT_TRUE(url::parse(text)) << text;
    for (const char* const text : {"//h:p", "http://h:p/", "a b", "a:b:%", "//::1]", "宋"})
        EXPECT_FALSE(url::parse(text)) << text;
}

#ifndef __APPLE__
TEST(ApplicationManager, NamesTheCacheDirectoryAnewInEachCall) {
    const auto temporary = std::filesystem::temp_directory_path().string() + "/VelmoCloud";
    for (const auto& [home, cache, expected] :
         {std::tuple("/home/u", "/caches/", std::string("/caches/VelmoCloud")),
          {"/home/u", "relative", "/home/u/.cache/VelmoCloud"},
          {"/home/u/", "", "/home/u/.cache/VelmoCloud"},
          {"", "", temporary}}) {
        setenv("HOME", home, 1);
        setenv("XDG_CACHE_HOME", cache, 1);
        EXPECT_EQ(ApplicationManager::tmpCachesDir(), expected);
    }
    unsetenv("HOME");
    unsetenv("XDG_CACHE_HOME");
    EXPECT_EQ(ApplicationManager::tmpCachesDir(), temporary);
}
#endif

TEST(PlatformFont, FindsInstalledFontsByTheirExactNames) {
    const PlatformFont system = PlatformFont::system(32);
    EXPECT_TRUE(system.isSystem() && system.points() == 32 && !system.name().empty());
    const std::optional<PlatformFont> named = PlatformFont::named("DejaVu Sans Mono", 12);
    ASSERT_TRUE(named) << "it comes with fontconfig; without a font system every name is a font";
    EXPECT_TRUE(!named->isSystem() && named->points() == 12);
    if (named->file().empty())
        return;
    EXPECT_TRUE(path::fileExists(named->file()));
    for (const char* const name : {"DejaVuSansMono-Bold", "DejaVu Sans Mono Bold"})
        EXPECT_EQ(PlatformFont::named(name, 12).value().name(), "DejaVu Sans Mono Bold") << name;
    for (const char* const name : {"dejavu sans mono", "DejaVuSansMono Bold", "", "*"})
        EXPECT_FALSE(PlatformFont::named(name, 12)) << name;
}

} // namespace
