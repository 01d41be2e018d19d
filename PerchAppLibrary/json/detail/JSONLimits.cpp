#include <PerchAppLibrary/json/detail/JSONLimits.hpp>

#include <PerchAppLibrary/json/detail/JSONFallback.hpp>

#include <string>

namespace PerchAppLibrary {
namespace {

/// Counts the levels and the elements of a text, and throws at the first that exceeds its limit.
class LimitedScan {
public:
    LimitedScan(std::string_view text, const JSON::Limits& limits)
        : m_text(text), m_limits(limits) {}

    void run() {
        while (m_offset < m_text.size()) {
            const char character = m_text[m_offset];
            if (character == ']' || character == '}')
                leave();
            else if (character == ',')
                addElement();
            else if (character != ' ' && character != '\t' && character != '\r' &&
                     character != '\n')
                beginValue(character);
            m_offset = character == '"' ? fallback::endOfString(m_text, m_offset) : m_offset + 1;
        }
    }

private:
    /// The first element of an array or object has no comma.
    void beginValue(char character) {
        if (m_isFirst)
            addElement();
        m_isFirst = character == '[' || character == '{';
        if (m_isFirst && ++m_depth > m_limits.depth)
            fallback::fail(m_text, m_offset, fallback::tooDeep(m_limits.depth));
    }

    void leave() {
        m_isFirst = false;
        m_depth -= m_depth > 0 ? 1 : 0;
    }

    void addElement() {
        m_isFirst = false;
        if (++m_elements > m_limits.elements)
            fallback::fail(m_text, m_offset,
                           "more than " + std::to_string(m_limits.elements) + " elements");
    }

    std::string_view m_text;
    const JSON::Limits& m_limits;
    std::size_t m_offset = 0;
    std::size_t m_depth = 0;
    std::size_t m_elements = 0;
    bool m_isFirst = false; // whether the next value is the first of an array or object
};

} // namespace

void checkLimits(std::string_view text, const JSON::Limits& limits) {
    constexpr JSON::Limits defaults;
    if (text.size() > limits.bytes)
        throw JSON::ParseError(1, 1, "the text is too long");
    if (limits.depth < defaults.depth || limits.elements < defaults.elements)
        LimitedScan(text, limits).run();
}

} // namespace PerchAppLibrary
