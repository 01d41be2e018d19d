#pragma once

#include <string>
#include <string_view>

namespace PerchAppLibrary::path {

/// Returns the path and the component with exactly one "/" between them, in place of all slashes at
/// the end of the path and at the beginning of the component. Returns the component for an empty
/// path, and the path for an empty component. Changes nothing else, so a URL keeps its scheme and
/// host.
std::string append(std::string_view path, std::string_view component);

/// Returns whether something other than a directory exists at the path, where a link stands for its
/// target. This may be a device or a pipe, so check for a regular file before reading a path that
/// comes from elsewhere. Returns false for a path that cannot be read or holds a NUL.
bool fileExists(const std::string& path);

} // namespace PerchAppLibrary::path
