#include <PerchAppLibrary/ApplicationManager.hpp>

#include <PerchAppLibrary/platform/Path.hpp>

#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace PerchAppLibrary {
namespace {

constexpr std::string_view clientFolder = "VelmoCloud";

std::string environment(const char* name) {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the library sets no variable
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

std::string userCacheDirectory() {
#ifndef __APPLE__
    if (const std::string cache = environment("XDG_CACHE_HOME"); cache.starts_with('/'))
        return cache;
    constexpr std::string_view belowHome = ".cache";
#else
    constexpr std::string_view belowHome = "Library/Caches";
#endif
    if (const std::string home = environment("HOME"); !home.empty())
        return path::append(home, belowHome);
    std::error_code error;
    const std::string temporary = std::filesystem::temp_directory_path(error).string();
    return error ? std::string("/tmp") : temporary;
}

} // namespace

std::string ApplicationManager::tmpCachesDir() {
    return path::append(userCacheDirectory(), clientFolder);
}

} // namespace PerchAppLibrary
