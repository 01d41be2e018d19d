#include <PerchAppLibrary/record/NameIndex.hpp>

namespace PerchAppLibrary {

NameIndex::NameIndex(std::span<const std::string_view> names) {
    constexpr std::size_t roomForEach = 8;
    const std::size_t size = std::bit_ceil(std::max<std::size_t>(names.size() * roomForEach, 2));
    m_entries.resize(size);
    m_shift = 64U - static_cast<unsigned>(std::countr_zero(size));
    chooseFactor(names);
    for (std::size_t index = 0; index < names.size(); ++index) {
        const Head head = headOf(names[index]);
        std::size_t place = firstPlace(head);
        while (m_entries[place].index != notFound)
            place = next(place);
        m_entries[place] = {head, names[index].data(), static_cast<std::uint32_t>(names[index].size()),
                            static_cast<std::uint32_t>(index)};
    }
}

/// Of some factors the best: for the names of a class, nearly always one by which each finds its first place free.
void NameIndex::chooseFactor(std::span<const std::string_view> names) {
    constexpr text::Word goldenRatio = 0x9E3779B97F4A7C15U; // 2^64 divided by it
    constexpr text::Word tried = 1000;
    text::Word best = goldenRatio;
    std::size_t fewest = names.size();
    for (text::Word odd = 1; odd < 2 * tried && fewest > 0; odd += 2) {
        m_factor = goldenRatio * odd;
        if (const std::size_t count = displaced(names); count < fewest) {
            fewest = count;
            best = m_factor;
        }
    }
    m_factor = best;
}

std::size_t NameIndex::displaced(std::span<const std::string_view> names) const {
    std::vector<bool> isTaken(m_entries.size());
    std::size_t count = 0;
    for (const std::string_view name : names) {
        const std::size_t place = firstPlace(headOf(name));
        count += isTaken[place] ? 1 : 0;
        isTaken[place] = true;
    }
    return count;
}

std::size_t NameIndex::findFurther(std::string_view name, Head head) const noexcept {
    std::size_t place = firstPlace(head);
    while (m_entries[place].index != notFound && !m_entries[place].isOf(name, head))
        place = next(place);
    return m_entries[place].index;
}

NameIndex::Head NameIndex::headOf(std::string_view name) noexcept {
    std::array<char, headSize> bytes{};
    name.copy(bytes.data(), bytes.size());
    return headOfReadable({bytes.data(), bytes.size()});
}

} // namespace PerchAppLibrary
