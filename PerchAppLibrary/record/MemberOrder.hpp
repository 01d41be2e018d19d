#pragma once

#include <array>
#include <cstdint>

namespace PerchAppLibrary {

class NameIndex;

/// Which property came behind which in the JSON objects that records were filled from. The objects of an array nearly always have
/// their members in one order, so that the next property can be guessed before its name is looked up.
///
/// Whatever stands here, each member goes to its property. Not synchronised: for one thread at a time.
class MemberOrder {
public:
    /// Forgets what came of records of another class, whose names had other places.
    void startRecord(const NameIndex& names) noexcept {
        if (m_names != &names)
            *this = MemberOrder(names);
    }

    /// Where the first property of the last object stands in the index of the names.
    std::uint32_t& first() noexcept { return m_first; }

    /// Where the property stands that came behind the one at this place the last time. By places, so that a guess needs nothing but
    /// the guess before it.
    std::uint32_t& behind(std::uint32_t place) noexcept { return m_behind[place % m_behind.size()]; }

    MemberOrder() = default;

private:
    explicit MemberOrder(const NameIndex& names) noexcept : m_names(&names) {}

    const NameIndex* m_names = nullptr;
    std::uint32_t m_first = 0;
    std::array<std::uint32_t, 256> m_behind{}; // where the index has more places, some share one
};

} // namespace PerchAppLibrary
