#include "Terminal.hpp"

#include "ExitStatus.hpp"

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/text/Text.hpp>

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <sys/ioctl.h>
#include <unistd.h>

namespace velmo {
namespace {

/// Returns the variable of the environment, empty if it is not set.
std::string_view environment(const char* name) {
    const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): one thread
    return value == nullptr ? std::string_view() : value;
}

/// Whether output is coloured.
bool& isColoured() {
    static bool value = isTerminal(stdout) && environment("NO_COLOR").empty();
    return value;
}

/// Returns the text in the style of the escape sequence, or unchanged if output is not coloured.
std::string styled(const std::string& text, const char* sequence) {
    return isColoured() ? sequence + text + "\033[0m" : text;
}

} // namespace

std::string indent(std::size_t depth) {
    constexpr std::size_t maxDepth = 20;
    return std::string(2 * std::min(depth, maxDepth), ' ');
}

void warn(const std::string& message) {
    std::fprintf(stderr, "velmo: %s\n", printable(message).c_str());
}

bool isTerminal(std::FILE* stream) {
    return isatty(fileno(stream)) == 1 && environment("TERM") != "dumb";
}

std::size_t terminalWidth() {
    winsize size{};
    const bool isKnown = isatty(STDOUT_FILENO) == 1 && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
    return isKnown ? size.ws_col : 0;
}

void setColours(const std::string& when) {
    if (when == "always" || when == "never")
        isColoured() = when == "always";
}

std::string bold(const std::string& text) { return styled(text, "\033[1m"); }

std::string highlighted(const std::string& text) { return styled(text, "\033[1;31m"); }

void print(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0)
        throw Failure("standard output cannot be written");
}

void printJSON(const PerchAppLibrary::Value& value) {
    printJSONText(PerchAppLibrary::toText(value));
}

void printJSONText(const std::string& text) {
    // In JSON, control characters occur only in strings, where the escapes of printable() are
    // valid.
    print((isatty(STDOUT_FILENO) == 1 ? printable(text) : text) + "\n");
}

} // namespace velmo
