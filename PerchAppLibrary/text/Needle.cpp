#include <PerchAppLibrary/text/Needle.hpp>

#include <PerchAppLibrary/text/detail/ByteMatches.hpp>
#include <PerchAppLibrary/text/detail/ICU.hpp>
#include <PerchAppLibrary/text/detail/Swar.hpp>

#include <algorithm>
#include <bit>

namespace PerchAppLibrary::text {
namespace {

/// The greatest size at which comparing the whole needle at each candidate is faster than the
/// linear search.
constexpr std::size_t longestShortNeedle = ByteMatches::most / 2;

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

/// The first and the last byte of a needle, to find in folded texts and in unfolded ASCII.
struct Needle::Ends {
    struct Pair {
        SoughtByte first;
        SoughtByte last;
    };

    explicit Ends(std::string_view needle)
        : ofFolded{{needle.front(), false}, {needle.back(), false}},
          ofASCII{{needle.front(), true}, {needle.back(), true}} {}

    Pair ofFolded;
    Pair ofASCII;
};

namespace {

/// Returns the first offset where both ends of the needle match and `isMatch(offset)` is true, or
/// npos if there is none.
template <class EndsPair, class Test>
std::size_t findShort(std::string_view text, std::size_t length, const EndsPair& ends,
                      Test isMatch) {
    for (std::size_t begin = 0; begin + length <= text.size();
         begin += ByteMatches::most - length + 1) {
        const ByteMatches matches =
            matchesOf(text.substr(begin, ByteMatches::most), ends.first, ends.last);
        std::uint64_t candidates = matches.first & (matches.last >> (length - 1));
        for (; candidates != 0; candidates &= candidates - 1) { // clears the lowest bit
            const auto bit = static_cast<std::size_t>(std::countr_zero(candidates));
            if (isMatch(begin + bit))
                return begin + bit;
        }
    }
    return std::string_view::npos;
}

} // namespace

Needle::Needle(std::string_view text)
    : m_text(text),
      m_signature(m_text),
      m_isASCII(isASCII(m_text.bytes())),
      m_isExact(TextSignature::isExact(m_text.bytes())) {
    const std::string_view needle = m_text.bytes();
    if (needle.size() > longestShortNeedle)
        m_borders = bordersOf(needle);
    else if (!needle.empty())
        m_ends = std::make_unique<Ends>(needle);
}

Needle::Needle(Needle&& other) noexcept = default;
Needle::~Needle() = default;

std::size_t Needle::findInASCII(std::string_view text) const {
    const std::string_view needle = m_text.bytes();
    return findShort(text, needle.size(), m_ends->ofASCII, [text, needle](std::size_t offset) {
        return std::ranges::equal(text.substr(offset, needle.size()), needle, {},
                                  [](char byte) { return upperCasedASCII(byte); });
    });
}

std::size_t Needle::findInFolded(const ComparedText& text) const {
    const std::string_view needle = m_text.bytes();
    if (text.isPlain() && !m_text.isPlain())
        return notFound;
    if (!m_ends)
        return m_borders.empty() ? notFound : findLong(text); // the empty needle has neither
    return findShort(text.bytes(), needle.size(), m_ends->ofFolded, [&](std::size_t offset) {
        return text.bytes().substr(offset, needle.size()) == needle && isWhole(text, offset);
    });
}

std::size_t Needle::findLong(const ComparedText& text) const {
    const std::string_view within = text.bytes();
    const std::string_view sought = m_text.bytes();
    std::size_t matched = 0;
    for (std::size_t end = 0; end < within.size();) {
        while (matched > 0 && (matched == sought.size() || within[end] != sought[matched]))
            matched = m_borders[matched - 1];
        matched += within[end++] == sought[matched] ? 1 : 0;
        if (matched == sought.size() && isWhole(text, end - matched))
            return end - matched;
    }
    return notFound;
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
