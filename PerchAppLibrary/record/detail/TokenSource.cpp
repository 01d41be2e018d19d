#include <PerchAppLibrary/record/detail/TokenSource.hpp>

#include <PerchAppLibrary/json/detail/JSONFallback.hpp>

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

/// Throws std::bad_alloc if memory ran out, and Fault at another error.
void check(simdjson::error_code error) {
    if (error == simdjson::MEMALLOC)
        throw std::bad_alloc();
    if (error != simdjson::SUCCESS)
        throw TokenSource::Fault();
}

/// Returns the part of the text up to a comma behind which another string or object begins, so that
/// it is probably not in a string. Returns the whole text if it is short, and nothing if there is
/// no such comma in the second half of `size` bytes.
std::string_view windowOf(std::string_view text, std::size_t size) {
    if (text.size() <= size)
        return text;
    for (std::size_t end = size; end > size / 2; --end) {
        if (text[end - 1] != ',')
            continue;
        const std::size_t next = text.find_first_not_of(" \t\r\n", end);
        if (next != std::string_view::npos && (text[next] == '"' || text[next] == '{'))
            return text.substr(0, end);
    }
    return {};
}

} // namespace

TokenSource::TokenSource(std::string_view text, const JSON::Limits& limits, std::size_t windowSize)
    : m_text(text),
      m_window(text.substr(0, 0)),
      m_windowSize(windowSize),
      m_maximumDepth(std::min(limits.depth, maximumDepth)),
      m_elementsLeft(static_cast<std::int64_t>(std::min(limits.elements, text.size()))) {
    const simdjson::implementation& reader = *simdjson::get_active_implementation();
    // The fallback is for old processors. Its first stage does not check UTF-8.
    if (text.size() > simdjson::SIMDJSON_MAXSIZE_BYTES || reader.name() == "fallback")
        fail();
    check(reader.create_dom_parser_implementation(simdjson::SIMDJSON_PADDING, 1, m_stages));
    findTokens();
}

void TokenSource::finish(Element root) {
    skipUnread(root);
    if (m_next != m_end)
        fail();
}

void TokenSource::findTokens() {
    const char* const begin = m_window.data() + m_window.size();
    const std::string_view left = m_text.substr(static_cast<std::size_t>(begin - m_text.data()));
    // A window that ends in a string, or nowhere, is too small.
    for (std::size_t size = m_windowSize;; size *= 2) {
        m_window = windowOf(left, size);
        const simdjson::error_code error =
            m_window.empty() ? simdjson::UNCLOSED_STRING : runFirstStage(size);
        if (!error)
            break;
        if (error != simdjson::UNCLOSED_STRING || m_window.size() == left.size())
            fail();
    }
    m_next = m_stages->structural_indexes.get();
    m_end = m_next + m_stages->n_structural_indexes;
    findBackslash(begin);
}

simdjson::error_code TokenSource::runFirstStage(std::size_t windowLimit) {
    // Room for the largest window at once: a buffer of tokens that is freed between records leaves
    // a hole there, and glibc then takes twice as long to destroy the records.
    const std::size_t capacity =
        std::max(std::min(windowLimit, m_text.size()), simdjson::SIMDJSON_PADDING);
    if (m_stages->capacity() < capacity)
        check(m_stages->set_capacity(capacity));
    return m_stages->stage1(bytesOf(m_window.data()), m_window.size(),
                            simdjson::stage1_mode::regular);
}

bool TokenSource::get(Element element, std::vector<std::int64_t>& numbers) {
    if (!isArray(element))
        return false;
    m_numbers.clear();
    Token next = m_next + 1;
    if (*at(next) != ']') {
        do {
            const std::optional<std::int64_t> number = plainInteger(at(next));
            if (!number)
                return false;
            m_numbers.push_back(*number);
            next += 2;
        } while (*at(next - 1) == ',');
        --next;
    }
    if (*at(next) != ']')
        return false;
    countElements(m_numbers.size());
    numbers.assign(m_numbers.begin(), m_numbers.end());
    m_next = next + 1;
    return true;
}

void TokenSource::findBackslash(const char* from) {
    const char* const end = m_window.data() + m_window.size();
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

void TokenSource::skip() {
    const Element element = at(m_next);
    if (isArray(element))
        forEachElement(element, [](Element) {});
    else if (isObject(element))
        forEachMember(element, [this](std::string_view key, Element) { unescaped(key); });
    else {
        if (*element == '"')
            unescaped(content(m_next));
        else if (!isWord(element, "null") && !isWord(element, "true") && !isWord(element, "false"))
            (void)numberAt(element);
        ++m_next;
    }
}

std::string_view TokenSource::numberAt(Element element) {
    const std::string_view number = leadingNumber(element);
    if (number.empty() || !isBehindScalar(element[number.size()]))
        fail();
    return number;
}

Scalar TokenSource::readScalar(Element element) {
    const bool isNew = isNext(element);
    if (isArray(element) || isObject(element)) {
        isNew ? skip() : fail();
        return std::monostate();
    }
    std::string_view text;
    if (*element == '"')
        text = unescaped(isNew ? content(m_next) : contentOf(element));
    m_next += isNew ? 1 : 0;
    if (*element == '"')
        return text;
    if (const std::optional<std::int64_t> integer = plainInteger(element))
        return *integer;
    if (isWord(element, "null"))
        return nullptr;
    if (const bool isTrue = isWord(element, "true"); isTrue || isWord(element, "false"))
        return isTrue;
    const std::optional<Scalar> value = scalarOfNumber(numberAt(element));
    if (!value)
        fail();
    return *value;
}

std::string_view TokenSource::contentOf(Element string) const {
    const auto begin = static_cast<std::size_t>(string - m_text.data());
    return m_text.substr(begin + 1, fallback::endOfString(m_text, begin) - begin - 2);
}

simdjson::dom::element TokenSource::parse(Element element) {
    if (!isNext(element))
        fail();
    skip(); // finds the end
    constexpr int depth = static_cast<int>(JSON::maximumDepth - maximumDepth);
    simdjson::dom::element parsed;
    if (m_parser.max_depth() != depth)
        check(m_parser.allocate(simdjson::SIMDJSON_PADDING, depth));
    const auto size = static_cast<std::size_t>(at(m_next) - element);
    check(m_parser.parse(element, size, false).get(parsed));
    return parsed;
}

} // namespace PerchAppLibrary
