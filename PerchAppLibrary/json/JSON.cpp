#include <PerchAppLibrary/json/JSON.hpp>

#include <PerchAppLibrary/container/NoDestructor.hpp>
#include <PerchAppLibrary/json/detail/Conversion.hpp>
#include <PerchAppLibrary/json/detail/Equality.hpp>
#include <PerchAppLibrary/json/detail/JSONElement.hpp>
#include <PerchAppLibrary/json/detail/JSONFallback.hpp>
#include <PerchAppLibrary/json/detail/JSONLimits.hpp>
#include <PerchAppLibrary/json/detail/JSONText.hpp>
#include <PerchAppLibrary/json/detail/Memory.hpp>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <new>
#include <optional>

namespace PerchAppLibrary {
namespace {

namespace dom = simdjson::dom;

/// Allocates the buffers that the parser writes, with large pages, since page faults would take as
/// long as the parsing.
simdjson::error_code allocate(dom::document& document, std::size_t size) {
    const simdjson::error_code error = document.allocate(size);
    memory::preferLargePages(document.tape.get(), size * sizeof(std::uint64_t));
    memory::preferLargePages(document.string_buf.get(), size);
    return error;
}

/// Parses a text. Returns nullopt and sets `error` if the parser rejects it. Throws std::bad_alloc
/// if memory runs out. Requires SIMDJSON_PADDING readable bytes behind the text.
std::optional<JSON> read(std::string_view text, std::size_t depth, simdjson::error_code& error) {
    dom::parser parser;
    const auto document = std::make_shared<dom::document>();
    const std::size_t size = std::max(text.size(), simdjson::SIMDJSON_PADDING);
    error = parser.allocate(size, depth);
    if (!error)
        error = allocate(*document, size);
    if (!error && text.starts_with("\xEF\xBB\xBF")) // The parser would skip a byte order mark.
        error = simdjson::TAPE_ERROR;
    if (!error)
        error = parser.parse_into_document(*document, text.data(), text.size(), false).error();
    if (error == simdjson::MEMALLOC)
        throw std::bad_alloc();
    if (error)
        return std::nullopt;
    return JSONElement::inDocument(document, document->root());
}

std::string_view padded(std::string& text) {
    const std::size_t length = text.size();
    text.append(simdjson::SIMDJSON_PADDING, ' ');
    return std::string_view(text).substr(0, length);
}

/// size() of a simdjson container stops at this number.
constexpr std::size_t countLimit = 0xFFFFFF;

template <class Container>
std::size_t countOf(const Container& container) noexcept {
    const std::size_t counted = container.size();
    return counted < countLimit
               ? counted
               : static_cast<std::size_t>(std::distance(container.begin(), container.end()));
}

/// Parses a text. Throws ParseError if it is malformed.
JSON parsed(std::string& text) {
    const std::string_view readable = padded(text);
    simdjson::error_code error = simdjson::SUCCESS;
    if (std::optional<JSON> json = read(readable, JSON::maximumDepth, error))
        return *std::move(json);
    if (error == simdjson::CAPACITY)
        throw JSON::ParseError(1, 1, "the text is too long");
    std::string spelled = fallback::normalizedForParser(readable);
    // The parser counts an innermost array or object only if it is empty, so it has rejected an
    // empty one at maximumDepth. normalizedForParser() has checked the exact depth.
    if (std::optional<JSON> json = read(padded(spelled), JSON::maximumDepth + 1, error))
        return *std::move(json);
    throw JSON::ParseError(1, 1, simdjson::error_message(error));
}

template <class Real>
JSON fromReal(Real number) {
    return std::isfinite(number) ? JSON::parse(shortestDecimal(number)) : JSON::null;
}

} // namespace

JSON::ParseError::ParseError(std::size_t line, std::size_t column, std::string_view reason)
    : std::runtime_error("line " + std::to_string(line) + ", column " + std::to_string(column) +
                         ": " + std::string(reason)),
      m_line(line),
      m_column(column),
      m_reason(reason) {}

JSON JSONElement::detached(dom::element element) {
    if (element.is_null())
        return JSON::null;
    if (std::string_view text; element.get(text) == simdjson::SUCCESS && text.empty())
        return JSON::emptyString();
    return JSON::parse(simdjson::minify(element));
}

const JSON& JSON::emptyString() {
    static const NoDestructor<JSON> empty(parse("\"\""));
    return *empty;
}

JSON JSON::fromScalar(bool flag) { return parse(flag ? "true" : "false"); }
JSON JSON::fromScalar(std::int64_t number) { return parse(std::to_string(number)); }
JSON JSON::fromScalar(std::uint64_t number) { return parse(std::to_string(number)); }
JSON JSON::fromScalar(float number) { return fromReal(number); }
JSON JSON::fromScalar(double number) { return fromReal(number); }

JSON JSON::fromScalar(std::string_view text) {
    std::string quoted;
    appendJSONString(quoted, text);
    return parse(std::move(quoted));
}

JSON JSON::parse(std::string_view text, const Limits& limits) {
    checkLimits(text, limits);
    std::string copy;
    copy.reserve(text.size() + simdjson::SIMDJSON_PADDING);
    return parsed(copy.append(text));
}

JSON JSON::parse(std::string&& text, const Limits& limits) {
    checkLimits(text, limits);
    return parsed(text);
}

JSON::Type JSON::type() const noexcept {
    const std::optional<dom::element> element = JSONElement::of(*this);
    return element ? typeOf(*element) : Type::null;
}

template <class T>
bool JSON::convertTo(T& value) const {
    const std::optional<dom::element> element = JSONElement::of(*this);
    return element && convertElement(*element, value);
}

template bool JSON::convertTo(std::int64_t&) const;
template bool JSON::convertTo(bool&) const;
template bool JSON::convertTo(float&) const;
template bool JSON::convertTo(double&) const;
template bool JSON::convertTo(std::string&) const;
template bool JSON::convertTo(std::vector<std::int64_t>&) const;
template bool JSON::convertTo(std::vector<std::string>&) const;

bool operator==(const JSON& left, const JSON& right) {
    if (left.m_document == right.m_document && left.m_position == right.m_position)
        return true;
    const std::optional<dom::element> element = JSONElement::of(left);
    const std::optional<dom::element> other = JSONElement::of(right);
    return element && other ? areEqual(*element, *other) : left.isNull() && right.isNull();
}

std::size_t JSON::count() const noexcept {
    const std::optional<dom::element> element = JSONElement::of(*this);
    if (!element)
        return 0;
    if (dom::array array; element->get(array) == simdjson::SUCCESS)
        return countOf(array);
    if (dom::object object; element->get(object) == simdjson::SUCCESS)
        return countOf(object);
    return 0;
}

JSON JSON::operator[](std::string_view key) const noexcept {
    const std::optional<dom::element> element = JSONElement::of(*this);
    dom::object object;
    if (!element || element->get(object) != simdjson::SUCCESS)
        return null;
    std::optional<dom::element> last;
    for (auto member = object.begin(), end = object.end(); member != end; ++member)
        if (member.key_equals(key))
            last = member.value();
    return last ? JSONElement::inDocumentOf(*this, *last) : null;
}

JSON JSON::at(std::size_t index) const noexcept {
    const std::optional<dom::element> element = JSONElement::of(*this);
    dom::array array;
    dom::element found;
    if (!element || element->get(array) != simdjson::SUCCESS ||
        array.at(index).get(found) != simdjson::SUCCESS)
        return null;
    return JSONElement::inDocumentOf(*this, found);
}

std::vector<JSON> JSON::arrayValue() const {
    std::vector<JSON> elements;
    if (type() != Type::array)
        return elements;
    elements.reserve(count());
    for (const JSON& element : *this)
        elements.push_back(element);
    return elements;
}

JSON::Iterator JSON::begin() const noexcept {
    Iterator first;
    const std::optional<dom::element> element = JSONElement::of(*this);
    dom::array array;
    if (!element || element->get(array) != simdjson::SUCCESS)
        return first;
    first.m_position = std::bit_cast<Position>(array.begin());
    if (array.begin() != array.end())
        first.m_element = JSONElement::inDocumentOf(*this, *array.begin());
    return first;
}

JSON::Iterator JSON::end() const noexcept {
    Iterator last;
    const std::optional<dom::element> element = JSONElement::of(*this);
    if (dom::array array; element && element->get(array) == simdjson::SUCCESS)
        last.m_position = std::bit_cast<Position>(array.end());
    return last;
}

JSON::Iterator& JSON::Iterator::operator++() noexcept {
    auto position = std::bit_cast<dom::array::iterator>(m_position);
    ++position;
    m_position = std::bit_cast<Position>(position);
    // At the end, this is the position of the array's end, which nothing dereferences.
    m_element.m_position = std::bit_cast<Position>(*position);
    return *this;
}

} // namespace PerchAppLibrary
