#pragma once

#include <PerchAppLibrary/text/ComparedText.hpp>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace PerchAppLibrary::text {

/// A summary of folded texts in 24 bytes: the ASCII characters that they contain, and a Bloom
/// filter of their pairs of neighbouring bytes. It rules out most texts that lack a needle.
class TextSignature {
public:
    /// Creates the signature of no text.
    TextSignature() = default;

    /// Creates the signature of one text, like add().
    explicit TextSignature(const ComparedText& folded) noexcept { add(folded); }

    /// Adds a text. Requires Case::insensitive. Linear.
    void add(const ComparedText& folded) noexcept;

    /// Adds a text if it is ASCII, which needs no copy, since folding only upper-cases it. Returns
    /// whether it is. Linear.
    bool addASCII(std::string_view text) noexcept;

    /// Returns false only if no text of this contains the text of `part`. Requires that `part` is
    /// of one text.
    bool covers(const TextSignature& part) const noexcept {
        return (part.m_characters & characterBits & ~m_characters) == 0 &&
               (part.m_pairs[0] & ~m_pairs[0]) == 0 && (part.m_pairs[1] & ~m_pairs[1]) == 0;
    }

    /// Returns whether both contain an equal ASCII character among those that isExact() accepts.
    bool sharesCharacter(const TextSignature& other) const noexcept {
        return (m_characters & other.m_characters & characterBits) != 0;
    }

    /// Returns whether all texts are plain, so that each character in them is found as a needle.
    bool isPlain() const noexcept { return (m_characters & plainBit) != 0; }

    /// Returns whether a signature of plain texts decides if they contain this folded character.
    static bool isExact(std::string_view character) noexcept {
        return character.size() == 1 && character.front() >= firstCharacter &&
               character.front() < endCharacter;
    }

private:
    friend class CachedSignature;

    void addBytes(std::string_view text) noexcept;

    /// The characters from space to ']'. Few others occur, since folded ASCII has no small letters.
    static constexpr char firstCharacter = ' ';
    static constexpr char endCharacter = '^';
    static constexpr std::uint64_t plainBit = std::uint64_t{1} << 62U;
    static constexpr std::uint64_t characterBits = plainBit - 1;

    using Pairs = std::array<std::uint64_t, 2>;

    std::uint64_t m_characters = plainBit; // a bit for each character, and plainBit
    Pairs m_pairs{};                       // the Bloom filter, 128 bits
};

/// A signature that is computed on first use and after forget().
///
/// Several threads may call get() at once, as for any read of a record. Like a change of a record,
/// forget() requires that no other thread uses the object.
class CachedSignature {
public:
    /// Returns the signature, and calls `make()` to compute it if it is not known. If several
    /// threads do so at once, each computes it and stores equal words.
    template <class Make>
    TextSignature get(Make&& make) const {
        TextSignature signature;
        signature.m_characters = m_words[0].load(std::memory_order_acquire);
        if ((signature.m_characters & knownBit) == 0) {
            signature = make();
            store(signature);
            return signature;
        }
        for (std::size_t word = 0; word < 2; ++word)
            signature.m_pairs[word] = m_words[word + 1].load(std::memory_order_relaxed);
        return signature;
    }

    bool isKnown() const noexcept {
        return (m_words[0].load(std::memory_order_relaxed) & knownBit) != 0;
    }

    /// Makes the next get() compute the signature again.
    void forget() noexcept { m_words[0].store(0, std::memory_order_relaxed); }

private:
    static constexpr std::uint64_t knownBit = std::uint64_t{1} << 63U;

    void store(const TextSignature& signature) const noexcept;

    /// The words of the signature. The first is stored last (release) and loaded first (acquire),
    /// so a thread that reads knownBit reads the other words as well.
    mutable std::array<std::atomic<std::uint64_t>, 3> m_words{};
};

} // namespace PerchAppLibrary::text
