#include <PerchAppLibrary/text/TextSignature.hpp>

#include <PerchAppLibrary/text/detail/Swar.hpp>

namespace PerchAppLibrary::text {

/// Adds bytes in registers, since each bit would wait for the one before it in memory.
class TextSignature::Adder {
public:
    explicit Adder(TextSignature& signature) : m_signature(signature) {}
    Adder(const Adder&) = delete;
    Adder& operator=(const Adder&) = delete;
    ~Adder() {
        m_signature.m_characters |= m_characters;
        m_signature.m_pairs[0] |= m_low;
        m_signature.m_pairs[1] |= m_high;
    }

    void add(char character) noexcept {
        const auto byte = static_cast<std::uint8_t>(character);
        constexpr std::uint32_t goldenRatio = 0x9E3779B9U; // 2^32 / phi: spreads close values
        if (byte >= firstCharacter && byte < endCharacter) [[likely]]
            m_characters |= std::uint64_t{1} << static_cast<unsigned>(byte - firstCharacter);
        const std::uint32_t hash = (m_before | byte) * goldenRatio >> 25U; // seven bits
        const std::uint64_t bit = m_one << (hash & 63U);
        const std::uint64_t inHigh = -static_cast<std::uint64_t>(hash >> 6U);
        m_low |= bit & ~inHigh;
        m_high |= bit & inHigh;
        m_before = std::uint32_t{byte} << 8U;
        m_one = 1;
    }

private:
    TextSignature& m_signature;
    std::uint64_t m_characters = 0;
    std::uint64_t m_low = 0;
    std::uint64_t m_high = 0;
    std::uint64_t m_one = 0; // zero for the first byte, which ends no pair
    std::uint32_t m_before = 0;
};

void TextSignature::add(const ComparedText& folded) noexcept {
    if (!folded.isPlain())
        m_characters &= ~plainBit;
    Adder adder(*this);
    for (const char byte : folded.bytes())
        adder.add(byte);
}

void TextSignature::addASCII(std::string_view text) noexcept {
    Adder adder(*this);
    for (; text.size() >= wordSize; text.remove_prefix(wordSize)) {
        const Word word = upperCasedASCII(loadWord(text.data()));
        for (std::size_t index = 0; index < wordSize; ++index)
            adder.add(byteOf(word, index));
    }
    for (const char byte : text)
        adder.add(upperCasedASCII(byte));
}

void CachedSignature::store(const TextSignature& signature) const noexcept {
    for (std::size_t word = 0; word < 2; ++word)
        m_words[word + 1].store(signature.m_pairs[word], std::memory_order_relaxed);
    m_words[0].store(signature.m_characters | knownBit, std::memory_order_release);
}

} // namespace PerchAppLibrary::text
