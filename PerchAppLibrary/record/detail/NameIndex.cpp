#include <PerchAppLibrary/record/detail/NameIndex.hpp>

namespace PerchAppLibrary {

NameIndex::NameIndex(std::span<const std::string_view> names)
    : m_count(static_cast<std::uint32_t>(names.size())) {
    constexpr std::size_t slotsPerName = 4; // keeps collisions rare
    const std::size_t size = std::bit_ceil(std::max<std::size_t>(names.size() * slotsPerName, 2));
    Entry empty;
    empty.index = m_count;
    m_entries.resize(size, empty);
    m_shift = 64U - static_cast<unsigned>(std::countr_zero(size));
    for (std::size_t index = 0; index < names.size(); ++index) {
        const std::string_view name = names[index];
        Entry& entry = m_entries[slotOf(name, headOf(name))];
        entry.head = headOf(name);
        entry.mask = maskOf(name.size());
        entry.name = name;
        if (name.size() <= headSize)
            entry.shortSize = static_cast<std::uint32_t>(name.size());
        entry.index = static_cast<std::uint32_t>(index);
    }
}

NameIndex::Head NameIndex::headOf(std::string_view name) noexcept {
    std::array<char, headSize> bytes{};
    name.copy(bytes.data(), bytes.size());
    return headOfReadable({bytes.data(), bytes.size()});
}

} // namespace PerchAppLibrary
