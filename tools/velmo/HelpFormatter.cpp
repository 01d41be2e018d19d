#include "HelpFormatter.hpp"

#include "Terminal.hpp"

#include <algorithm>

namespace velmo {
namespace {

/// The columns of a terminal that are filled.
constexpr std::size_t width = 79;

} // namespace

std::string valueOf(const CLI::Option& option) {
    constexpr std::size_t longest = 40;
    const std::string type = option.get_type_name();
    if (option.get_positional())
        return option.get_name();
    return type.size() > longest ? "TYPE" : type;
}

std::string exampleOf(const CLI::App& command) {
    const std::string footer = command.get_footer();
    return footer.substr(0, footer.find('\n'));
}

std::string statusOf(const CLI::App& command) {
    const std::string footer = command.get_footer();
    return footer.substr(footer.find('\n') + 1);
}

std::string HelpFormatter::make_option_opts(const CLI::Option* option) const {
    if (option->get_positional() || option->get_type_name().empty())
        return "";
    const std::string& value = option->get_default_str();
    return " " + valueOf(*option) + (value.empty() ? "" : "=" + value);
}

std::string HelpFormatter::make_footer(const CLI::App* app) const {
    const CLI::App* const program = app->get_parent() == nullptr ? app : app->get_parent();
    if (program != app)
        return "Example:\n  " + exampleOf(*app) + "\n\n" + wrapped(statusOf(*app), width) + "\n";
    std::string examples;
    for (const CLI::App* const command : program->get_subcommands(nullptr))
        examples += "  " + exampleOf(*command) + "\n";
    return "Examples:\n" + examples + "\n" + wrapped(program->get_footer(), width) + "\n";
}

std::string HelpFormatter::make_description(const CLI::App* app) const {
    // That of the program has a line break of its own.
    const std::string description = CLI::Formatter::make_description(app);
    return app->get_parent() == nullptr ? description : wrapped(description, width);
}

std::string HelpFormatter::make_option_desc(const CLI::Option* option) const {
    return wrapped(CLI::Formatter::make_option_desc(option), width - get_column_width());
}

std::string HelpFormatter::make_subcommand(const CLI::App* command) const {
    const std::size_t indent = get_column_width();
    std::string name = "  " + command->get_name();
    name.resize(std::max(name.size() + 1, indent), ' ');
    return wrapped(name + command->get_description(), width, indent) + "\n";
}

} // namespace velmo
