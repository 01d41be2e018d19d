#include <PerchAppLibrary/text/TextSignature.hpp>

#include <PerchAppLibrary/text/detail/Swar.hpp>

namespace PerchAppLibrary::text {
namespace {

/// For each byte of the word but the last, the hash of it and the byte behind it, in seven bits.
constexpr Word pairHashes(Word word) noexcept {
    const Word bytes = word & ~highBits;
    const Word fourfold = (bytes & repeated(0x1F)) << 2U;
    return (((bytes + fourfold) & ~highBits) + bytesBehind(bytes)) & ~highBits;
}

/// For each of the two words of the filter, the bit of each hash in it.
constexpr auto bitOfPair = [] {
    std::array<std::array<std::uint64_t, 128>, 2> bits{};
    for (std::size_t hash = 0; hash < 128; ++hash)
        bits[hash / 64][hash] = std::uint64_t{1} << hash % 64;
    return bits;
}();

} // namespace

/// Collects bits of its own, which the compiler keeps in registers. Looks them up, since shifts of
/// two words take more instructions.
class TextSignature::Adder {
public:
    /// Adds the text. `fold` folds a word of it.
    template <class Fold>
    void add(std::string_view text, Fold&& fold) noexcept {
        if (text.empty())
            return;
        if (text.size() < wordSize) {
            Word word = 0;
            std::memcpy(&word, text.data(), text.size());
            add(fold(word), text.size());
            return;
        }
        // A pair is in one word, so each word begins with the last byte of the word before it.
        const char* const last = text.data() + text.size() - wordSize;
        for (const char* at = text.data(); at < last; at += wordSize - 1)
            add(fold(loadWord(at)), wordSize);
        add(fold(loadWord(last)), wordSize);
    }

    void addTo(TextSignature& signature) const noexcept {
        signature.m_characters |= m_characters;
        for (std::size_t word = 0; word < 2; ++word)
            signature.m_pairs[word] |= m_pairs[word];
    }

private:
    static constexpr auto bitOfCharacter = [] {
        std::array<std::uint64_t, 256> bits{};
        for (char character = firstCharacter; character < endCharacter; ++character)
            bits[static_cast<std::uint8_t>(character)] = std::uint64_t{1}
                                                         << (character - firstCharacter);
        return bits;
    }();

    /// Adds the first bytes of the word.
    void add(Word word, std::size_t size) noexcept {
        const Word hashes = pairHashes(word);
        for (std::size_t index = 0; index < size; ++index)
            m_characters |= bitOfCharacter[static_cast<std::uint8_t>(byteOf(word, index))];
        for (std::size_t index = 0; index + 1 < size; ++index) {
            const auto hash = static_cast<std::uint8_t>(byteOf(hashes, index));
            m_pairs[0] |= bitOfPair[0][hash];
            m_pairs[1] |= bitOfPair[1][hash];
        }
    }

    std::uint64_t m_characters = 0;
    std::array<std::uint64_t, 2> m_pairs{};
};

void TextSignature::add(const ComparedText& folded) noexcept {
    if (!folded.isPlain())
        m_characters &= ~plainBit;
    Adder adder;
    adder.add(folded.bytes(), [](Word word) { return word; });
    adder.addTo(*this);
}

void TextSignature::addASCII(std::string_view text) noexcept {
    Adder adder;
    adder.add(text, [](Word word) { return upperCasedASCII(word); });
    adder.addTo(*this);
}

void CachedSignature::store(const TextSignature& signature) const noexcept {
    for (std::size_t word = 0; word < 2; ++word)
        m_words[word + 1].store(signature.m_pairs[word], std::memory_order_relaxed);
    m_words[0].store(signature.m_characters | knownBit, std::memory_order_release);
}

} // namespace PerchAppLibrary::text
