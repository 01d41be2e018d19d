#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace PerchAppLibrary {

/// A set of identifiers, made for one question and then thrown away: which of many identifiers are
/// in a list.
///
/// Identifiers that lie close together, as those of a catalogue do, are kept as a map of bits, any
/// others in a hash table. Both take memory in proportion to the number of identifiers (or 8 KB),
/// and constant time for each.
class IdSet {
public:
    using Ids = std::vector<std::int64_t>;

    /// The identifiers of the list. Duplicates count once.
    explicit IdSet(const Ids& ids);

    /// The identifiers of all the lists, none of which is null.
    explicit IdSet(std::span<const Ids* const> lists);

    IdSet(IdSet&& other) noexcept;
    IdSet& operator=(IdSet&& other) noexcept;
    ~IdSet();

    bool contains(std::int64_t id) const noexcept {
        if (m_sparse)
            return isInSparse(id);
        // An identifier below the first wraps around to a distance beyond all bits.
        const std::uint64_t distance = static_cast<std::uint64_t>(id) - m_first;
        return distance / wordBits < m_words.size() &&
               (m_words[distance / wordBits] >> (distance % wordBits) & 1U) != 0;
    }

    /// Takes away what is not in the other set.
    void intersect(const IdSet& other);

    /// All of them, in ascending order.
    Ids ids() const;

private:
    struct Sparse;
    static constexpr std::uint64_t wordBits = 64;

    bool isInSparse(std::int64_t id) const noexcept;

    std::uint64_t m_first = 0; // the identifier of the first bit, a multiple of wordBits
    std::vector<std::uint64_t> m_words;
    std::unique_ptr<Sparse> m_sparse; // of identifiers that lie far apart
};

/// The identifiers that are in one of the lists at least, or in each of them: in ascending order,
/// without duplicates. No list is null; of no lists, none. Linear in all of them together while the
/// identifiers lie close together.
IdSet::Ids unionOf(std::span<const IdSet::Ids* const> lists);
IdSet::Ids intersectionOf(std::span<const IdSet::Ids* const> lists);

} // namespace PerchAppLibrary
