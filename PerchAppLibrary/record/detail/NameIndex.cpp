#include <PerchAppLibrary/record/detail/NameIndex.hpp>

namespace PerchAppLibrary {

NameIndex::NameIndex(std::span<const std::string_view> names)
    : m_count(static_cast<std::uint32_t>(names.size())) {
    constexpr std::size_t slotsPerName = 4; // keeps collisions rare
    const std::size_t size = std::bit_ceil(std::max<std::size_t>(names.size() * slotsPerName, 2));
    m_entries.resize(size, Entry{{}, {}, m_count});
    m_shift = 64U - static_cast<unsigned>(std::countr_zero(size));
    for (std::size_t index = 0; index < names.size(); ++index) {
        const Head head = headOf(names[index]);
        m_entries[slotOf(names[index], head)] = {head, names[index],
                                                 static_cast<std::uint32_t>(index)};
    }
}

NameIndex::Head NameIndex::headOf(std::string_view name) noexcept {
    std::array<char, headSize> bytes{};
    name.copy(bytes.data(), bytes.size());
    return headOfReadable({bytes.data(), bytes.size()});
}

} // namespace PerchAppLibrary
