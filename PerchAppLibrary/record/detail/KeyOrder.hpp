#pragma once

#include <array>
#include <cstdint>

namespace PerchAppLibrary {

class NameIndex;

/// Remembers which key followed which in earlier JSON objects. The objects of one array nearly
/// always have their keys in one order, so the next key can be guessed before it is looked up. A
/// wrong guess costs time only.
class KeyOrder {
public:
    KeyOrder() noexcept {
    } // NOLINT(modernize-use-equals-default): zeros would cost each single record

    /// Forgets the keys of another class, whose index has other slots.
    void startRecord(const NameIndex& names) noexcept {
        if (m_names == &names)
            return;
        m_names = &names;
        m_first = 0;
        m_after.fill(0);
    }

    /// The slot in the index of the first key of the last object.
    std::uint32_t& first() noexcept { return m_first; }

    /// The slot of the key that last followed the key in this slot. By slots, so that a guess waits
    /// for nothing but the guess before it.
    std::uint32_t& after(std::uint32_t slot) noexcept { return m_after[slot % m_after.size()]; }

private:
    const NameIndex* m_names = nullptr;
    std::uint32_t m_first = 0;
    std::array<std::uint32_t, 256>
        m_after; // set by startRecord(); slots of a larger index share entries
};

} // namespace PerchAppLibrary
