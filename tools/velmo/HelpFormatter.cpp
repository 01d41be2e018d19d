#include "HelpFormatter.hpp"

namespace velmo {

std::string HelpFormatter::make_option_opts(const CLI::Option* option) const {
    if (option->get_positional() || option->get_type_name().empty())
        return "";
    const std::string& value = option->get_default_str();
    return " " + option->get_type_name() + (value.empty() ? "" : "=" + value);
}

std::string HelpFormatter::make_footer(const CLI::App* app) const {
    const CLI::App* const program = app->get_parent() == nullptr ? app : app->get_parent();
    std::string examples;
    for (const CLI::App* const command : program->get_subcommands(nullptr))
        if (command == app || program == app)
            examples += "  " + command->get_footer() + "\n";
    return std::string(program == app ? "Examples:\n" : "Example:\n") + examples + "\n" +
           program->get_footer() + "\n";
}

} // namespace velmo
