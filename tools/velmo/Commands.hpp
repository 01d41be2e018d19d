#pragma once

#include "ExitStatus.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
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
// a command line stores the action of its command in `selected`. The man page and the completions
// of shells are made from the application, too.

void addTree(CLI::App& application, Action& selected);
void addList(CLI::App& application, Action& selected);
void addFind(CLI::App& application, Action& selected);
void addSearch(CLI::App& application, Action& selected);
void addLookup(CLI::App& application, Action& selected);
void addTags(CLI::App& application, Action& selected);
void addFilter(CLI::App& application, Action& selected);
void addLocate(CLI::App& application, Action& selected);
void addRead(CLI::App& application, Action& selected);
void addCheck(CLI::App& application, Action& selected);
void addExport(CLI::App& application, Action& selected);
void addScan(CLI::App& application, Action& selected);
void addError(CLI::App& application, Action& selected);

/// Adds the commands "help", for the commands that were added before, and "version".
void addHelp(CLI::App& application, Action& selected);

// The types of arguments and options that shells complete: files, folders, and choices with this
// character between them, as in "Ch|En".
inline constexpr const char* fileType = "FILE";
inline constexpr const char* folderType = "DIR";
inline constexpr char choiceSeparator = '|';

/// What help says about a command.
struct CommandText {
    std::string name;
    std::string description;
    std::string example;                       ///< a command line for the folder samples
    std::string statusOne = "nothing found";   ///< what exit status 1 says, empty if it never comes
    std::string statusTwo = documentIsNoOther; ///< what exit status 2 says

    static constexpr const char* documentIsNoOther =
        "wrong usage, an unreadable file, a document that is malformed or of another type";
};

/// Returns what stands behind the help of a command: the example, and in the next line what its
/// exit status says.
std::string footerOf(const CommandText& text);

/// Returns the text with the letters of ASCII in lower case.
std::string lowercase(std::string text);

/// Returns "; did you mean NAME?" with the name that is nearest to a text. Empty if more than a
/// third of the letters differ, as counted by the Levenshtein distance. Ignores case.
std::string suggestion(const std::string& text, const std::vector<std::string>& names);

/// Throws Failure, which names a near command, if no command of the application has this name.
void requireCommand(const CLI::App& application, const std::string& name);

/// Adds a command with the options --json and --color, and returns it.
CLI::App& addCommand(CLI::App& application, Action& selected, const CommandText& text, bool& asJSON,
                     Action action);

/// Adds a command that calls `run` with its options. Returns the command and the options, which
/// live as long as the command.
template <class Options>
std::pair<CLI::App&, Options&> addCommand(CLI::App& application, Action& selected,
                                          const CommandText& text,
                                          ExitStatus (*run)(const Options&)) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = addCommand(application, selected, text, options->asJSON,
                                   [options, run] { return run(*options); });
    return {command, *options};
}

/// Adds an argument or option for the name of a file.
CLI::Option* addFileName(CLI::App& command, const std::string& name, std::string& file,
                         const std::string& description);

/// Like addFileName(), for the names of several files.
CLI::Option* addFileNames(CLI::App& command, const std::string& name,
                          std::vector<std::string>& files, const std::string& description);

/// Adds the option --force, by which documents of other types are read, too.
CLI::Option* addForce(CLI::App& command, bool& isForced);

/// Adds an argument or option that takes one of the choices. Any other text is wrong usage.
CLI::Option* addChoice(CLI::App& command, const std::string& name, std::string& value,
                       const std::vector<std::string>& choices, const std::string& description);

/// Returns the type of an argument or option with these choices.
std::string choiceType(const std::vector<std::string>& choices);

/// Returns the decimal integer of 64 bits that the text is, or nullopt for any other text.
std::optional<std::int64_t> integerIn(const std::string& text);

/// Adds an argument or option for a decimal integer of 64 bits. Any other text is wrong usage.
CLI::Option* addInteger(CLI::App& command, const std::string& name, std::int64_t& value,
                        const std::string& description);

/// Like addInteger(), for several integers, in separate arguments or separated by commas.
CLI::Option* addIntegers(CLI::App& command, const std::string& name,
                         std::vector<std::int64_t>& values, const std::string& description);

} // namespace velmo
