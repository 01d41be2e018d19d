#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

/// A hash of every field of every font. Loaders with different digests are not compared.
class Digest {
public:
    void add(std::string_view text) { mix(std::hash<std::string_view>()(text)); }
    void add(std::int64_t number) { mix(std::hash<std::int64_t>()(number)); }
    void add(bool flag) { mix(flag ? 3 : 5); }
    void add(const std::vector<std::int64_t>& numbers) {
        for (const std::int64_t number : numbers)
            add(number);
    }
    std::size_t value() const { return m_value; }

private:
    void mix(std::size_t hash) { m_value = (m_value ^ hash) * 0x9E3779B97F4A7C15U; }

    std::size_t m_value = 0;
};
