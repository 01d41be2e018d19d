#include "Progress.hpp"

#include "Terminal.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>

namespace velmo {
namespace {

constexpr std::chrono::milliseconds interval(100);
constexpr std::uint64_t megabyte = 1'000'000;

/// The reading of a smaller document is slow only if its writer is.
constexpr std::uint64_t leastSize = megabyte;

/// Returns the bar for the part of the size that was read, such as "[#####     ]  50 %".
std::string bar(std::uint64_t read, std::uint64_t size) {
    constexpr std::uint64_t length = 30;
    const std::uint64_t done = std::min(read, size); // a file may grow
    return fmt::format("[{:<{}}] {:3} %", std::string(length * done / size, '#'), length,
                       100 * done / size);
}

} // namespace

const Progress::Clock::time_point Progress::s_begin = Clock::now();

Progress::Progress(std::string name) : m_name(std::move(name)), m_isTerminal(isTerminal(stderr)) {}

bool Progress::isDue() const {
    constexpr std::chrono::milliseconds delay(500);
    return m_isTerminal && m_read >= leastSize && Clock::now() - s_begin >= delay;
}

void Progress::setRead(std::uint64_t read) {
    m_read = read;
    if (!isDue() || Clock::now() < m_next)
        return;
    m_next = Clock::now() + interval;
    show(m_size == 0 ? fmt::format("{} MB", m_read / megabyte) : bar(m_read, m_size));
}

void Progress::begin(const char* step) {
    if (isDue())
        show(fmt::format("{} {} MB", step, m_read / megabyte));
}

void Progress::hide() {
    if (m_isShown)
        std::fputs("\r\033[K", stderr);
    m_isShown = false;
}

void Progress::show(const std::string& state) {
    std::fprintf(stderr, "\rvelmo: %s: %s\033[K", printable(m_name).c_str(), state.c_str());
    std::fflush(stderr);
    m_isShown = true;
}

} // namespace velmo
