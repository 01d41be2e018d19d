#pragma once

#include <PerchAppLibrary/platform/Words.hpp>

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

/// Finds the place of a name among names that differ in their first sixteen bytes, as those of properties nearly always do.
/// Immutable.
///
/// Every key of every record is looked up, in an order that the processor can hardly foresee. So a look takes the key as
/// two words, whatever its length, and goes to one place, where the name stands: there is little to branch on.
class NameIndex {
public:
    /// Of different names, which live as long as the index.
    explicit NameIndex(std::span<const std::string_view> names);

    /// What find() answers for a name that is not among them.
    static constexpr std::size_t notFound = std::numeric_limits<std::uint32_t>::max();

    std::size_t find(std::string_view name) const noexcept { return find(name, headOf(name)); }

    /// How many bytes findReadable() looks at.
    static constexpr std::size_t headSize = 2 * text::wordSize;

    /// The same, faster, for a name from the begin of which headSize bytes can be read, whatever they are.
    std::size_t findReadable(std::string_view name) const noexcept {
        return find(name, headOfReadable(name));
    }

private:
    /// The first sixteen bytes of a name; behind a shorter one, zeros.
    struct Head {
        text::Word first = 0;
        text::Word second = 0;

        bool operator==(const Head&) const = default;
    };

    /// On one line of the cache.
    struct alignas(32) Entry {
        Head head;
        const char* name = nullptr;
        std::uint32_t size = 0;
        std::uint32_t index = notFound;

        bool isOf(std::string_view other, Head headOfOther) const noexcept {
            return head == headOfOther && size == other.size() &&
                   (size <= headSize || std::string_view(name, size) == other);
        }
    };

    static Head headOf(std::string_view name) noexcept;

    /// Ones, then zeros: from `headSize - n` on, it keeps the first n bytes of a head.
    static constexpr auto headMask = [] {
        std::array<char, 2 * headSize> bytes{};
        std::fill_n(bytes.begin(), headSize, static_cast<char>(0xFF));
        return bytes;
    }();

    static Head headOfReadable(std::string_view name) noexcept {
        const char* const mask = headMask.data() + headSize - std::min(name.size(), headSize);
        return {text::loadWord(name.data()) & text::loadWord(mask),
                text::loadWord(name.data() + text::wordSize) & text::loadWord(mask + text::wordSize)};
    }

    std::size_t find(std::string_view name, Head head) const noexcept {
        const Entry& first = m_entries[firstPlace(head)];
        return first.isOf(name, head) ? first.index : findFurther(name, head);
    }

    std::size_t findFurther(std::string_view name, Head head) const noexcept;

    std::size_t firstPlace(Head head) const noexcept {
        return static_cast<std::size_t>((head.first ^ std::rotl(head.second, 31)) * m_factor >> m_shift);
    }

    void chooseFactor(std::span<const std::string_view> names);

    /// How many of the names have to go on from the first place.
    std::size_t displaced(std::span<const std::string_view> names) const;

    std::size_t next(std::size_t place) const noexcept { return (place + 1) % m_entries.size(); }

    std::vector<Entry> m_entries; // more than the names, so that a look ends
    text::Word m_factor = 0;      // odd; spreads close numbers
    unsigned m_shift;             // leaves as many high bits as number the entries
};

} // namespace PerchAppLibrary
