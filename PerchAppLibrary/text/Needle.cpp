#include <PerchAppLibrary/text/Needle.hpp>

#include <PerchAppLibrary/text/detail/ICU.hpp>
#include <PerchAppLibrary/text/detail/Swar.hpp>

namespace PerchAppLibrary::text {
namespace {

/// Returns, for each prefix of the needle, the length of its longest proper prefix that is also its
/// suffix. With these, a search reads each byte of the text once (Knuth, Morris and Pratt).
std::vector<std::size_t> bordersOf(std::string_view needle) {
    std::vector<std::size_t> borders(needle.size());
    for (std::size_t end = 1, border = 0; end < needle.size(); ++end) {
        while (border > 0 && needle[end] != needle[border])
            border = borders[border - 1];
        border += needle[end] == needle[border] ? 1 : 0;
        borders[end] = border;
    }
    return borders;
}

/// Returns the end of the piece that begins at `begin`: the next offset at which the character does
/// not combine with those before it. The folded text is the folded pieces, one after the other.
std::size_t endOfPiece(std::string_view text, std::size_t begin) {
    std::size_t end = begin;
    nextCodePoint(text, end);
    for (std::size_t next = end; next < text.size(); end = next)
        if (nfc().hasBoundaryBefore(nextCodePoint(text, next)))
            break;
    return end;
}

} // namespace

Needle::Needle(std::string_view text)
    : m_text(text),
      m_signature(m_text),
      m_isASCII(isASCII(m_text.bytes())),
      m_isExact(TextSignature::isExact(m_text.bytes())),
      m_borders(bordersOf(m_text.bytes())) {}

template <class Fold, class Test>
std::size_t Needle::search(std::string_view text, Fold fold, Test isMatch) const {
    const std::string_view needle = m_text.bytes();
    if (needle.empty())
        return notFound;
    std::size_t matched = 0;
    for (std::size_t end = 0; end < text.size();) {
        const char byte = fold(text[end++]);
        while (matched > 0 && (matched == needle.size() || byte != needle[matched]))
            matched = m_borders[matched - 1];
        matched += byte == needle[matched] ? 1 : 0;
        if (matched == needle.size() && isMatch(end - matched))
            return end - matched;
    }
    return notFound;
}

std::size_t Needle::findInASCII(std::string_view text) const {
    return search(
        text, [](char byte) { return upperCasedASCII(byte); }, [](std::size_t) { return true; });
}

std::size_t Needle::findInFolded(const ComparedText& text) const {
    if (text.isPlain() && !m_text.isPlain())
        return notFound;
    return search(
        text.bytes(), [](char byte) { return byte; },
        [&](std::size_t offset) { return isWhole(text, offset); });
}

bool Needle::isWhole(const ComparedText& text, std::size_t offset) const {
    return text.isBoundary(offset) && text.isBoundary(offset + m_text.bytes().size());
}

std::optional<Needle::Part> Needle::partOf(std::string_view text) const {
    SearchedText searched(text);
    const std::optional<std::size_t> first = find(searched);
    if (!first)
        return std::nullopt;
    const std::size_t last = *first + m_text.bytes().size() - 1;
    Part part{0, text.size()};
    ComparedText piece;
    for (std::size_t begin = 0, foldedBegin = 0; begin < text.size();) {
        const std::size_t end = endOfPiece(text, begin);
        piece.assign(text.substr(begin, end - begin));
        const std::size_t foldedEnd = foldedBegin + piece.bytes().size();
        if (*first >= foldedBegin && *first < foldedEnd)
            part.begin = begin;
        if (last < foldedEnd) {
            part.end = end;
            break;
        }
        begin = end;
        foldedBegin = foldedEnd;
    }
    return part;
}

} // namespace PerchAppLibrary::text
