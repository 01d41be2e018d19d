#include <PerchAppLibrary/container/internal/IdSet.hpp>

#include <algorithm>
#include <array>
#include <bit>
#include <limits>

namespace PerchAppLibrary {

namespace {

using Ids = IdSet::Ids;

/// A bitmap may have this many words for any number of identifiers.
constexpr std::uint64_t fewWords = 1024;

struct Range {
    std::int64_t least = std::numeric_limits<std::int64_t>::max();
    std::int64_t greatest = std::numeric_limits<std::int64_t>::min();
    std::size_t count = 0;
};

Range rangeOf(std::span<const Ids* const> lists) {
    Range range;
    for (const Ids* const list : lists) {
        range.count += list->size();
        for (const std::int64_t id : *list) {
            range.least = std::min(range.least, id);
            range.greatest = std::max(range.greatest, id);
        }
    }
    return range;
}

} // namespace

IdSet::IdSet(std::span<const Ids* const> lists) {
    const Range range = rangeOf(lists);
    if (range.count == 0)
        return;
    // A multiple of wordBits, so intersect() combines whole words.
    m_first = static_cast<std::uint64_t>(range.least) / wordBits * wordBits;
    const std::uint64_t words =
        (static_cast<std::uint64_t>(range.greatest) - m_first) / wordBits + 1;
    if (words <= std::max<std::uint64_t>(range.count, fewWords)) {
        m_words.resize(words);
        for (const Ids* const list : lists)
            for (const std::int64_t id : *list) {
                const std::uint64_t distance = static_cast<std::uint64_t>(id) - m_first;
                m_words[distance / wordBits] |= std::uint64_t{1} << (distance % wordBits);
            }
        return;
    }
    m_sparse.reserve(range.count);
    for (const Ids* const list : lists)
        m_sparse.insert(m_sparse.end(), list->begin(), list->end());
    std::ranges::sort(m_sparse);
    // NOLINTNEXTLINE(modernize-use-ranges): it returns a subrange, which Clang 15 cannot compile
    m_sparse.erase(std::unique(m_sparse.begin(), m_sparse.end()), m_sparse.end());
}

IdSet::IdSet(const Ids& ids) : IdSet(std::array{&ids}) {}

void IdSet::intersect(const IdSet& other) {
    if (!m_sparse.empty() || !other.m_sparse.empty()) {
        Ids common = ids();
        std::erase_if(common, [&other](std::int64_t id) { return !other.contains(id); });
        *this = IdSet(common);
        return;
    }
    const std::int64_t shift =
        static_cast<std::int64_t>(m_first - other.m_first) / static_cast<std::int64_t>(wordBits);
    for (std::size_t index = 0; index < m_words.size(); ++index) {
        // For a word before the other set's first, the index wraps around to one beyond all words.
        const std::uint64_t theirs = index + static_cast<std::uint64_t>(shift);
        m_words[index] &= theirs < other.m_words.size() ? other.m_words[theirs] : 0;
    }
}

Ids IdSet::ids() const {
    if (!m_sparse.empty())
        return m_sparse;
    Ids ids;
    std::size_t count = 0;
    for (const std::uint64_t word : m_words)
        count += static_cast<std::size_t>(std::popcount(word));
    ids.resize(count);
    auto next = ids.begin();
    for (std::size_t index = 0; index < m_words.size(); ++index)
        for (std::uint64_t word = m_words[index]; word != 0; word &= word - 1) { // clears a bit
            const auto bit = static_cast<std::uint64_t>(std::countr_zero(word));
            *next++ = static_cast<std::int64_t>(m_first + index * wordBits + bit);
        }
    return ids;
}

Ids unionOf(std::span<const Ids* const> lists) { return IdSet(lists).ids(); }

Ids intersectionOf(std::span<const Ids* const> lists) {
    if (lists.empty())
        return {};
    // Shortest first, so each step is linear in its own list.
    std::vector<const Ids*> sorted(lists.begin(), lists.end());
    std::ranges::sort(sorted, {}, &Ids::size);
    IdSet common(*sorted.front());
    for (const Ids* const list : std::span(sorted).subspan(1))
        common.intersect(IdSet(*list));
    return common.ids();
}

} // namespace PerchAppLibrary
