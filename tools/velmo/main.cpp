// velmo: reads saved replies of the service with the library and shows the result.
#include "Commands.hpp"
#include "Terminal.hpp"

#include <VelmoCloudEntity/version.hpp>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <cstdio>
#include <exception>
#include <new>
#include <sstream>
#include <string>

namespace {

using velmo::ExitStatus;

/// Writes the message to standard error. Returns ExitStatus::failure.
int fail(const std::string& message) {
    velmo::warn(message);
    return static_cast<int>(ExitStatus::failure);
}

int run(int argc, char** argv) {
    CLI::App application(
        "Reads saved replies of the service with the font-cloud entity library and shows the "
        "result.\n"
        "FILE is a saved reply; \"-\" is standard input.");
    application.name("velmo");
    application.set_version_flag("--version", "velmo " VELMO_VERSION);
    application.require_subcommand(1);
    application.footer("Exit status: 0 success; 1 nothing found; 2 wrong usage, an unreadable file "
                       "or a malformed document.\n"
                       "A document that seems to be of another type than the command reads, such "
                       "as an error reply,\ngives a warning on standard error. It does not change "
                       "the exit status.");
    velmo::Action selected;
    velmo::addTree(application, selected);
    velmo::addList(application, selected);
    velmo::addFind(application, selected);
    velmo::addSearch(application, selected);
    velmo::addLookup(application, selected);
    velmo::addFilter(application, selected);
    velmo::addLocate(application, selected);
    velmo::addRead(application, selected);
    velmo::addExport(application, selected);
    velmo::addError(application, selected);
    if (argc > 1 && argv[1][0] != '-')
        velmo::requireCommand(application, argv[1]);
    try {
        application.parse(argc, argv);
    } catch (const CLI::Success& request) { // help or version
        std::ostringstream text;
        application.exit(request, text, text);
        velmo::print(text.str());
        return static_cast<int>(ExitStatus::success);
    } catch (const CLI::ParseError& error) {
        return fail(std::string(error.what()) + " (see velmo --help)");
    }
    return static_cast<int>(selected());
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::bad_alloc&) {
        std::fputs("velmo: not enough memory\n", stderr); // needs none
        return static_cast<int>(ExitStatus::failure);
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}
