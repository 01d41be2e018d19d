// The function of zsh that completes: calls of its _arguments.
#include "CommandLine.hpp"

namespace velmo {
namespace {

/// Returns the end of the form of zsh for the value of the parameter: its name, then how it is
/// completed. Empty for a flag.
std::string valueOf(const Parameter& parameter) {
    switch (parameter.kind) {
    case Parameter::Kind::text:
        return ":" + parameter.value + ": ";
    case Parameter::Kind::file:
        return ":" + parameter.value + ":_files";
    case Parameter::Kind::folder:
        return ":" + parameter.value + ":_files -/";
    case Parameter::Kind::choice:
        return ":" + parameter.value + ":(" + join(parameter.choices, " ") + ")";
    case Parameter::Kind::flag:
        break;
    }
    return "";
}

/// Returns what _arguments takes for the option: a form for each of its names.
std::vector<std::string> formsOf(const Parameter& option) {
    const std::string description =
        replaceAll(replaceAll(option.description, '[', "\\["), ']', "\\]");
    const std::string repeated =
        option.isRepeated ? "*" : "(" + join(option.names, " ") + ")"; // else it excludes itself
    std::vector<std::string> forms;
    forms.reserve(option.names.size());
    for (const std::string& name : option.names)
        forms.push_back(quoted(repeated + name + (option.kind == Parameter::Kind::flag ? "" : "=") +
                               "[" + description + "]" + valueOf(option)));
    return forms;
}

/// Returns a call of _arguments with the parameters of the command and more forms.
std::string callFor(const Command& command, const std::vector<std::string>& more) {
    std::vector<std::string> words{"_arguments -C"};
    const auto append = [&words](const std::vector<std::string>& forms) {
        words.insert(words.end(), forms.begin(), forms.end());
    };
    for (const Parameter& option : command.options)
        append(formsOf(option));
    std::size_t position = 0;
    for (const Parameter& argument : command.arguments)
        append(
            {quoted((argument.isRepeated ? "*" : std::to_string(++position)) + valueOf(argument))});
    append(more);
    return join(words, " \\\n        ") + "\n";
}

} // namespace

std::string zshCompletion(const CommandLine& definition) {
    std::string commands;
    std::string branches;
    for (const Command& command : definition.commands) {
        commands += "        " + quoted(command.name + ":" + command.description) + "\n";
        branches +=
            "    argument:" + command.name + ")\n        " + callFor(command, {}) + "        ;;\n";
    }
    return "#compdef velmo\n"
           "# Completions of velmo for zsh, made from the definition of its command line.\n"
           "local context state state_descr line\n"
           "typeset -A opt_args\n"
           "local -a commands=(\n" +
           commands + ")\n" +
           callFor(definition.program, {"'1:command:->command'", "'*::argument:->argument'"}) +
           "case $state:$words[1] in\n"
           "    command:*) _describe command commands ;;\n" +
           branches + "esac\n";
}

} // namespace velmo
