#include <PerchAppLibrary/platform/Path.hpp>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace PerchAppLibrary::path {

std::string append(std::string_view path, std::string_view component) {
    if (path.empty())
        return std::string(component);
    if (component.empty())
        return std::string(path);
    path = path.substr(0, path.find_last_not_of('/') + 1);
    component.remove_prefix(std::min(component.find_first_not_of('/'), component.size()));
    std::string joined;
    joined.reserve(path.size() + 1 + component.size());
    joined.append(path).append(1, '/').append(component);
    return joined;
}

bool fileExists(const std::string& path) {
    // The system would look up the part before a NUL.
    if (path.find('\0') != std::string::npos)
        return false;
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

} // namespace PerchAppLibrary::path
