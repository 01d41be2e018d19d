#include "Commands.hpp"

#include "Terminal.hpp"

#include <PerchAppLibrary/text/Text.hpp>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <system_error>

namespace velmo {
namespace {

/// Returns the decimal integer. Throws CLI::ValidationError for any other text. Replaces CLI11's
/// own conversion, which accepts octal numbers and saturates.
std::int64_t parseInteger(const std::string& name, const std::string& text) {
    if (const auto value = integerIn(text))
        return *value;
    throw CLI::ValidationError(name, "\"" + text + "\" is not an integer");
}

} // namespace

std::string lowercase(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char letter) { return std::tolower(letter); });
    return text;
}

std::string footerOf(const CommandText& text) {
    const std::string one = text.statusOne.empty() ? "" : "; 1 " + text.statusOne;
    return text.example + "\nExit status: 0 success" + one + "; 2 " + text.statusTwo + ".";
}

std::string suggestion(const std::string& text, const std::vector<std::string>& names) {
    const auto distance = [&text](const std::string& name) {
        return PerchAppLibrary::text::editDistance(text, name);
    };
    const auto nearest = std::ranges::min_element(names, {}, distance);
    const std::size_t limit = std::max<std::size_t>(text.size() / 3, 1);
    if (nearest == names.end() || distance(*nearest) > limit)
        return "";
    return "; did you mean " + *nearest + "?";
}

void requireCommand(const CLI::App& application, const std::string& name) {
    std::vector<std::string> names;
    for (const CLI::App* const command : application.get_subcommands(nullptr))
        names.push_back(command->get_name());
    if (std::ranges::find(names, name) == names.end())
        throw Failure("\"" + name + "\" is no command" + suggestion(name, names) +
                      " (see velmo --help)");
}

CLI::App& addCommand(CLI::App& application, Action& selected, const CommandText& text, bool& asJSON,
                     Action action) {
    CLI::App& command = *application.add_subcommand(text.name, text.description);
    command.footer(footerOf(text));
    command.add_flag("--json", asJSON, "Print one JSON document");
    const std::vector<std::string> times{"auto", "always", "never"};
    command
        .add_option_function<std::string>(
            "--color", &setColours,
            "Colour the output; auto: on a terminal, unless NO_COLOR is set or TERM is dumb")
        ->check(CLI::IsMember(times).description(""))
        ->type_name(choiceType(times));
    command.callback([action = std::move(action), &selected] { selected = action; });
    return command;
}

CLI::Option* addFileName(CLI::App& command, const std::string& name, std::string& file,
                         const std::string& description) {
    return command.add_option(name, file, description)->type_name(fileType);
}

CLI::Option* addFileNames(CLI::App& command, const std::string& name,
                          std::vector<std::string>& files, const std::string& description) {
    return command.add_option(name, files, description)->type_name(fileType);
}

CLI::Option* addForce(CLI::App& command, bool& isForced) {
    return command.add_flag("--force", isForced,
                            "Read also a document that seems to be of another type, such as an "
                            "error reply");
}

CLI::Option* addChoice(CLI::App& command, const std::string& name, std::string& value,
                       const std::vector<std::string>& choices, const std::string& description) {
    return command.add_option(name, value, description)
        ->check(CLI::IsMember(choices).description("")) // else the type has them again
        ->type_name(choiceType(choices));
}

std::string choiceType(const std::vector<std::string>& choices) {
    return CLI::detail::join(choices, std::string(1, choiceSeparator));
}

std::optional<std::int64_t> integerIn(const std::string& text) {
    std::int64_t value = 0;
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, value);
    const bool isWhole = result.ec == std::errc() && result.ptr == end;
    return isWhole ? std::optional(value) : std::nullopt;
}

CLI::Option* addInteger(CLI::App& command, const std::string& name, std::int64_t& value,
                        const std::string& description) {
    const auto read = [&value, name](const std::string& text) { value = parseInteger(name, text); };
    return command.add_option_function<std::string>(name, read, description)->type_name("INT");
}

CLI::Option* addIntegers(CLI::App& command, const std::string& name,
                         std::vector<std::int64_t>& values, const std::string& description) {
    const auto read = [&values, name](const std::vector<std::string>& texts) {
        for (const std::string& text : texts)
            values.push_back(parseInteger(name, text));
    };
    return command.add_option_function<std::vector<std::string>>(name, read, description)
        ->type_name("INT")
        ->delimiter(',');
}

} // namespace velmo
