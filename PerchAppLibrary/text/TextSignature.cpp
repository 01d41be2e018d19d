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
    // The bit of each hash of a pair.
    static constexpr auto bitsOfPair = [] {
        std::array<Pairs, 128> bits{};
        for (unsigned hash = 0; hash < 128; ++hash)
            bits[hash][hash / 64] = std::uint64_t{1} << hash % 64;
        return bits;
    }();
    if (text.empty())
        return;
    constexpr unsigned withoutCase = 0xDF; // equal for small and capital letters
    auto byte = static_cast<std::uint8_t>(text.front());
    std::uint64_t characters = m_characters | bitOfCharacter[byte];
    Pairs pairs = m_pairs;
    for (const char each : text.substr(1)) {
        const unsigned before = byte & withoutCase;
        byte = static_cast<std::uint8_t>(each);
        characters |= bitOfCharacter[byte];
        const Pairs& pair = bitsOfPair[(5 * before + (byte & withoutCase)) % 128];
        pairs[0] |= pair[0];
        pairs[1] |= pair[1];
    }
    m_characters = characters;
    m_pairs = pairs;
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
