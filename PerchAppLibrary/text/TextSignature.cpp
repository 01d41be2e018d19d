#include <PerchAppLibrary/text/TextSignature.hpp>

namespace PerchAppLibrary::text {

void TextSignature::add(const ComparedText& folded) noexcept {
    // The bit of each ASCII character that has one.
    static constexpr auto bitOfCharacter = [] {
        std::array<std::uint64_t, 256> bits{};
        for (unsigned byte = firstCharacter; byte < endCharacter; ++byte)
            bits[byte] = std::uint64_t{1} << (byte - firstCharacter);
        return bits;
    }();
    if (!folded.isPlain())
        m_characters &= ~plainBit;
    std::uint64_t characters = 0;
    std::uint64_t low = 0;
    std::uint64_t high = 0;
    unsigned before = ' '; // pairs with a space are left out, behind it
    for (const char each : folded.bytes()) {
        const auto byte = static_cast<std::uint8_t>(each);
        characters |= bitOfCharacter[byte];
        const unsigned hash = 5 * before + byte; // in seven bits
        const std::uint64_t bit = std::uint64_t{before != ' '} << hash % 64;
        const bool isHigh = hash / 64 % 2 != 0;
        low |= isHigh ? 0 : bit;
        high |= isHigh ? bit : 0;
        before = byte;
    }
    m_characters |= characters;
    m_pairs[0] |= low;
    m_pairs[1] |= high;
}

void CachedSignature::store(const TextSignature& signature) const noexcept {
    for (std::size_t word = 0; word < 2; ++word)
        m_words[word + 1].store(signature.m_pairs[word], std::memory_order_relaxed);
    m_words[0].store(signature.m_characters | knownBit, std::memory_order_release);
}

} // namespace PerchAppLibrary::text
