#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace velmo {

/// Shows on standard error, if that is a terminal, how far a large document is read. The line
/// appears half a second after the program began, and is removed in the end.
class Progress {
public:
    /// Requires the name of the document in messages.
    explicit Progress(std::string name);

    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress() { hide(); }

    /// Sets the size of the document, or 0 if it is unknown.
    void expect(std::uint64_t size) { m_size = size; }

    /// Sets how many bytes were read.
    void setRead(std::uint64_t read);

    /// Begins a step of unknown length after reading, such as "parsing".
    void begin(const char* step);

    /// Removes the line until the next call of another function.
    void hide();

private:
    using Clock = std::chrono::steady_clock;

    /// Returns whether the document is large and the program has run for half a second.
    bool isDue() const;

    void show(const std::string& state);

    std::string m_name;
    std::uint64_t m_size = 0;
    std::uint64_t m_read = 0;
    static const Clock::time_point s_begin; ///< when the program began

    Clock::time_point m_next; ///< setRead() does not show the line before
    bool m_isTerminal;
    bool m_isShown = false;
};

} // namespace velmo
