#include <PerchAppLibrary/text/Needle.hpp>

#include <PerchAppLibrary/text/detail/ICU.hpp>

#include <algorithm>
#include <cassert>

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
      m_isExact(TextSignature::isExact(m_text.bytes())),
      m_borders(bordersOf(m_text.bytes())) {}

std::size_t Needle::offsetIn(const ComparedText& text) const {
    assert(text.letterCase() == Case::insensitive && "a needle ignores case");
    const std::string_view needle = m_text.bytes();
    const std::string_view bytes = text.bytes();
    if (isEmpty() || needle.size() > bytes.size() || (text.isPlain() && !m_text.isPlain()))
        return notFound;
    std::size_t matched = 0; // bytes of the needle that end at `end`
    for (std::size_t end = 0; end < bytes.size();) {
        if (matched == 0)
            end = std::min(bytes.find(needle.front(), end), bytes.size());
        while (end < bytes.size() && matched < needle.size() && bytes[end] == needle[matched]) {
            ++end;
            ++matched;
        }
        if (matched == needle.size() && isWhole(text, end - matched))
            return end - matched;
        if (matched > 0)
            matched = m_borders[matched - 1];
    }
    return notFound;
}

bool Needle::isWhole(const ComparedText& text, std::size_t offset) const {
    return text.isBoundary(offset) && text.isBoundary(offset + m_text.bytes().size());
}

std::optional<Needle::Part> Needle::partOf(std::string_view text) const {
    const std::optional<std::size_t> first = find(ComparedText(text));
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
