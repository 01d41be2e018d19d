#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

/// Choices that the bytes of a fuzzer make. Behind the last byte, each choice is the first.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size)
        : m_bytes(reinterpret_cast<const char*>(data), size) {}

    bool isAtEnd() const { return m_bytes.empty(); }
    std::string_view rest() const { return m_bytes; }

    /// Returns a number below the bound, which is at most 65,536.
    std::size_t below(std::size_t bound) {
        std::size_t number = next();
        if (bound > 256)
            number = number << 8 | next();
        return number % bound;
    }

    /// Returns true for one of many choices; false behind the last byte if count is above 1.
    bool oneIn(std::size_t count) { return below(count) == count - 1; }

    template <class Range>
    const auto& pick(const Range& range) {
        return *std::next(std::begin(range), static_cast<std::ptrdiff_t>(below(std::size(range))));
    }

private:
    std::size_t next() {
        if (m_bytes.empty())
            return 0;
        const auto byte = static_cast<unsigned char>(m_bytes.front());
        m_bytes.remove_prefix(1);
        return byte;
    }

    std::string_view m_bytes;
};

/// Throws unless the condition is true. No fuzzer catches that, so it ends there. The context is a
/// text, or a function that makes one.
template <class Context>
void require(bool condition, const Context& context) {
    if (condition)
        return;
    if constexpr (std::is_invocable_v<Context>)
        throw std::logic_error(context());
    else
        throw std::logic_error(context);
}

/// Like require(given == expected), but shows both texts.
inline void requireEqual(std::string_view given, std::string_view expected,
                         const std::string& context) {
    if (given != expected)
        throw std::logic_error(context + "\ngiven:    " + std::string(given) +
                               "\nexpected: " + std::string(expected));
}

/// What each fuzzer defines, under the name that libFuzzer calls.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
