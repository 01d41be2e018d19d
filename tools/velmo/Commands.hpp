#pragma once

#include "ExitStatus.hpp"

#include <cstdint>
#include <functional>
#include <string>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace velmo {

/// What a command line asks for; a command puts its work here when its name is on the line.
using Work = std::function<ExitStatus()>;

// Each adds its command to the application: name, arguments, help, and the work.

void addTree(CLI::App& application, Work& work);
void addList(CLI::App& application, Work& work);
void addLocate(CLI::App& application, Work& work);
void addRead(CLI::App& application, Work& work);
void addExport(CLI::App& application, Work& work);

/// Adds an argument or option for a decimal integer of 64 bits; anything else on the line is wrong usage.
CLI::Option* addInteger(CLI::App& command, const std::string& name, std::int64_t& value,
                        const std::string& description);

/// Adds the option that every command takes.
void addJSONFlag(CLI::App& command, bool& asJSON);

} // namespace velmo
