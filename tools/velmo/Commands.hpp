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

/// The code of a command. Returns the exit status of the program.
using Action = std::function<ExitStatus()>;

// Each function adds one command to the application: its name, arguments, help and action. Parsing
// a command line stores the action of its command in `selected`.

void addTree(CLI::App& application, Action& selected);
void addList(CLI::App& application, Action& selected);
void addFind(CLI::App& application, Action& selected);
void addSearch(CLI::App& application, Action& selected);
void addLookup(CLI::App& application, Action& selected);
void addFilter(CLI::App& application, Action& selected);
void addLocate(CLI::App& application, Action& selected);
void addRead(CLI::App& application, Action& selected);
void addExport(CLI::App& application, Action& selected);
void addError(CLI::App& application, Action& selected);

/// Returns the Levenshtein distance: the least number of letters to insert, delete or replace to
/// turn one text into the other.
std::size_t editDistance(const std::string& from, const std::string& to);

/// Throws Failure, which names the nearest command, if no command of the application has this name.
void requireCommand(const CLI::App& application, const std::string& name);

/// Adds a command with the option --json, which every command has, and returns it.
CLI::App& addCommand(CLI::App& application, Action& selected, const std::string& name,
                     const std::string& description, bool& asJSON, Action action);

/// Adds a command that calls `run` with its options. Returns the command and the options, which
/// live as long as the command.
template <class Options>
std::pair<CLI::App&, Options&> addCommand(CLI::App& application, Action& selected,
                                          const std::string& name, const std::string& description,
                                          ExitStatus (*run)(const Options&)) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = addCommand(application, selected, name, description, options->asJSON,
                                   [options, run] { return run(*options); });
    return {command, *options};
}

/// Adds an argument or option for a decimal integer of 64 bits. Any other text is wrong usage.
CLI::Option* addInteger(CLI::App& command, const std::string& name, std::int64_t& value,
                        const std::string& description);

/// Like addInteger(), for several integers, in separate arguments or separated by commas.
CLI::Option* addIntegers(CLI::App& command, const std::string& name,
                         std::vector<std::int64_t>& values, const std::string& description);

} // namespace velmo
