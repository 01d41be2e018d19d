#include <PerchAppLibrary/text/TextSignature.hpp>

#include <PerchAppLibrary/text/detail/Swar.hpp>

namespace PerchAppLibrary::text {

template <class Fold>
void TextSignature::addBytes(std::string_view bytes, Fold fold) noexcept {
    // In registers, since each bit would wait for the one before it in memory.
    std::uint64_t characters = m_characters;
    std::uint64_t low = m_pairs[0];
    std::uint64_t high = m_pairs[1];
    std::uint32_t pair = 0;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const char byte = fold(bytes[at]);
        if (byte >= firstCharacter && byte < endCharacter) [[likely]]
            characters |= std::uint64_t{1} << static_cast<unsigned>(byte - firstCharacter);
        pair = (pair << 8U | static_cast<std::uint8_t>(byte)) & 0xFFFFU;
        if (at == 0)
            continue;
        constexpr std::uint32_t goldenRatio = 0x9E3779B9U;    // 2^32 / phi: spreads close values
        const std::uint32_t hash = pair * goldenRatio >> 25U; // seven bits
        const std::uint64_t bit = std::uint64_t{1} << (hash & 63U);
        const std::uint64_t inHigh = -static_cast<std::uint64_t>(hash >> 6U);
        low |= bit & ~inHigh;
        high |= bit & inHigh;
    }
    m_characters = characters;
    m_pairs = {low, high};
}

void TextSignature::add(const ComparedText& folded) noexcept {
    if (!folded.isPlain())
        m_characters &= ~plainBit;
    addBytes(folded.bytes(), [](char byte) { return byte; });
}

void TextSignature::addASCII(std::string_view text) noexcept {
    addBytes(text, [](char byte) { return upperCasedASCII(byte); });
}

void CachedSignature::store(const TextSignature& signature) const noexcept {
    for (std::size_t word = 0; word < 2; ++word)
        m_words[word + 1].store(signature.m_pairs[word], std::memory_order_relaxed);
    m_words[0].store(signature.m_characters | knownBit, std::memory_order_release);
}

} // namespace PerchAppLibrary::text
