// velmo: runs the library over replies of the service that were saved as files.
#include "Commands.hpp"
#include "Terminal.hpp"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <exception>
#include <string>

namespace {

using velmo::ExitStatus;

int fail(const std::string& message) {
    velmo::warn(message);
    return static_cast<int>(ExitStatus::failure);
}

int run(int argc, char** argv) {
    CLI::App application(
        "Runs the font-cloud entity library over replies of the service saved as files.\n"
        "FILE is such a reply; \"-\" is standard input.");
    application.name("velmo");
    application.set_version_flag("--version", "velmo " VELMO_VERSION);
    application.require_subcommand(1);
    application.footer("Exit status: 0 done; 1 nothing found; 2 wrong usage, an unreadable file or "
                       "a malformed document.");
    velmo::Work work;
    velmo::addTree(application, work);
    velmo::addList(application, work);
    velmo::addFind(application, work);
    velmo::addSearch(application, work);
    velmo::addLookup(application, work);
    velmo::addFilter(application, work);
    velmo::addLocate(application, work);
    velmo::addRead(application, work);
    velmo::addExport(application, work);
    velmo::addError(application, work);
    try {
        application.parse(argc, argv);
    } catch (const CLI::Success& request) {
        return application.exit(request); // help or version
    } catch (const CLI::ParseError& error) {
        return fail(std::string(error.what()) + " (velmo --help tells more)");
    }
    return static_cast<int>(work());
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}
