#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <boost/container/small_vector.hpp>

#include <simdjson.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace PerchAppLibrary {

/// One filling of a record from a JSON object: exclude() what the mapping leaves alone, add() the members, finish().
///
/// In one pass over the members, it fills at once the fields that nobody but the mapping sees while it runs. The other properties are
/// set by finish(): in their order, each to the last value under its key.
class Filling {
public:
    explicit Filling(BaseEntity& record);

    const RecordSchema& schema() const { return m_schema; }

    void exclude(std::size_t index) { m_ways[index] = Way::excluded; }

    /// The members of the object; once.
    void add(simdjson::dom::object members);

    /// The last element under the key of an excluded property, if there is one.
    std::optional<simdjson::dom::element> excluded(std::size_t index) const;

    void finish() const;

private:
    /// Without an element until it is set, since most properties of most records have none.
    union Slot {
        Slot() noexcept {} // NOLINT(modernize-use-equals-default): the member has a constructor of its own
        simdjson::dom::element element;
    };

    /// A bit for each of the properties that have an element in their slot.
    static constexpr std::size_t wordBits = 64;

    void keep(std::size_t index, simdjson::dom::element element) {
        m_slots[index].element = element;
        m_kept[index / wordBits] |= std::uint64_t{1} << (index % wordBits);
    }

    /// Records of up to this many properties are filled without a separate allocation.
    static constexpr std::size_t usualCount = 64;

    BaseEntity& m_record;
    const RecordSchema& m_schema;
    boost::container::small_vector<Way, usualCount> m_ways;
    boost::container::small_vector<Slot, usualCount> m_slots;
    boost::container::small_vector<std::uint64_t, usualCount / wordBits> m_kept;
};

} // namespace PerchAppLibrary
