#pragma once

#include <map>
#include <string>
#include <utility>

namespace PerchAppLibrary {

/// One error of the service: its code and its messages by language ("Ch" Chinese, "En" English).
/// Keeps both arguments as given. Immutable, so any number of threads may share it.
class BaseExceptionEntity {
public:
    BaseExceptionEntity(std::string code, std::map<std::string, std::string> msgDict)
        : m_code(std::move(code)), m_msgDict(std::move(msgDict)) {}

    /// Returns the error code as the service sends it.
    const std::string& code() const noexcept { return m_code; }

    /// Returns the messages, keyed by language.
    const std::map<std::string, std::string>& msgDict() const noexcept { return m_msgDict; }

private:
    std::string m_code;
    std::map<std::string, std::string> m_msgDict;
};

} // namespace PerchAppLibrary
