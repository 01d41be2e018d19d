// velmo: reads saved replies of the service with the library and shows the result.
#include "Application.hpp"
#include "Terminal.hpp"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <cstdio>
#include <exception>
#include <new>
#include <sstream>
#include <string>
#include <string_view>

namespace {

using velmo::ExitStatus;

/// Writes the message to standard error. Returns ExitStatus::failure.
int fail(const std::string& message) {
    velmo::warn(message);
    return static_cast<int>(ExitStatus::failure);
}

/// Throws Failure for an option with an empty value behind "=", such as "--name=". CLI11 takes the
/// next argument for its value.
void requireValues(int argc, char** argv) {
    for (int index = 1; index < argc && std::string_view(argv[index]) != "--"; ++index) {
        const std::string_view argument = argv[index];
        if (argument.starts_with("--") && argument.find('=') == argument.size() - 1)
            throw velmo::Failure(std::string(argument) + " has no value; an empty one is written " +
                                 std::string(argument.substr(0, argument.size() - 1)) + " ''");
    }
}

int run(int argc, char** argv) {
    velmo::Action selected;
    const auto application = velmo::makeApplication(selected);
    if (argc > 1 && argv[1][0] != '-')
        velmo::requireCommand(*application, argv[1]);
    requireValues(argc, argv);
    try {
        application->parse(argc, argv);
    } catch (const CLI::Success& request) { // help or version
        std::ostringstream text;
        application->exit(request, text, text);
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
