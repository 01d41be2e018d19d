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

using PerchAppLibrary::text::columnCount;

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

std::string wrapped(std::string_view text, std::size_t columns, std::size_t indentation) {
    if (columns == 0)
        return std::string(text);
    constexpr std::size_t maxBytes = 4; // of a character
    indentation = std::min(indentation, columns / 2);
    std::string lines;
    for (std::size_t column = 0; !text.empty();) {
        const std::string_view near = text.substr(0, maxBytes * columns);
        std::size_t end = std::min(near.find(' '), text.size());
        if (end > near.size() || indentation + columnCount(near.substr(0, end)) > columns)
            end = std::min(text.find_first_of(" ,"), text.size());
        const std::string_view word = text.substr(0, end + 1);
        const std::size_t width = columnCount(word);
        if (column > indentation && column + width - (word.ends_with(' ') ? 1 : 0) > columns) {
            lines.erase(lines.find_last_not_of(' ') + 1);
            lines.append("\n").append(indentation, ' ');
            column = indentation;
        }
        lines += word;
        column += width;
        text.remove_prefix(word.size());
    }
    return lines;
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
