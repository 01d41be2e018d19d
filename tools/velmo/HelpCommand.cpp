#include "Commands.hpp"
#include "Terminal.hpp"

#include <CLI/App.hpp>

namespace velmo {
namespace {

/// Returns the names of the commands that the application has so far.
std::vector<std::string> namesOfCommands(const CLI::App& application) {
    std::vector<std::string> names;
    for (const CLI::App* const command : application.get_subcommands(nullptr))
        names.push_back(command->get_name());
    return names;
}

} // namespace

void addHelp(CLI::App& application, Action& selected) {
    const auto name = std::make_shared<std::string>();
    const auto commands = namesOfCommands(application);
    CLI::App& help = *application.add_subcommand("help", "Show the help of velmo or of a command");
    help.footer(footerOf({.name = "",
                          .description = "",
                          .example = "velmo help tree",
                          .statusOne = "",
                          .statusTwo = "wrong usage"}));
    addChoice(help, "COMMAND", *name, commands, "Command to explain");
    help.callback([&application, &selected, name] {
        selected = [&application, name] {
            // The application's own help() would explain the command that runs, this one.
            const CLI::App* const shown =
                name->empty() ? &application : application.get_subcommand(*name);
            print(shown->get_formatter()->make_help(
                shown, name->empty() ? "velmo" : "velmo " + *name, CLI::AppFormatMode::Normal));
            return ExitStatus::success;
        };
    });

    CLI::App& version = *application.add_subcommand("version", "Show the version of velmo");
    version.footer(footerOf({.name = "",
                             .description = "",
                             .example = "velmo version",
                             .statusOne = "",
                             .statusTwo = "wrong usage"}));
    version.callback([&application, &selected] {
        selected = [&application] {
            print(application.version() + "\n");
            return ExitStatus::success;
        };
    });
}

} // namespace velmo
