#include <PerchAppLibrary/platform/CharacterForms.hpp>

#include <PerchAppLibrary/platform/ICU.hpp>
#include <PerchAppLibrary/platform/Text.hpp>

#include <unicode/uchar.h>

#include <algorithm>
#include <iterator>

namespace PerchAppLibrary::text {

std::optional<std::string_view> CharacterForms::formOf(std::string_view text) {
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

const CharacterForms::Entry& CharacterForms::entryOf(std::int32_t codePoint) {
    const auto place = static_cast<std::uint32_t>(codePoint ^ (codePoint >> 8)) % m_entries.size();
    Entry& entry = m_entries[place];
    if (entry.codePoint != codePoint)
        fill(entry, codePoint);
    return entry;
}

void CharacterForms::fill(Entry& entry, std::int32_t codePoint) const {
    std::string character;
    append(character, codePoint);
    const std::string parts = decomposed(character);
    const std::string form = m_case == Case::ignored ? folded(character) : parts;
    std::size_t begin = 0;
    entry.codePoint = codePoint;
    entry.firstClass = u_getCombiningClass(nextCodePoint(parts, begin));
    std::size_t last = previousOffset(parts, parts.size());
    entry.lastClass = u_getCombiningClass(nextCodePoint(parts, last));
    entry.length = form.size() <= std::size(entry.bytes) ? static_cast<std::uint8_t>(form.size()) : tooLong;
    if (entry.length != tooLong)
        std::ranges::copy(form, entry.bytes);
}

} // namespace PerchAppLibrary::text
