#include "Application.hpp"

#include "HelpFormatter.hpp"

#include <VelmoCloudEntity/version.hpp>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>

namespace velmo {

std::unique_ptr<CLI::App> makeApplication(Action& selected) {
    auto application = std::make_unique<CLI::App>(
        "Runs the font-cloud entity library on saved replies, and shows the result.\n"
        "FILE is a saved reply; \"-\" is standard input.",
        "velmo");
    application->formatter(std::make_shared<HelpFormatter>());
    application->set_version_flag("--version", "velmo " VELMO_VERSION);
    application->require_subcommand(1);
    application->footer(
        "Exit status: 0 success; 1 nothing found; 2 wrong usage, an unreadable file, or a document "
        "that is malformed or of another type, such as an error reply. For status 2, one line on "
        "standard error says why.");
    for (const auto add :
         {&addTree, &addList, &addFind, &addSearch, &addLookup, &addTags, &addFilter, &addLocate,
          &addRead, &addCheck, &addExport, &addScan, &addError, &addHelp})
        add(*application, selected);
    return application;
}

} // namespace velmo
