#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace PerchAppLibrary {

class NameIndex;

/// Records which key followed which in earlier JSON objects. The objects of an array nearly always
/// have their keys in one order, so this predicts the next key. A wrong guess costs only time.
class KeyOrder {
public:
    // NOLINTNEXTLINE(modernize-use-equals-default): does not set m_after to zero for each record
    KeyOrder() noexcept {}

    /// Clears the order if it is that of another class, whose index has other slots. Returns
    /// whether to guess the keys of this record.
    bool startRecord(const NameIndex& names) noexcept {
        if (m_names != &names) {
            m_names = &names;
            m_first = 0;
            m_after.fill(0);
            m_unguessed = 0;
        }
        if (m_unguessed == 0)
            return true;
        --m_unguessed;
        return false;
    }

    /// Takes how many guesses of a record were wrong. If many were, the next records are not
    /// guessed, since a wrong guess takes more time than looking up the key.
    void endRecord(std::size_t wrongGuesses) noexcept {
        constexpr std::size_t many = 6;
        constexpr std::uint32_t pause = 15;
        if (wrongGuesses > many)
            m_unguessed = pause;
    }

    /// Returns the slot of the last object's first key, for the caller to read and set.
    std::uint32_t& first() noexcept { return m_first; }

    /// Returns the slot of the key that last followed the key in this slot, for the caller to read
    /// and set. Indexed by slot, so a guess depends only on the guess before it.
    std::uint32_t& after(std::uint32_t slot) noexcept { return m_after[slot % m_after.size()]; }

private:
    const NameIndex* m_names = nullptr;
    std::uint32_t m_first = 0;
    std::uint32_t m_unguessed = 0;          // how many records not to guess
    std::array<std::uint32_t, 256> m_after; // startRecord() sets it; a larger index shares entries
};

} // namespace PerchAppLibrary
