#pragma once

#include <PerchAppLibrary/needsCxx20.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace PerchAppLibrary {

/// A set of identifiers, for short-lived lookups: which of many identifiers are in a list.
///
/// Dense identifiers, such as those of a catalogue, are stored in a bitmap, others in a sorted
/// array. There is no hash table, since an attacker could choose identifiers that collide in it.
/// Memory is proportional to the number of identifiers, or up to 8 KB for few. Any number of
/// threads may read a set while none changes it.
class IdSet {
public:
    using Ids = std::vector<std::int64_t>;

    /// Stores the identifiers of the list, duplicates once.
    explicit IdSet(const Ids& ids);

    /// Stores the identifiers of all the lists, duplicates once. Requires that no list is null.
    explicit IdSet(std::span<const Ids* const> lists);

    /// Returns whether the identifier is in the set. Constant time in a bitmap, else logarithmic.
    bool contains(std::int64_t id) const noexcept {
        if (!m_sparse.empty())
            return std::ranges::binary_search(m_sparse, id);
        // For an identifier below the first, the distance wraps around to one beyond all bits.
        const std::uint64_t distance = static_cast<std::uint64_t>(id) - m_first;
        return distance / wordBits < m_words.size() &&
               (m_words[distance / wordBits] >> (distance % wordBits) & 1U) != 0;
    }

    /// Removes the identifiers that are not in the other set.
    void intersect(const IdSet& other);

    /// Returns all identifiers, in ascending order.
    Ids ids() const;

private:
    static constexpr std::uint64_t wordBits = 64;

    std::uint64_t m_first = 0; // identifier of the first bit, a multiple of wordBits
    std::vector<std::uint64_t> m_words;
    Ids m_sparse; // sorted; empty unless the identifiers are sparse
};

/// Returns the identifiers in any of the lists, in ascending order without duplicates. Requires
/// that no list is null. Linear in all lists together if the identifiers are dense; sorts them if
/// not.
IdSet::Ids unionOf(std::span<const IdSet::Ids* const> lists);

/// Like unionOf(), but returns the identifiers in all of the lists; none without lists.
IdSet::Ids intersectionOf(std::span<const IdSet::Ids* const> lists);

} // namespace PerchAppLibrary
