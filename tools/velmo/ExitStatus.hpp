#pragma once

#include <stdexcept>

namespace velmo {

enum class ExitStatus : int {
    done = 0,
    nothingFound = 1,
    failure = 2, ///< wrong usage, an unreadable file or a malformed document
};

/// Ends a command with ExitStatus::failure; what() is the one line that says which file, where and
/// why.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace velmo
