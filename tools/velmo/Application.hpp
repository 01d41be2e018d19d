#pragma once

#include "Commands.hpp"

#include <memory>

namespace velmo {

/// Returns the definition of the command line: all commands with their arguments, options, help and
/// actions. Parsing a command line stores the action of its command in `selected`.
std::unique_ptr<CLI::App> makeApplication(Action& selected);

} // namespace velmo
