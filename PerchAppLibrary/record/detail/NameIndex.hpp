#pragma once

#include <PerchAppLibrary/text/detail/Swar.hpp>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>
#include <vector>

namespace PerchAppLibrary {

/// Finds the place of a name among names that differ in their first sixteen bytes, as those of
/// properties nearly always do. Immutable.
///
/// Every key of every record is looked up. So a look takes the key as two words, whatever its
/// length, and goes to one place, where the name nearly always stands: there is little to branch
/// on.
class NameIndex {
public:
    /// Of different names, which live as long as the index.
    explicit NameIndex(std::span<const std::string_view> names);

    /// The place of the name among the names; their number for a name that is not among them.
    std::uint32_t find(std::string_view name) const noexcept { return find(name, headOf(name)); }

    /// How many bytes the following two look at.
    static constexpr std::size_t headSize = 2 * text::wordSize;

    /// The same, faster, for a name from the begin of which headSize bytes can be read, whatever
    /// they are.
    std::uint32_t findReadable(std::string_view name) const noexcept {
        return find(name, headOfReadable(name));
    }

    /// The same, faster still where the guess is right: the place to look at first, zero or one
    /// that an earlier look left, and afterwards the place where this look ended.
    std::uint32_t findReadable(std::string_view name, std::uint32_t& guess) const noexcept {
        const Entry& guessed = m_entries[guess];
        return guessed.isShortName(name) ? guessed.index : findElsewhere(name, guess);
    }

private:
    /// The first sixteen bytes of a name; behind a shorter one, zeros.
    struct Head {
        text::Word first = 0;
        text::Word second = 0;

        bool operator==(const Head&) const = default;
    };

    /// On one line of the cache.
    struct alignas(64) Entry {
        Head head;
        Head mask; // ones for the bytes of the head that belong to the name
        std::string_view name;
        std::uint32_t shortSize = noSize; // of the name, if it is not longer than its head
        std::uint32_t index = 0;          // the number of names where no name stands

        bool isOf(std::string_view other, Head headOfOther) const noexcept {
            return head == headOfOther && name.size() == other.size() &&
                   (name.size() <= headSize || name == other);
        }

        bool isShortName(std::string_view readable) const noexcept {
            const text::Word first = text::loadWord(readable.data()) & mask.first;
            const text::Word second =
                text::loadWord(readable.data() + text::wordSize) & mask.second;
            return shortSize == readable.size() &&
                   ((first ^ head.first) | (second ^ head.second)) == 0;
        }

        static constexpr std::uint32_t noSize =
            std::numeric_limits<std::uint32_t>::max(); // of no text in a document
    };

    static Head headOf(std::string_view name) noexcept;

    /// Ones, then zeros: from `headSize - n` on, it keeps the first n bytes of a head.
    static constexpr auto headMask = [] {
        std::array<char, 2 * headSize> bytes{};
        std::fill_n(bytes.begin(), headSize, static_cast<char>(0xFF));
        return bytes;
    }();

    static Head maskOf(std::size_t size) noexcept {
        const char* const mask = headMask.data() + headSize - std::min(size, headSize);
        return {text::loadWord(mask), text::loadWord(mask + text::wordSize)};
    }

    static Head headOfReadable(std::string_view name) noexcept {
        const Head mask = maskOf(name.size());
        return {text::loadWord(name.data()) & mask.first,
                text::loadWord(name.data() + text::wordSize) & mask.second};
    }

    std::uint32_t find(std::string_view name, Head head) const noexcept {
        const Entry& first = m_entries[firstPlace(head)];
        return first.isOf(name, head) ? first.index : m_entries[placeOf(name, head)].index;
    }

    std::uint32_t findElsewhere(std::string_view readable, std::uint32_t& guess) const noexcept;

    /// Where the name stands, or a free place.
    std::uint32_t placeOf(std::string_view name, Head head) const noexcept;

    std::size_t firstPlace(Head head) const noexcept {
        constexpr text::Word goldenRatio =
            0x9E3779B97F4A7C15U; // 2^64 divided by it: spreads close numbers
        return static_cast<std::size_t>((head.first ^ std::rotl(head.second, 31)) * goldenRatio >>
                                        m_shift);
    }

    std::size_t next(std::size_t place) const noexcept { return (place + 1) % m_entries.size(); }

    std::uint32_t m_count;
    std::vector<Entry> m_entries; // more than the names, so that a look ends
    unsigned m_shift;             // leaves as many high bits as number the entries
};

} // namespace PerchAppLibrary
