#include <PerchAppLibrary/text/detail/FoldCache.hpp>

#include <PerchAppLibrary/text/Text.hpp>
#include <PerchAppLibrary/text/detail/ICU.hpp>

#include <unicode/uchar.h>

#include <algorithm>
#include <iterator>

namespace PerchAppLibrary::text {

std::optional<std::string_view> FoldCache::formOf(std::string_view text) {
    if (m_misses > missesOf(maximumSize))
        return std::nullopt;
    m_form.clear();
    std::uint8_t lastClass = 0;
    for (std::size_t offset = 0; offset < text.size();) {
        const Entry& entry = entryOf(nextCodePoint(text, offset));
        const bool isOutOfOrder = entry.firstClass != 0 && entry.firstClass < lastClass;
        if (isOutOfOrder || entry.length == tooLong)
            return std::nullopt;
        lastClass = entry.lastClass;
        m_form.append(entry.bytes, entry.length);
    }
    return m_form;
}

const FoldCache::Entry& FoldCache::entryOf(std::int32_t codePoint) {
    const auto slot =
        static_cast<std::uint32_t>(codePoint ^ (codePoint >> 8)) & (m_entries.size() - 1);
    Entry& entry = m_entries[slot];
    if (entry.codePoint == codePoint)
        return entry;
    if (++m_misses > missesOf(m_entries.size()) && m_entries.size() < maximumSize) {
        m_entries.assign(m_entries.size() * growth, Entry());
        m_misses = 0;
        return entryOf(codePoint);
    }
    fill(entry, codePoint);
    return entry;
}

void FoldCache::fill(Entry& entry, std::int32_t codePoint) const {
    std::string character;
    append(character, codePoint);
    // Not by decomposed() and folded(): a query over such names would take a tenth longer.
    const std::string parts = normalized(nfd(), character);
    const std::string form =
        m_case == Case::insensitive ? normalized(nfd(), uppercased(parts)) : parts;
    std::size_t begin = 0;
    entry.codePoint = codePoint;
    entry.firstClass = u_getCombiningClass(nextCodePoint(parts, begin));
    std::size_t last = previousOffset(parts, parts.size());
    entry.lastClass = u_getCombiningClass(nextCodePoint(parts, last));
    entry.length =
        form.size() <= std::size(entry.bytes) ? static_cast<std::uint8_t>(form.size()) : tooLong;
    if (entry.length != tooLong)
        std::ranges::copy(form, entry.bytes);
}

} // namespace PerchAppLibrary::text
