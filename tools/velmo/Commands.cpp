#include "Commands.hpp"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <charconv>
#include <system_error>

namespace velmo {

CLI::Option* addInteger(CLI::App& command, const std::string& name, std::int64_t& value,
                        const std::string& description) {
    // CLI11's own numbers may be octal, and saturate.
    const auto read = [&value, name](const std::string& text) {
        const char* const end = text.data() + text.size();
        const std::from_chars_result result = std::from_chars(text.data(), end, value);
        if (result.ec != std::errc() || result.ptr != end)
            throw CLI::ValidationError(name, "\"" + text + "\" is no integer");
    };
    return command.add_option_function<std::string>(name, read, description)->type_name("INT");
}

void addJSONFlag(CLI::App& command, bool& asJSON) {
    command.add_flag("--json", asJSON, "Print one JSON document");
}

} // namespace velmo
