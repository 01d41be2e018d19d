#pragma once

#include <string>

namespace PerchAppLibrary {

/// What the client application knows of its place on the machine.
class ApplicationManager {
public:
    /// The client's cache directory: the folder "VelmoCloud" in the user's cache directory, which
    /// is Library/Caches in the home directory on macOS, and elsewhere XDG_CACHE_HOME or, when that
    /// is unset, empty or not absolute, .cache in the home directory (XDG Base Directory
    /// Specification). Without a home directory, the system's directory for temporary files stands
    /// in. Read from the environment at each call; nothing is created.
    static std::string tmpCachesDir();
};

} // namespace PerchAppLibrary
