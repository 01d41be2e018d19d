#pragma once

#include "ExitStatus.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

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
void addFind(CLI::App& application, Work& work);
void addSearch(CLI::App& application, Work& work);
void addLookup(CLI::App& application, Work& work);
void addFilter(CLI::App& application, Work& work);
void addLocate(CLI::App& application, Work& work);
void addRead(CLI::App& application, Work& work);
void addExport(CLI::App& application, Work& work);
void addError(CLI::App& application, Work& work);

/// Adds a command with the option --json, which every command takes. `toDo` is its work.
CLI::App& addCommand(CLI::App& application, Work& work, const std::string& name,
                     const std::string& description, bool& asJSON, Work toDo);

/// Adds a command that runs with the options that its arguments fill. They live as long as the
/// command.
template <class Options>
std::pair<CLI::App&, Options&> addCommand(CLI::App& application, Work& work,
                                          const std::string& name, const std::string& description,
                                          ExitStatus (*run)(const Options&)) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = addCommand(application, work, name, description, options->asJSON,
                                   [options, run] { return run(*options); });
    return {command, *options};
}

/// Adds an argument or option for a decimal integer of 64 bits; anything else on the line is wrong
/// usage.
CLI::Option* addInteger(CLI::App& command, const std::string& name, std::int64_t& value,
                        const std::string& description);

/// Adds one for several, in arguments of their own or with commas between them.
CLI::Option* addIntegers(CLI::App& command, const std::string& name,
                         std::vector<std::int64_t>& values, const std::string& description);

} // namespace velmo
