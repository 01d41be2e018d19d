#pragma once

#include <string>

namespace PerchAppLibrary {

/// The directories of the client application.
class ApplicationManager {
public:
    /// Returns the client's cache directory: the folder "VelmoCloud" in the user's cache directory.
    ///
    /// On macOS, the user's cache directory is Library/Caches in the home directory. Elsewhere it
    /// is XDG_CACHE_HOME or, if that is unset, empty or not absolute, .cache in the home directory
    /// (XDG Base Directory Specification). Without a home directory, it is the system's directory
    /// for temporary files. Each call reads the environment. Creates no directory.
    static std::string tmpCachesDir();
};

} // namespace PerchAppLibrary
