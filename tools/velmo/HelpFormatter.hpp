#pragma once

#include <CLI/App.hpp>
#include <CLI/Formatter.hpp>

#include <string>

namespace velmo {

/// Returns what help calls the value of an argument or option: "FILE", "Ch|En", or "TYPE" for very
/// many choices.
std::string valueOf(const CLI::Option& option);

/// Returns the example in the footer of a command.
std::string exampleOf(const CLI::App& command);

/// Returns what the footer of a command says about its exit status.
std::string statusOf(const CLI::App& command);

/// Formats the help of the program and of its commands for 80 columns. The footer of a command is
/// footerOf().
class HelpFormatter : public CLI::Formatter {
public:
    HelpFormatter() { column_width(28); }

    std::string make_description(const CLI::App* app) const override;
    std::string make_option_opts(const CLI::Option* option) const override;
    std::string make_option_desc(const CLI::Option* option) const override;
    std::string make_subcommand(const CLI::App* command) const override;
    std::string make_footer(const CLI::App* app) const override;
};

} // namespace velmo
