#pragma once

#include <string>
#include <string_view>

namespace PerchAppLibrary::path {

/// The component appended to the path with exactly one "/" between the two: slashes at the end of
/// the path and at the beginning of the component count as that one. An empty path gives the
/// component, an empty component the path. Nothing else is touched, so a URL keeps its scheme and
/// host.
std::string append(std::string_view path, std::string_view component);

/// Whether a file (anything but a directory) exists at the path. False for an unreadable or
/// impossible path.
bool fileExists(const std::string& path);

} // namespace PerchAppLibrary::path
