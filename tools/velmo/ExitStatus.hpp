#pragma once

#include <stdexcept>

namespace velmo {

/// The exit status of the program.
enum class ExitStatus : int {
    success = 0,
    nothingFound = 1,
    failure = 2, ///< wrong usage, an unreadable file or a malformed document
};

/// Ends a command with ExitStatus::failure. what() is one line with the file, the position in it
/// and the reason.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace velmo
