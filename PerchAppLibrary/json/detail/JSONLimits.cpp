#include <PerchAppLibrary/json/detail/JSONLimits.hpp>

#include <PerchAppLibrary/json/detail/JSONFallback.hpp>

#include <string>

namespace PerchAppLibrary {
namespace {

bool isBlank(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}
bool opens(char character) { return character == '[' || character == '{'; }
bool closes(char character) { return character == ']' || character == '}'; }

/// Counts the levels and the elements of a text, and throws at the first that exceeds its limit.
void scan(std::string_view text, const JSON::Limits& limits) {
    std::size_t depth = 0;
    std::size_t elements = 0;
    char before = ' '; // the last character that is not blank and not in a string
    for (std::size_t at = 0; at < text.size();) {
        const char character = text[at];
        if (isBlank(character)) {
            ++at;
            continue;
        }
        // The first element of an array or object has no comma before it.
        const bool beginsElement = character == ',' || (opens(before) && !closes(character));
        if (beginsElement && ++elements > limits.elements)
            fallback::fail(text, at, "more than " + std::to_string(limits.elements) + " elements");
        if (opens(character) && ++depth > limits.depth)
            fallback::fail(text, at, fallback::tooDeep(limits.depth));
        if (closes(character) && depth > 0)
            --depth;
        before = character;
        at = character == '"' ? fallback::endOfString(text, at) : at + 1;
    }
}

} // namespace

void checkLimits(std::string_view text, const JSON::Limits& limits) {
    constexpr JSON::Limits defaults;
    if (text.size() > limits.bytes)
        throw JSON::ParseError(1, 1, "the text is too long");
    if (limits.depth < defaults.depth || limits.elements < defaults.elements)
        scan(text, limits);
}

} // namespace PerchAppLibrary
