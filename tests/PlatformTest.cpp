#include <PerchAppLibrary/ApplicationManager.hpp>
#include <PerchAppLibrary/platform/Path.hpp>
#include <PerchAppLibrary/platform/PlatformFont.hpp>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

using namespace PerchAppLibrary;

namespace {

TEST(Path, SeesFilesAndNoDirectories) {
    EXPECT_TRUE(path::fileExists("/dev/null"));
    EXPECT_FALSE(path::fileExists("/dev"));
}

#ifndef __APPLE__
void setVariable(const char* name, const char* value) {
    value ? setenv(name, value, 1) : unsetenv(name);
}

TEST(ApplicationManager, NamesTheCacheDirectoryAnewInEachCall) {
    const std::array variables{"HOME", "XDG_CACHE_HOME"};
    std::array<std::optional<std::string>, 2> before;
    for (std::size_t i = 0; i < variables.size(); ++i)
        if (const char* const value = std::getenv(variables[i]))
            before[i] = value;
    const auto temporary = std::filesystem::temp_directory_path().string() + "/VelmoCloud";
    const struct {
        const char *home, *cache;
        std::string expected;
    } cases[] = {
        {"/home/u", "/caches/", "/caches/VelmoCloud"},
        {"/home/u", "relative", "/home/u/.cache/VelmoCloud"},
        {"/home/u/", "", "/home/u/.cache/VelmoCloud"},
        {"/home/u", nullptr, "/home/u/.cache/VelmoCloud"},
        {"", nullptr, temporary},
        {nullptr, nullptr, temporary},
    };
    for (const auto& each : cases) {
        setVariable("HOME", each.home);
        setVariable("XDG_CACHE_HOME", each.cache);
        EXPECT_EQ(ApplicationManager::tmpCachesDir(), each.expected);
    }
    for (std::size_t i = 0; i < variables.size(); ++i)
        setVariable(variables[i], before[i] ? before[i]->c_str() : nullptr);
}
#endif

TEST(PlatformFont, FindsInstalledFontsByTheirExactNames) {
    const PlatformFont system = PlatformFont::system(32);
    EXPECT_NE(system.name(), "");
    EXPECT_TRUE(system.isSystem());
    EXPECT_EQ(system.points(), 32);
    const std::optional<PlatformFont> named = PlatformFont::named("DejaVu Sans Mono", 12);
    ASSERT_TRUE(named) << "it comes with fontconfig; without a font system every name is a font";
    EXPECT_FALSE(named->isSystem());
    EXPECT_EQ(named->points(), 12);
    if (named->file().empty())
        return;
    EXPECT_TRUE(path::fileExists(named->file()));
    for (const char* const name : {"DejaVuSansMono-Bold", "DejaVu Sans Mono Bold"})
        EXPECT_EQ(PlatformFont::named(name, 12).value().name(), "DejaVu Sans Mono Bold") << name;
    for (const char* const name :
         {"dejavu sans mono", "DejaVuSansMono Bold", "No Such Font", "", "*"})
        EXPECT_FALSE(PlatformFont::named(name, 12)) << name;
}

} // namespace
