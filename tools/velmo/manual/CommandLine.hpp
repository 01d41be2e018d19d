#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace CLI {
class App;
} // namespace CLI

namespace velmo {

/// An argument or an option of a command.
struct Parameter {
    enum class Kind : std::uint8_t { flag, text, file, folder, choice };

    std::vector<std::string> names;   ///< of an option, such as "--json"; empty for an argument
    std::string value;                ///< what help calls its value, such as "FILE"
    Kind kind = Kind::flag;           ///< a flag is an option without a value
    std::vector<std::string> choices; ///< for Kind::choice
    std::string description;
    std::string defaultValue;
    bool isRequired = false;
    bool isAlternative = false; ///< exactly one of these options of the command is required
    bool isRepeated = false;
};

/// A command of the program, or the program itself, whose commands are not in it.
struct Command {
    std::string name;
    std::string description;
    std::string example;
    std::string status;               ///< what its exit status says
    std::vector<Parameter> arguments; ///< in order
    std::vector<Parameter> options;
};

/// The definition of the command line, as the makers of the man page and completions need it.
struct CommandLine {
    Command program;
    std::string footer; ///< about all commands
    std::vector<Command> commands;
};

/// Returns the definition that the application has.
CommandLine describe(const CLI::App& application);

/// Returns the man page, in the language of roff.
std::string manPage(const CommandLine& definition);

/// Returns the file with the completions of a shell.
std::string bashCompletion(const CommandLine& definition);
std::string fishCompletion(const CommandLine& definition);
std::string zshCompletion(const CommandLine& definition);

/// Returns the text with each occurrence of a character replaced.
std::string replaceAll(const std::string& text, char character, const std::string& replacement);

/// Returns the texts with the separator between them.
std::string join(const std::vector<std::string>& texts, const std::string& separator);

/// Returns the text in single quotes, as bash and zsh read it.
std::string quoted(const std::string& text);

} // namespace velmo
