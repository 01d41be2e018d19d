#include <PerchAppLibrary/text/TextSignature.hpp>

namespace PerchAppLibrary::text {

void TextSignature::add(const ComparedText& folded) noexcept {
    if (!folded.isPlain())
        m_characters &= ~plainBit;
    std::uint32_t pair = 0;
    bool isFirst = true;
    for (const char byte : folded.bytes()) {
        if (byte >= firstCharacter && byte < endCharacter)
            m_characters |= std::uint64_t{1} << static_cast<unsigned>(byte - firstCharacter);
        pair = (pair << 8U | static_cast<std::uint8_t>(byte)) & 0xFFFFU;
        if (!isFirst) {
            constexpr std::uint32_t goldenRatio = 0x9E3779B9U; // 2^32 / phi: spreads close values
            const std::uint32_t hash = pair * goldenRatio >> 25U; // seven bits
            m_pairs[hash >> 6U] |= std::uint64_t{1} << (hash & 63U);
        }
        isFirst = false;
    }
}

void CachedSignature::store(const TextSignature& signature) const noexcept {
    for (std::size_t word = 0; word < 2; ++word)
        m_words[word + 1].store(signature.m_pairs[word], std::memory_order_relaxed);
    m_words[0].store(signature.m_characters | knownBit, std::memory_order_release);
}

} // namespace PerchAppLibrary::text
