#pragma once

#include <PerchAppLibrary/text/detail/Swar.hpp>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace PerchAppLibrary {

/// A hash table from names to their positions in a list. Immutable.
///
/// Every key of every record is looked up here, so a lookup has few branches: it hashes the first
/// 16 bytes, as two words, and nearly always ends at the first slot. Names that share their first
/// 16 bytes take longer.
class NameIndex {
public:
    /// Requires distinct names that outlive the index.
    explicit NameIndex(std::span<const std::string_view> names);

    /// Returns the number of names.
    std::uint32_t count() const noexcept { return m_count; }

    /// Returns the position of the name in the list, or count() if it is not there.
    std::uint32_t find(std::string_view name) const noexcept { return find(name, headOf(name)); }

    /// The number of bytes that findReadable() reads.
    static constexpr std::size_t headSize = 2 * text::wordSize;

    /// Like find(), but faster. Requires headSize readable bytes; those after the name are ignored.
    std::uint32_t findReadable(std::string_view name) const noexcept {
        return find(name, headOfReadable(name));
    }

    /// Returns whether the slot is that of this name. Requires headSize readable bytes, and slot
    /// zero or one that slotOf() returned.
    bool isAt(std::uint32_t slot, std::string_view name) const noexcept {
        return m_entries[slot].matches(name, headOfReadable(name));
    }

    /// Returns the slot of the name, or an empty slot. Requires headSize readable bytes.
    std::uint32_t slotOf(std::string_view name) const noexcept {
        return slotOf(name, headOfReadable(name));
    }

    /// Returns what find() returns for the name in this slot.
    std::uint32_t indexAt(std::uint32_t slot) const noexcept { return m_entries[slot].index; }

private:
    /// The first 16 bytes of a name, padded with zeros.
    struct Head {
        text::Word first = 0;
        text::Word second = 0;

        bool operator==(const Head&) const = default;
    };

    struct Entry {
        Head head;
        std::string_view name;
        std::uint32_t index; // number of names if the slot is empty

        bool matches(std::string_view other, Head headOfOther) const noexcept {
            return head == headOfOther && name.size() == other.size() &&
                   (name.size() <= headSize || name == other);
        }
    };

    static Head headOf(std::string_view name) noexcept;

    /// Ones, then zeros. Read from offset `headSize - n`, it masks the first n bytes of a head.
    static constexpr auto headMask = [] {
        std::array<char, 2 * headSize> bytes{};
        std::fill_n(bytes.begin(), headSize, static_cast<char>(0xFF));
        return bytes;
    }();

    static Head headOfReadable(std::string_view name) noexcept {
        const char* const mask = headMask.data() + headSize - std::min(name.size(), headSize);
        return {text::loadWord(name.data()) & text::loadWord(mask),
                text::loadWord(name.data() + text::wordSize) &
                    text::loadWord(mask + text::wordSize)};
    }

    std::uint32_t find(std::string_view name, Head head) const noexcept {
        return indexAt(slotOf(name, head));
    }

    std::uint32_t slotOf(std::string_view name, Head head) const noexcept {
        std::size_t slot = firstSlot(head);
        while (m_entries[slot].index != m_count && !m_entries[slot].matches(name, head))
            [[unlikely]]
            slot = (slot + 1) % m_entries.size();
        return static_cast<std::uint32_t>(slot);
    }

    std::size_t firstSlot(Head head) const noexcept {
        constexpr text::Word goldenRatio = 0x9E3779B97F4A7C15U; // 2^64 / phi: spreads close values
        return static_cast<std::size_t>((head.first ^ std::rotl(head.second, 31)) * goldenRatio >>
                                        m_shift);
    }

    std::uint32_t m_count;
    std::vector<Entry> m_entries; // always has an empty slot, where a failing lookup ends
    unsigned m_shift;             // reduces a hash to its high bits, the number of a slot
};

/// Records which key followed which in earlier JSON objects. The objects of an array nearly always
/// have their keys in one order, so this predicts the next key. A wrong guess costs only time.
class KeyOrder {
public:
    // NOLINTNEXTLINE(modernize-use-equals-default): does not set m_after to zero for each record
    KeyOrder() noexcept {}

    /// Starts a record, and returns whether to guess its keys. Clears the order if it is that of
    /// another class, whose index has other slots.
    bool start(const NameIndex& names) noexcept {
        if (m_names != &names) {
            m_names = &names;
            m_first = 0;
            m_pause = 0;
            m_after.fill(0);
        }
        if (m_pause == 0)
            return true;
        --m_pause;
        return false;
    }

    /// Ends a record whose keys were guessed. After many wrong guesses, the keys of the next
    /// records are looked up, which takes less time than a wrong guess.
    void end(std::size_t wrongGuesses) noexcept {
        constexpr std::size_t many = 6;
        constexpr std::uint32_t pause = 15;
        m_pause = wrongGuesses > many ? pause : 0;
    }

    /// Returns the slot of the last object's first key, for the caller to read and set.
    std::uint32_t& first() noexcept { return m_first; }

    /// Returns the slot of the key that last followed the key in this slot, for the caller to read
    /// and set. Indexed by slot, so a guess depends only on the guess before it.
    std::uint32_t& after(std::uint32_t slot) noexcept { return m_after[slot % m_after.size()]; }

private:
    const NameIndex* m_names = nullptr;
    std::uint32_t m_first = 0;
    std::uint32_t m_pause = 0;              // number of next records whose keys are not guessed
    std::array<std::uint32_t, 256> m_after; // start() sets it; a larger index shares entries
};

} // namespace PerchAppLibrary
