#include "CommandLine.hpp"

namespace velmo {
namespace {

/// Returns the text in single quotes, as fish reads it.
std::string fishQuoted(const std::string& text) {
    return "'" + replaceAll(replaceAll(text, '\\', "\\\\"), '\'', "\\'") + "'";
}

std::string line(const std::string& condition, const std::string& rest) {
    return "complete -c velmo -n " + fishQuoted(condition) + rest + "\n";
}

/// Returns the options of `complete` for the values of the parameter.
std::string valuesOf(const Parameter& parameter) {
    switch (parameter.kind) {
    case Parameter::Kind::file:
        return " -F";
    case Parameter::Kind::folder:
        return " -a '(__fish_complete_directories)'";
    case Parameter::Kind::choice:
        return " -a " + fishQuoted(join(parameter.choices, " "));
    case Parameter::Kind::text:
    case Parameter::Kind::flag:
        break;
    }
    return "";
}

std::string lineOf(const std::string& condition, const Parameter& option) {
    std::string names;
    for (const std::string& name : option.names)
        names += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    const bool isFlag = option.kind == Parameter::Kind::flag;
    const char* const value = option.kind == Parameter::Kind::file ? " -r" : " -x";
    return line(condition, names + (isFlag ? "" : value + valuesOf(option)) + " -d " +
                               fishQuoted(option.description));
}

std::string linesOf(const Command& command) {
    const std::string isCommand = "__velmo_command " + command.name;
    std::string text;
    for (const Parameter& option : command.options)
        text += lineOf(isCommand, option);
    std::string condition = isCommand;
    for (const Parameter& argument : command.arguments) {
        const bool isChoice = argument.kind == Parameter::Kind::choice;
        const std::string isChosen = " __fish_seen_subcommand_from " + join(argument.choices, " ");
        if (argument.kind != Parameter::Kind::text)
            text += line(condition + (isChoice ? "; and not" + isChosen : ""), valuesOf(argument));
        condition += isChoice ? "; and" + isChosen : "";
    }
    return text;
}

} // namespace

std::string fishCompletion(const CommandLine& definition) {
    std::string text =
        "# Completions of velmo for fish, made from the definition of its command line.\n\n"
        "function __velmo_command\n"
        "    set -l words (commandline -opc)\n"
        "    set -q words[2]; and test $words[2] = $argv[1]\n"
        "end\n\n"
        "complete -c velmo -f\n";
    for (const Parameter& option : definition.program.options)
        text += lineOf("__fish_use_subcommand", option);
    for (const Command& command : definition.commands)
        text += line("__fish_use_subcommand",
                     " -a " + command.name + " -d " + fishQuoted(command.description));
    for (const Command& command : definition.commands)
        text += linesOf(command);
    return text;
}

} // namespace velmo
