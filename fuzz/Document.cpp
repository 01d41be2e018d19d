#include "Document.hpp"

#include <iterator>
#include <sstream>

namespace {

/// Returns the parts of the text that blanks separate.
std::vector<std::string> split(const char* text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

const std::vector<std::string> scalars = split(
    "null true false 0 -0 1 -12 0.0 -0.0 1.0 1.10 3e2 -5E-1 9007199254740991.0 9007199254740993 "
    "9007199254740993.0 9223372036854775807 9223372036854775808 -9223372036854775808 "
    "-9223372036854775809 18446744073709551615 18446744073709551616 1e999 -1e-999 0e99999999999 "
    "123456789012345678901234567890.5e-9 3.4028236e38 1e39 1e-60 4.9e-324 1.7976931348623157e308");
const std::vector<std::string> texts = split(
    R"(a -12 007 1.5 1e-999 true FALSE +1 9223372036854775808 宋 é 😀 \u5b8b \ud83d\ude00 \ud800
    \udfffx \u0000 \"\\\/\b\f\n\r\t a-text-that-is-long-enough-to-be-allocated)");

const std::vector<std::string> brokenValues = split(
    R"(truex tru nul - 00 -01 1. .5 1e 1e+ +1 0x1 1"x" "x"1 "\x" "\u12" " [1,] [,1] [1 {"a":1,} {1:2}
    {"\q":1})");

void appendText(std::string& document, Input& input) {
    document += '"';
    for (std::size_t parts = input.below(3); parts > 0; --parts)
        document += input.pick(texts);
    document += '"';
}

void appendObject(std::string& document, Input& input, const std::vector<std::string_view>& keys,
                  int depth);

void appendValue(std::string& document, Input& input, const std::vector<std::string_view>& keys,
                 int depth) {
    const std::size_t kind = input.below(depth > 4 ? 4 : 7);
    if (kind < 2)
        document += input.pick(scalars);
    else if (kind < 4)
        appendText(document, input);
    else if (kind == 4)
        appendObject(document, input, keys, depth + 1);
    else {
        document += '[';
        for (std::size_t count = input.below(4); count > 0; --count) {
            appendValue(document, input, keys, depth + 1);
            document += count > 1 ? ", " : " ";
        }
        document += ']';
    }
}

void appendObject(std::string& document, Input& input, const std::vector<std::string_view>& keys,
                  int depth) {
    document += '{';
    for (std::size_t count = input.below(depth == 0 ? 12 : 5); count > 0; --count) {
        if (input.oneIn(16)) {
            appendText(document, input);
        } else {
            document += '"';
            document += input.pick(keys);
            document += '"';
        }
        document += input.oneIn(8) ? " :\n" : ":";
        appendValue(document, input, keys, depth);
        document += count > 1 ? "," : "";
    }
    document += '}';
}

} // namespace

std::string makeObject(Input& input, const std::vector<std::string_view>& keys) {
    std::string document;
    appendObject(document, input, keys, 0);
    return document;
}

std::string makeDocument(Input& input, const std::vector<std::string_view>& keys) {
    std::string bytes(input.rest());
    if (input.isAtEnd() || input.below(256) < 128)
        return bytes;
    std::string text = "[";
    for (std::size_t count = input.below(4); count > 0; --count)
        text += makeObject(input, keys) + (count > 1 ? "," : "");
    text += ']';
    const std::size_t place = input.below(text.size());
    if (input.oneIn(16))
        text.resize(place);
    else if (input.oneIn(8)) {
        const std::size_t begin = text.find_first_of(":[", place) + 1;
        text.replace(begin, text.find_first_of(",]}", begin) - begin, input.pick(brokenValues));
    } else if (input.oneIn(3)) {
        using namespace std::string_view_literals;
        constexpr std::string_view others =
            " \n\0\"\\{}[]:,0-.eE+u\x1F\x80\xBF\xC0\xE5\xED\xF4\xFF/a"sv;
        text.replace(place, input.below(2), input.below(2), input.pick(others));
    }
    return text;
}
