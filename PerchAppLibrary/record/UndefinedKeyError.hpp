#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace PerchAppLibrary {

/// Thrown by a lookup of a property by a name that the record does not have.
class UndefinedKeyError : public std::out_of_range {
public:
    UndefinedKeyError(std::string_view className, std::string_view key)
        : std::out_of_range(std::string(className) + " has no property \"" + std::string(key) +
                            "\""),
          m_className(className),
          m_key(key) {}

    /// Returns the name of the record's class.
    const std::string& className() const noexcept { return m_className; }

    /// Returns the unknown name.
    const std::string& key() const noexcept { return m_key; }

private:
    std::string m_className;
    std::string m_key;
};

} // namespace PerchAppLibrary
