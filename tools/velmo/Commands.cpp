#include "Commands.hpp"

#include "Terminal.hpp"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <numeric>
#include <system_error>

namespace velmo {
namespace {

/// Returns the decimal integer. Throws CLI::ValidationError for any other text. Replaces CLI11's
/// own conversion, which accepts octal numbers and saturates.
std::int64_t parseInteger(const std::string& name, const std::string& text) {
    std::int64_t value = 0;
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end)
        throw CLI::ValidationError(name, "\"" + text + "\" is not an integer");
    return value;
}

} // namespace

std::size_t editDistance(const std::string& from, const std::string& to) {
    // Distances of the letters read so far to each prefix of `to`.
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char letter : from) {
        std::size_t diagonal = row.front()++;
        for (std::size_t length = 1; length <= to.size(); ++length) {
            const std::size_t replaced = diagonal + (letter == to[length - 1] ? 0 : 1);
            diagonal = row[length];
            row[length] = std::min({replaced, row[length] + 1, row[length - 1] + 1});
        }
    }
    return row.back();
}

void requireCommand(const CLI::App& application, const std::string& name) {
    std::string nearest;
    for (const CLI::App* const command : application.get_subcommands(nullptr)) {
        if (command->get_name() == name)
            return;
        if (nearest.empty() ||
            editDistance(name, command->get_name()) < editDistance(name, nearest))
            nearest = command->get_name();
    }
    throw Failure("\"" + name + "\" is no command; did you mean \"" + nearest +
                  "\"? (see velmo --help)");
}

CLI::App& addCommand(CLI::App& application, Action& selected, const CommandText& text, bool& asJSON,
                     Action action) {
    CLI::App& command = *application.add_subcommand(text.name, text.description);
    command.footer(text.example);
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

CLI::Option* addChoice(CLI::App& command, const std::string& name, std::string& value,
                       const std::vector<std::string>& choices, const std::string& description) {
    return command.add_option(name, value, description)
        ->check(CLI::IsMember(choices).description("")) // else the type has them again
        ->type_name(choiceType(choices));
}

std::string choiceType(const std::vector<std::string>& choices) {
    return CLI::detail::join(choices, std::string(1, choiceSeparator));
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
