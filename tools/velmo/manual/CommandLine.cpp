#include "CommandLine.hpp"

#include "../Commands.hpp"
#include "../HelpFormatter.hpp"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

namespace velmo {
namespace {

Parameter::Kind kindOf(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    if (type.empty())
        return Parameter::Kind::flag;
    if (type == fileType)
        return Parameter::Kind::file;
    if (type == folderType)
        return Parameter::Kind::folder;
    return type.find(choiceSeparator) == std::string::npos ? Parameter::Kind::text
                                                           : Parameter::Kind::choice;
}

Parameter describe(const CLI::Option& option) {
    Parameter parameter;
    for (const std::string& name : option.get_snames())
        parameter.names.push_back("-" + name);
    for (const std::string& name : option.get_lnames())
        parameter.names.push_back("--" + name);
    parameter.kind = kindOf(option);
    if (parameter.kind == Parameter::Kind::choice)
        parameter.choices = CLI::detail::split(option.get_type_name(), choiceSeparator);
    if (parameter.kind != Parameter::Kind::flag)
        parameter.value = valueOf(option);
    parameter.description = option.get_description();
    parameter.defaultValue = option.get_default_str();
    parameter.isRequired = option.get_required();
    parameter.isRepeated = option.get_expected_max() >= CLI::detail::expected_max_vector_size;
    return parameter;
}

/// Adds the arguments and options of the application and of its groups of options, which CLI11
/// keeps as commands without a name.
void addParameters(Command& command, const CLI::App& application) {
    for (const CLI::Option* const option : application.get_options()) {
        auto& parameters = option->get_positional() ? command.arguments : command.options;
        parameters.push_back(describe(*option));
        parameters.back().isAlternative = application.get_name().empty();
    }
    for (const CLI::App* const group : application.get_subcommands(nullptr))
        if (group->get_name().empty())
            addParameters(command, *group);
}

Command describeCommand(const CLI::App& application) {
    Command command{application.get_name(),
                    application.get_description(),
                    exampleOf(application),
                    statusOf(application),
                    {},
                    {}};
    addParameters(command, application);
    return command;
}

} // namespace

CommandLine describe(const CLI::App& application) {
    CommandLine definition{describeCommand(application), application.get_footer(), {}};
    for (const CLI::App* const command : application.get_subcommands(nullptr))
        definition.commands.push_back(describeCommand(*command));
    return definition;
}

std::string replaceAll(const std::string& text, char character, const std::string& replacement) {
    std::string replaced;
    for (const char each : text)
        replaced += each == character ? replacement : std::string(1, each);
    return replaced;
}

std::string join(const std::vector<std::string>& texts, const std::string& separator) {
    std::string joined;
    for (const std::string& text : texts)
        joined.append(joined.empty() ? "" : separator).append(text);
    return joined;
}

std::string quoted(const std::string& text) { return "'" + replaceAll(text, '\'', "'\\''") + "'"; }

} // namespace velmo
