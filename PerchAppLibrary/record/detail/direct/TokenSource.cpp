#include <PerchAppLibrary/record/detail/direct/TokenSource.hpp>

#include <PerchAppLibrary/platform/detail/Memory.hpp>

#include <algorithm>
#include <new>

namespace PerchAppLibrary {
namespace {

const std::uint8_t* bytesOf(const char* text) {
    return reinterpret_cast<const std::uint8_t*>(text);
}

/// Calls the function of the parser, which has a third parameter in later versions.
template <class Stages>
std::uint8_t* parseString(const Stages& stages, const std::uint8_t* from, std::uint8_t* to) {
    if constexpr (requires { stages.parse_string(from, to, false); })
        return stages.parse_string(from, to, false);
    else
        return stages.parse_string(from, to);
}

const char* endOfDigits(const char* from) noexcept {
    while (*from >= '0' && *from <= '9')
        ++from;
    return from;
}

} // namespace

TokenSource::TokenSource(std::string_view text) : m_text(text) {
    const simdjson::implementation& reader = *simdjson::get_active_implementation();
    if (reader.name() == "fallback") // for old processors; its first stage does not check UTF-8
        fail();
    const std::size_t capacity = std::max(text.size(), simdjson::SIMDJSON_PADDING);
    if (const auto error = reader.create_dom_parser_implementation(capacity, 1, m_stages))
        error == simdjson::MEMALLOC ? throw std::bad_alloc() : fail();
    memory::preferLargePages(m_stages->structural_indexes.get(),
                             text.size() * sizeof(std::uint32_t));
    if (m_stages->stage1(bytesOf(text.data()), text.size(), simdjson::stage1_mode::regular))
        fail();
    m_next = m_stages->structural_indexes.get();
    m_end = m_next + m_stages->n_structural_indexes;
    findBackslash(text.data());
}

void TokenSource::finish() {
    skipUnread(m_stages->structural_indexes.get());
    if (m_next != m_end)
        fail();
}

bool TokenSource::get(Element element, std::vector<std::int64_t>& numbers) {
    if (!isArray(element))
        return false;
    m_numbers.clear();
    Element next = element + 1;
    if (!begins(next, ']')) {
        do {
            const std::optional<std::int64_t> number = plainInteger(next);
            if (!number)
                return false;
            m_numbers.push_back(*number);
            next += 2;
        } while (begins(next - 1, ','));
        --next;
    }
    if (!begins(next, ']'))
        return false;
    numbers.assign(m_numbers.begin(), m_numbers.end());
    m_next = next + 1;
    return true;
}

void TokenSource::findBackslash(const char* from) {
    const char* const end = m_text.data() + m_text.size();
    const void* const found = std::memchr(from, '\\', static_cast<std::size_t>(end - from));
    m_plainBegin = from;
    m_plainEnd = found != nullptr ? static_cast<const char*>(found) : end;
}

std::string_view TokenSource::unescape(std::string_view content) {
    // The parser copies whole blocks.
    const std::size_t size = content.size() + 2 * simdjson::SIMDJSON_PADDING;
    if (m_unescaped.size() < size)
        m_unescaped.resize(size);
    std::uint8_t* const begin = m_unescaped.data();
    const std::uint8_t* const end = parseString(*m_stages, bytesOf(content.data()), begin);
    if (end == nullptr)
        fail();
    const auto length = static_cast<std::size_t>(end - begin);
    // Where many texts have escapes, a search before each would take longer than this.
    if (length == content.size() && content.data() > m_plainEnd)
        findBackslash(content.data() + content.size());
    return {reinterpret_cast<const char*>(begin), length};
}

std::string_view TokenSource::number(Element element) const noexcept {
    const char* const begin = at(element);
    const char* digits = begin + (*begin == '-' ? 1 : 0);
    const char* end = endOfDigits(digits);
    if (end == digits || (*digits == '0' && end - digits > 1))
        return {};
    if (*end == '.') {
        digits = end + 1;
        end = endOfDigits(digits);
        if (end == digits)
            return {};
    }
    if (*end == 'e' || *end == 'E') {
        digits = end + (end[1] == '+' || end[1] == '-' ? 2 : 1);
        end = endOfDigits(digits);
        if (end == digits)
            return {};
    }
    return isBehindScalar(*end) ? std::string_view(begin, end) : std::string_view();
}

void TokenSource::skip() {
    const Element element = m_next;
    switch (*at(element)) {
    case '"':
        unescaped(spelled(element));
        break;
    case '[':
        forEachElement(element, [](Element) {});
        return;
    case '{':
        forEachMember(element, [this](std::string_view key, Element) { unescaped(key); });
        return;
    default:
        if (!isWord(element, "true") && !isWord(element, "false") && !isWord(element, "null") &&
            number(element).empty())
            fail();
    }
    m_next = element + 1;
}

Scalar TokenSource::readScalar() {
    const Element element = m_next;
    if (isArray(element) || isObject(element)) {
        skip();
        return std::monostate();
    }
    m_next = element + 1;
    if (begins(element, '"'))
        return unescaped(spelled(element));
    if (isWord(element, "true"))
        return true;
    if (isWord(element, "false"))
        return false;
    if (isWord(element, "null"))
        return nullptr;
    const std::string_view spelledNumber = number(element);
    if (spelledNumber.empty())
        fail();
    if (const std::optional<Scalar> value = scalarOfNumber(spelledNumber))
        return *value;
    fail();
}

simdjson::dom::element TokenSource::parse() {
    const Element element = m_next;
    skip(); // finds the end
    constexpr int depth = static_cast<int>(JSON::maximumDepth) - maximumDepth;
    simdjson::dom::element parsed;
    if (m_parser.max_depth() != depth && m_parser.allocate(simdjson::SIMDJSON_PADDING, depth))
        fail();
    if (m_parser.parse(at(element), *m_next - *element, false).get(parsed))
        fail();
    return parsed;
}

} // namespace PerchAppLibrary
