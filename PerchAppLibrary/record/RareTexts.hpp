#pragma once

#include <memory>
#include <string>
#include <utility>

namespace PerchAppLibrary {

/// The texts of a record that are empty in most records, each under the number of its property.
/// Takes one pointer, and one node for each text that has ever been set to other than empty.
class RareTexts {
public:
    RareTexts() = default;
    RareTexts(const RareTexts&) = delete;
    RareTexts& operator=(const RareTexts&) = delete;

    /// Returns the text with this number, or an empty one. It lives until it is set or the record
    /// is destroyed. Linear in the number of nodes.
    const std::string& operator[](unsigned number) const noexcept {
        return m_first ? find(number) : empty();
    }

    /// Sets the text with this number. Adds no node for an empty text.
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
