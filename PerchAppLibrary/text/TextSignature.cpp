#include <PerchAppLibrary/text/TextSignature.hpp>

#include <PerchAppLibrary/text/detail/Swar.hpp>

namespace PerchAppLibrary::text {

void TextSignature::addBytes(std::string_view text) noexcept {
    // The bit of each ASCII character that has one. A small letter has that of the capital one.
    static constexpr auto bitOfCharacter = [] {
        std::array<std::uint64_t, 256> bits{};
        for (unsigned byte = 0; byte < 128; ++byte) {
            const char folded = upperCasedASCII(static_cast<char>(byte));
            if (folded >= firstCharacter && folded < endCharacter)
                bits[byte] = std::uint64_t{1} << (folded - firstCharacter);
        }
        return bits;
    }();
    constexpr unsigned withoutCase = 0xDF; // equal for small and capital letters
    std::uint64_t characters = 0;
    std::uint64_t low = 0;
    std::uint64_t high = 0;
    unsigned before = 0; // also for a space, whose pairs are left out
    for (const char each : text) {
        const auto byte = static_cast<std::uint8_t>(each);
        characters |= bitOfCharacter[byte];
        const unsigned hash = 5 * before + (byte & withoutCase); // in seven bits
        const std::uint64_t bit = std::uint64_t{before != 0} << hash % 64;
        const bool isHigh = hash / 64 % 2 != 0;
        low |= isHigh ? 0 : bit;
        high |= isHigh ? bit : 0;
        before = byte & withoutCase;
    }
    m_characters |= characters;
    m_pairs[0] |= low;
    m_pairs[1] |= high;
}

void TextSignature::add(const ComparedText& folded) noexcept {
    if (!folded.isPlain())
        m_characters &= ~plainBit;
    addBytes(folded.bytes());
}

bool TextSignature::addASCII(std::string_view text) noexcept {
    const bool isAdded = isASCII(text);
    if (isAdded)
        addBytes(text);
    return isAdded;
}

void CachedSignature::store(const TextSignature& signature) const noexcept {
    for (std::size_t word = 0; word < 2; ++word)
        m_words[word + 1].store(signature.m_pairs[word], std::memory_order_relaxed);
    m_words[0].store(signature.m_characters | knownBit, std::memory_order_release);
}

} // namespace PerchAppLibrary::text
