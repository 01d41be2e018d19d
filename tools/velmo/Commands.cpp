#include "Commands.hpp"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <charconv>
#include <system_error>

namespace velmo {
namespace {

/// CLI11's own numbers may be octal, and saturate.
std::int64_t readInteger(const std::string& name, const std::string& text) {
    std::int64_t value = 0;
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end)
        throw CLI::ValidationError(name, "\"" + text + "\" is no integer");
    return value;
}

} // namespace

CLI::App& addCommand(CLI::App& application, Work& work, const std::string& name,
                     const std::string& description, bool& asJSON, Work toDo) {
    CLI::App& command = *application.add_subcommand(name, description);
    command.add_flag("--json", asJSON, "Print one JSON document");
    command.callback([toDo = std::move(toDo), &work] { work = toDo; });
    return command;
}

CLI::Option* addInteger(CLI::App& command, const std::string& name, std::int64_t& value,
                        const std::string& description) {
    const auto read = [&value, name](const std::string& text) { value = readInteger(name, text); };
    return command.add_option_function<std::string>(name, read, description)->type_name("INT");
}

CLI::Option* addIntegers(CLI::App& command, const std::string& name,
                         std::vector<std::int64_t>& values, const std::string& description) {
    const auto read = [&values, name](const std::vector<std::string>& texts) {
        for (const std::string& text : texts)
            values.push_back(readInteger(name, text));
    };
    return command.add_option_function<std::vector<std::string>>(name, read, description)
        ->type_name("INT")
        ->delimiter(',');
}

} // namespace velmo
