#pragma once

#include <PerchAppLibrary/platform/ComparedText.hpp>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace PerchAppLibrary::text {

/// What the folded forms of some texts are made of, in 24 bytes: which characters of ASCII they hold, and which pairs of
/// neighbouring bytes, these hashed (a Bloom filter). Most texts that do not hold a needle are told from it alone.
class TextSignature {
public:
    /// Of no text.
    TextSignature() = default;

    /// Adds a text. Requires one of Case::ignored. Linear.
    void add(const ComparedText& folded) noexcept;

    /// Whether all that the part is made of is here. If not, no text of the part is in any text of this.
    bool covers(const TextSignature& part) const noexcept {
        return (part.m_characters & characterBits & ~m_characters) == 0 &&
               (part.m_pairs[0] & ~m_pairs[0]) == 0 && (part.m_pairs[1] & ~m_pairs[1]) == 0;
    }

    /// Whether this and the other have a character of ASCII in common, as far as it is told exactly (isExact()).
    bool sharesCharacter(const TextSignature& other) const noexcept {
        return (m_characters & other.m_characters & characterBits) != 0;
    }

    /// Whether all texts are plain, so that a character that is in one of them is in it as a needle, too.
    bool isPlain() const noexcept { return (m_characters & plainBit) != 0; }

    /// Whether signatures tell for certain if a character, folded, is in a text that is plain.
    static bool isExact(std::string_view character) noexcept {
        return character.size() == 1 && character.front() >= firstCharacter &&
               character.front() < behindCharacters;
    }

private:
    friend class CachedSignature;

    /// Folded ASCII has no small letters, so these are nearly all that comes up: space, digits, capital letters, punctuation.
    static constexpr char firstCharacter = ' ';
    static constexpr char behindCharacters = '^';
    static constexpr std::uint64_t plainBit = std::uint64_t{1} << 62U;
    static constexpr std::uint64_t characterBits = plainBit - 1; // a bit for each, from the lowest

    std::uint64_t m_characters = plainBit;
    std::array<std::uint64_t, 2> m_pairs{};
};

/// A signature that is worked out when it is asked for first, and again after what it is of has changed. It may be
/// asked for by several threads at once.
class CachedSignature {
public:
    /// The signature; `make()` works it out.
    template <class Make>
    TextSignature get(Make&& make) const {
        TextSignature signature;
        signature.m_characters = m_words[0].load(std::memory_order_acquire);
        if ((signature.m_characters & knownBit) == 0) {
            signature = make();
            keep(signature);
            return signature;
        }
        for (std::size_t word = 0; word < 2; ++word)
            signature.m_pairs[word] = m_words[word + 1].load(std::memory_order_relaxed);
        return signature;
    }

    void forget() noexcept { m_words[0].store(0, std::memory_order_relaxed); }

private:
    static constexpr std::uint64_t knownBit = std::uint64_t{1} << 63U;

    void keep(const TextSignature& signature) const noexcept;

    mutable std::array<std::atomic<std::uint64_t>, 3> m_words{};
};

} // namespace PerchAppLibrary::text
