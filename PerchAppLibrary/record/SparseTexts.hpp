#pragma once

#include <memory>
#include <string>
#include <utility>

namespace PerchAppLibrary {

/// The texts of a record that few records have, each under the number of its property. Takes one
/// pointer, and memory for each text that was once not empty.
class SparseTexts {
public:
    SparseTexts() = default;
    SparseTexts(const SparseTexts&) = delete;
    SparseTexts& operator=(const SparseTexts&) = delete;
    ~SparseTexts();

    /// Returns the text with this number, empty if there is none. It lives until it is set, or the
    /// record is destroyed.
    const std::string& operator[](unsigned number) const noexcept {
        return m_first ? find(number) : empty();
    }

    /// Sets the text with this number. Setting an empty text where there is none takes no memory.
    void set(unsigned number, std::string&& text);

private:
    struct Node {
        unsigned number;
        std::string text;
        std::unique_ptr<Node> next;
    };

    static const std::string& empty() noexcept;
    const std::string& find(unsigned number) const noexcept;

    std::unique_ptr<Node> m_first;
};

} // namespace PerchAppLibrary
