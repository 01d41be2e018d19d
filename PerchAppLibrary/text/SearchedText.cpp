#include <PerchAppLibrary/text/SearchedText.hpp>

#include <PerchAppLibrary/text/detail/Swar.hpp>

namespace PerchAppLibrary::text {

void SearchedText::assign(std::string_view text) noexcept {
    m_source = text;
    m_isASCII = text::isASCII(text);
    m_isFolded = false;
}

const ComparedText& SearchedText::folded() {
    if (!m_isFolded)
        m_folded.assign(m_source);
    m_isFolded = true;
    return m_folded;
}

} // namespace PerchAppLibrary::text
