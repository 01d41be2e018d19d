// The man page, in the macros "man" of roff.
#include "CommandLine.hpp"

#include <VelmoCloudEntity/version.hpp>

namespace velmo {
namespace {

/// Returns the text for roff: a hyphen that can be copied, no line that is a request.
std::string roff(const std::string& text) {
    std::string escaped = replaceAll(replaceAll(text, '\\', "\\e"), '-', "\\-");
    escaped = replaceAll(escaped, '\n', "\n.br\n");
    return escaped.starts_with('.') || escaped.starts_with('\'') ? "\\&" + escaped : escaped;
}

std::string strong(const std::string& text) { return "\\fB" + roff(text) + "\\fR"; }

std::string emphasised(const std::string& text) { return "\\fI" + roff(text) + "\\fR"; }

/// Returns the text with a full stop.
std::string sentence(const std::string& text) { return text + (text.ends_with('.') ? "" : "."); }

/// Returns the options that a command needs, such as "--tags FILE" or "(--name TEXT | --key TEXT)".
std::string neededOptions(const Command& command) {
    std::string text;
    std::string alternatives;
    for (const Parameter& option : command.options) {
        if (!option.isRequired && !option.isAlternative)
            continue;
        const std::string shown = strong(option.names.back()) + " " + emphasised(option.value) +
                                  (option.isRepeated ? ",..." : "");
        if (option.isRequired)
            text += " " + shown;
        else
            alternatives += (alternatives.empty() ? "" : " | ") + shown;
    }
    return text + (alternatives.empty() ? "" : " (" + alternatives + ")");
}

/// Returns the command with its arguments and the options that it needs, on one line.
std::string synopsis(const Command& command) {
    std::string text = strong("velmo " + command.name) + neededOptions(command) + " [" +
                       emphasised("OPTION") + "]...";
    for (const Parameter& argument : command.arguments) {
        const std::string name = emphasised(argument.value) + (argument.isRepeated ? "..." : "");
        text += " " + (argument.isRequired ? name : "[" + name + "]");
    }
    return text + "\n";
}

/// Returns the names of the parameter and its value, then its description.
std::string paragraph(const Parameter& parameter) {
    std::string label;
    for (const std::string& name : parameter.names)
        label += (label.empty() ? "" : ", ") + strong(name);
    if (!parameter.value.empty())
        label += (label.empty() ? "" : " ") + emphasised(parameter.value);
    std::string details;
    if (!parameter.choices.empty() && parameter.value.find('|') == std::string::npos)
        details += ".br\nOne of " + roff(join(parameter.choices, ", ")) + ".\n";
    if (!parameter.defaultValue.empty())
        details += ".br\nThe default is " + roff(parameter.defaultValue) + ".\n";
    return ".TP\n" + label + "\n" + roff(sentence(parameter.description)) + "\n" + details;
}

std::string displayed(const std::string& example) {
    return ".PP\n.RS\n.nf\n" + roff(example) + "\n.fi\n.RE\n";
}

std::string section(const Command& command) {
    std::string text = ".SS " + roff(command.name) + "\n" + synopsis(command) + ".PP\n" +
                       roff(sentence(command.description)) + "\n";
    for (const Parameter& argument : command.arguments)
        text += paragraph(argument);
    for (const Parameter& option : command.options)
        if (option.names.back() != "--help")
            text += paragraph(option);
    return text + ".PP\n" + roff(command.status) + "\n.PP\nExample:\n" + displayed(command.example);
}

constexpr const char* environment =
    ".SH ENVIRONMENT\n"
    ".TP\n.B NO_COLOR\nIf it is set and not empty, output is not coloured.\n"
    ".TP\n.B TERM\nIf it is \"dumb\", output is not coloured, and there is no progress bar.\n"
    ".PP\nThe option \\fB\\-\\-color\\fR takes precedence over both for colours.\n";

} // namespace

std::string manPage(const CommandLine& definition) {
    const Command& program = definition.program;
    std::string text = ".TH VELMO 1 \"\" \"velmo " VELMO_VERSION "\" \"User Commands\"\n"
                       ".SH NAME\nvelmo \\- read saved replies of a font\\-cloud service\n"
                       ".SH SYNOPSIS\n";
    text +=
        strong("velmo") + " " + emphasised("COMMAND") + " [" + emphasised("ARGUMENT") + "]...\n";
    text += ".SH DESCRIPTION\n" + roff(program.description) + "\n.SH OPTIONS\n";
    for (const Parameter& option : program.options)
        text += paragraph(option);
    text += ".SH COMMANDS\n";
    for (const Command& command : definition.commands)
        text += section(command);
    return text + ".SH EXIT STATUS\n" + roff(replaceAll(definition.footer, '\n', " ")) + "\n" +
           environment;
}

} // namespace velmo
