#include <PerchAppLibrary/record/NameIndex.hpp>

namespace PerchAppLibrary {

NameIndex::NameIndex(std::span<const std::string_view> names) {
    constexpr std::size_t roomForEach = 4; // few names then find their place taken
    const std::size_t size = std::bit_ceil(std::max<std::size_t>(names.size() * roomForEach, 2));
    m_entries.resize(size);
    m_shift = 64U - static_cast<unsigned>(std::countr_zero(size));
    for (std::size_t index = 0; index < names.size(); ++index) {
        const Head head = headOf(names[index]);
        std::size_t place = firstPlace(head);
        while (m_entries[place].index != notFound)
            place = next(place);
        m_entries[place] = {head, names[index], index};
    }
}

NameIndex::Head NameIndex::headOf(std::string_view name) noexcept {
    std::array<char, headSize> bytes{};
    name.copy(bytes.data(), bytes.size());
    return headOfReadable({bytes.data(), bytes.size()});
}

} // namespace PerchAppLibrary
