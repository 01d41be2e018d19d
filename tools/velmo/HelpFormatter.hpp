#pragma once

#include <CLI/App.hpp>
#include <CLI/Formatter.hpp>

#include <string>

namespace velmo {

/// Formats the help of the program and of its commands. A command's help ends with its example and
/// the program's footer.
class HelpFormatter : public CLI::Formatter {
public:
    HelpFormatter() { column_width(28); }

    std::string make_option_opts(const CLI::Option* option) const override;
    std::string make_footer(const CLI::App* app) const override;
};

} // namespace velmo
