#pragma once

#include <array>
#include <cstddef>
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

    /// The place, in the index of the names, of the property that came behind this one the last time.
    std::uint32_t& behind(std::size_t property) noexcept { return m_places[property % m_places.size()]; }

    MemberOrder() = default;

private:
    explicit MemberOrder(const NameIndex& names) noexcept : m_names(&names) {}

    const NameIndex* m_names = nullptr;
    std::array<std::uint32_t, 64> m_places{}; // where a class has more properties, some share one
};

} // namespace PerchAppLibrary
