#include <PerchAppLibrary/text/internal/NeedleSet.hpp>

#include <PerchAppLibrary/text/Text.hpp>
#include <PerchAppLibrary/text/detail/ICU.hpp>

#include <algorithm>

namespace PerchAppLibrary::text {
namespace {

/// The greatest number of signatures that is faster to compare than a text is to read.
constexpr std::size_t maxOthers = 16;

} // namespace

void NeedleSet::add(std::string_view text) {
    const ComparedText folded(text);
    const std::string_view needle = folded.bytes();
    if (needle.empty() || !m_needles.emplace(needle).second)
        return;
    addSignature(folded);
    m_longest = std::max(m_longest, codePointCount(needle));
    FirstByte& first = m_firstBytes[static_cast<std::uint8_t>(needle.front())];
    if (needle.size() == 1)
        first = FirstByte::isOne;
    else if (first == FirstByte::beginsNone)
        first = FirstByte::beginsSome;
}

void NeedleSet::addSignature(const ComparedText& needle) {
    if (TextSignature::isExact(needle.bytes())) {
        m_exact.add(needle);
        return;
    }
    if (m_others.size() > maxOthers)
        return;
    m_others.emplace_back().add(needle);
}

std::optional<bool> NeedleSet::prefilter(const TextSignature& texts) const {
    const bool sharesExact = texts.sharesCharacter(m_exact);
    if (sharesExact && texts.isPlain())
        return true;
    if (sharesExact || m_others.size() > maxOthers ||
        std::ranges::any_of(m_others,
                            [&texts](const TextSignature& other) { return texts.covers(other); }))
        return std::nullopt;
    return false;
}

bool NeedleSet::anyIn(const ComparedText& text) const {
    for (std::size_t offset = 0; offset < text.bytes().size(); ++offset) {
        const FirstByte first = m_firstBytes[static_cast<std::uint8_t>(text.bytes()[offset])];
        if (first == FirstByte::beginsNone)
            continue;
        if ((first == FirstByte::isOne && text.isPlain()) || anyAt(text, offset))
            return true;
    }
    return false;
}

bool NeedleSet::anyAt(const ComparedText& text, std::size_t offset) const {
    if (!text.isBoundary(offset))
        return false;
    std::size_t end = offset;
    for (std::size_t codePoints = 1; codePoints <= m_longest && end < text.bytes().size();
         ++codePoints) {
        nextCodePoint(text.bytes(), end);
        if (m_needles.contains(text.bytes().substr(offset, end - offset)) && text.isBoundary(end))
            return true;
    }
    return false;
}

} // namespace PerchAppLibrary::text
