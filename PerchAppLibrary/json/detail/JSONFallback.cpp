#include <PerchAppLibrary/json/detail/JSONFallback.hpp>

#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/json/detail/Conversion.hpp>
#include <PerchAppLibrary/text/Text.hpp>

#include <boost/json/error.hpp>
#include <boost/json/stream_parser.hpp>
#include <boost/system/error_code.hpp>
#include <fast_float/fast_float.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>

namespace PerchAppLibrary::fallback {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string unexpected(std::string_view text, std::size_t offset) {
    const std::string_view character = text::firstCodePoint(text.substr(offset));
    if (character.empty())
        return "the text ends before the document does";
    if (!text::isWellFormed(character))
        return "bytes that are not UTF-8";
    if (text::isControl(character))
        return "unexpected control character " +
               std::to_string(static_cast<std::uint32_t>(text::codePoint(character)));
    return "unexpected \"" + std::string(character) + "\"";
}

/// Throws JSON::ParseError, with the position and the reason, if the text is not a document. Parses
/// `spelled`, which Boost.JSON can read and which has the offsets of the text.
void check(std::string_view text, std::string_view spelled) {
    if (text.starts_with(byteOrderMark))
        fail(text, 0, "a byte order mark stands before the document");
    if (text.find_first_not_of(" \t\r\n") == std::string_view::npos)
        fail(text, text.size(), "the text is empty");

    boost::json::parse_options options;
    options.max_depth = JSON::maximumDepth;
    boost::json::stream_parser parser({}, options);
    boost::system::error_code error;
    const std::size_t read = parser.write_some(spelled.data(), spelled.size(), error);
    if (!error && read < text.size())
        fail(text, read, unexpected(text, read) + " after the end of the document");
    if (!error)
        parser.finish(error);
    if (!error)
        return;
    if (error == boost::json::error::too_deep)
        fail(text, read, tooDeep(JSON::maximumDepth));
    if (error == boost::json::error::incomplete || error == boost::json::error::syntax)
        fail(text, read, unexpected(text, read));
    fail(text, read, error.message());
}

/// Returns the code unit of the escape "\uXXXX" at this offset, or nullopt if there is none.
std::optional<std::uint16_t> escapedUnit(std::string_view text, std::size_t offset) {
    constexpr std::size_t length = 6;
    if (text.size() < offset + length || text[offset] != '\\' || text[offset + 1] != 'u')
        return std::nullopt;
    std::uint16_t unit = 0;
    const char* const end = text.data() + offset + length;
    if (std::from_chars(text.data() + offset + 2, end, unit, 16).ptr != end)
        return std::nullopt;
    return unit;
}

bool isLeading(std::optional<std::uint16_t> unit) {
    return unit && *unit >= 0xD800 && *unit <= 0xDBFF;
}
bool isTrailing(std::optional<std::uint16_t> unit) {
    return unit && *unit >= 0xDC00 && *unit <= 0xDFFF;
}

/// Replaces each escaped surrogate without its other half by "\uFFFD". Keeps all offsets.
std::string withoutLoneSurrogates(std::string_view text) {
    std::string spelled(text);
    for (std::size_t at = text.find('\\'); at < text.size(); at = text.find('\\', at)) {
        const std::optional<std::uint16_t> unit = escapedUnit(text, at);
        if (isLeading(unit) && isTrailing(escapedUnit(text, at + 6))) {
            at += 12;
        } else if (isLeading(unit) || isTrailing(unit)) {
            spelled.replace(at + 2, 4, "FFFD");
            at += 6;
        } else {
            at += 2; // skips the escaped character, which may be a backslash
        }
    }
    return spelled;
}

/// Returns a spelling of the number that the parser accepts: the given one if possible, else one of
/// the nearest double. Requires a number.
std::string readableNumber(std::string_view number) {
    if (scalarOfNumber(number))
        return std::string(number);
    double value = 0;
    fast_float::from_chars(number.data(), number.data() + number.size(), value);
    if (std::isinf(value))
        return value < 0 ? "-1.7976931348623157e308" : "1.7976931348623157e308";
    return std::string(number) + "e0"; // An integer beyond 64 bits is read as a double.
}

/// Returns the text with `respell(number)` in place of each number outside strings.
template <class Respell>
std::string withNumbers(std::string_view text, Respell&& respell) {
    std::string spelled;
    spelled.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = std::min(text.find_first_of("\"-0123456789", at), text.size());
        spelled.append(text, at, end - at);
        at = end;
        if (at == text.size())
            break;
        if (text[at] == '"') {
            end = endOfString(text, at);
            spelled.append(text, at, end - at);
        } else {
            end = std::min(text.find_first_not_of("+-.0123456789eE", at), text.size());
            spelled += respell(text.substr(at, end - at));
        }
        at = end;
    }
    return spelled;
}

/// Returns a number of this length without an exponent, since Boost.JSON rejects one of more than
/// nine digits. Requires that another character follows. Keeps what is not a number.
std::string withoutExponent(std::string_view number) {
    return leadingNumber(number.data()) == number ? std::string(number.size(), '1')
                                                  : std::string(number);
}

} // namespace

void fail(std::string_view text, std::size_t offset, std::string_view reason) {
    const std::string_view before = text.substr(0, offset);
    const auto line = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1;
    const std::size_t lineStart = before.rfind('\n') + 1; // npos + 1 is 0
    throw JSON::ParseError(line, text::codePointCount(before.substr(lineStart)) + 1, reason);
}

std::string tooDeep(std::size_t depth) {
    return "arrays and objects nested deeper than " + std::to_string(depth);
}

std::size_t endOfString(std::string_view text, std::size_t at) {
    for (++at; at < text.size() && text[at] != '"'; ++at)
        if (text[at] == '\\')
            ++at;
    return std::min(at + 1, text.size());
}

std::string normalizedForParser(std::string_view text) {
    const std::string spelled = withoutLoneSurrogates(text);
    check(text, withNumbers(spelled, withoutExponent));
    return withNumbers(spelled, readableNumber);
}

} // namespace PerchAppLibrary::fallback
