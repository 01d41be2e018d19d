#pragma once

#include <forward_list>
#include <string>
#include <utility>

namespace PerchAppLibrary {

/// Texts that most records do not have, each under a key. A record that has none pays for one pointer.
class RareTexts {
public:
    /// The text under the key, empty when there is none. It lives until it is set again.
    const std::string& operator[](int key) const noexcept {
        static const std::string none;
        for (const auto& [textKey, text] : m_texts)
            if (textKey == key)
                return text;
        return none;
    }

    /// Setting an empty text where there is none takes no memory.
    void set(int key, std::string text) {
        for (auto& [textKey, oldText] : m_texts)
            if (textKey == key) {
                oldText = std::move(text);
                return;
            }
        if (!text.empty())
            m_texts.emplace_front(key, std::move(text));
    }

private:
    std::forward_list<std::pair<int, std::string>> m_texts; // which stay where they are when others come
};

} // namespace PerchAppLibrary
