#include <PerchAppLibrary/JSON.hpp>

#include <PerchAppLibrary/JSONElement.hpp>
#include <PerchAppLibrary/JSONFallback.hpp>
#include <PerchAppLibrary/platform/Memory.hpp>

#include <algorithm>
#include <iterator>
#include <optional>

namespace PerchAppLibrary {
namespace {

namespace dom = simdjson::dom;

/// Makes room for a text of this length. The reader's buffers are several times as large as the text and are
/// written once from front to back, so that page faults would take as long as the parsing.
simdjson::error_code allocate(dom::parser& parser, dom::document& document, std::size_t length,
                              std::size_t depth) {
    const std::size_t capacity = std::max(length, simdjson::SIMDJSON_PADDING);
    if (const simdjson::error_code error = parser.allocate(capacity, depth))
        return error;
    if (const simdjson::error_code error = document.allocate(capacity))
        return error;
    memory::preferLargePages(parser.implementation->structural_indexes.get(),
                             capacity * sizeof(std::uint32_t));
    memory::preferLargePages(document.tape.get(), capacity * sizeof(std::uint64_t));
    memory::preferLargePages(document.string_buf.get(), capacity);
    return simdjson::SUCCESS;
}

/// Parses text[0, length), behind which at least SIMDJSON_PADDING bytes can be read when it is `padded`.
std::optional<JSON> read(std::string_view text, bool padded, std::size_t depth, simdjson::error_code& error) {
    const auto document = std::make_shared<dom::document>();
    dom::parser parser;
    dom::element root;
    error = allocate(parser, *document, text.size(), depth);
    if (!error)
        error = parser.parse_into_document(*document, text.data(), text.size(), !padded).get(root);
    if (error)
        return std::nullopt;
    return JSONElement::inDocument(document, root);
}

JSON parseText(std::string_view text, bool padded) {
    simdjson::error_code error = simdjson::SUCCESS;
    if (std::optional<JSON> json = read(text, padded, JSON::maximumDepth, error))
        return *std::move(json);
    if (error == simdjson::CAPACITY)
        throw JSON::ParseError(1, 1, "the text is too long");
    if (error == simdjson::MEMALLOC)
        throw std::bad_alloc();
    const std::string spelled = fallback::readableSpelling(text);
    // The reader counts an innermost array or object only when it is empty; the depth has just been checked exactly.
    if (std::optional<JSON> json = read(spelled, false, JSON::maximumDepth + 1, error))
        return *std::move(json);
    throw JSON::ParseError(1, 1, simdjson::error_message(error));
}

JSON::Type typeOf(dom::element element) noexcept {
    switch (element.type()) {
    case dom::element_type::INT64:
    case dom::element_type::UINT64:
    case dom::element_type::DOUBLE:
        return JSON::Type::number;
    case dom::element_type::STRING:
        return JSON::Type::string;
    case dom::element_type::BOOL:
        return JSON::Type::boolean;
    case dom::element_type::ARRAY:
        return JSON::Type::array;
    case dom::element_type::OBJECT:
        return JSON::Type::dictionary;
    case dom::element_type::NULL_VALUE:
        return JSON::Type::null;
    }
    return JSON::Type::unknown;
}

/// The reader's own count stops at this many.
constexpr std::size_t countLimit = 0xFFFFFF;

template <class Container>
std::size_t countOf(const Container& container) noexcept {
    const std::size_t counted = container.size();
    return counted < countLimit ? counted
                                : static_cast<std::size_t>(std::distance(container.begin(), container.end()));
}

} // namespace

JSON::ParseError::ParseError(std::size_t line, std::size_t column, std::string_view reason)
    : std::runtime_error("line " + std::to_string(line) + ", column " + std::to_string(column) + ": " +
                         std::string(reason)),
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
    static const JSON empty = parse("\"\"");
    return empty;
}

JSON JSON::parse(std::string_view text) { return parseText(text, false); }

JSON JSON::parse(std::string&& text) {
    const std::size_t length = text.size();
    text.append(simdjson::SIMDJSON_PADDING, ' ');
    return parseText(std::string_view(text).substr(0, length), true);
}

JSON::Type JSON::type() const noexcept {
    const std::optional<dom::element> element = JSONElement::of(*this);
    return element ? typeOf(*element) : Type::null;
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
    first.m_position = std::bit_cast<Place>(array.begin());
    if (array.begin() != array.end())
        first.m_element = JSONElement::inDocumentOf(*this, *array.begin());
    return first;
}

JSON::Iterator JSON::end() const noexcept {
    Iterator last;
    const std::optional<dom::element> element = JSONElement::of(*this);
    if (dom::array array; element && element->get(array) == simdjson::SUCCESS)
        last.m_position = std::bit_cast<Place>(array.end());
    return last;
}

JSON::Iterator& JSON::Iterator::operator++() noexcept {
    auto position = std::bit_cast<dom::array::iterator>(m_position);
    ++position;
    m_position = std::bit_cast<Place>(position);
    // Behind the last element stands the array's end, which is never looked at as an element.
    m_element.m_place = std::bit_cast<Place>(*position);
    return *this;
}

} // namespace PerchAppLibrary
