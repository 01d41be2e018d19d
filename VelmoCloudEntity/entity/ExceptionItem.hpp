#pragma once

#include <PerchAppLibrary/BaseExceptionEntity.hpp>

#include <map>
#include <memory>
#include <string>

namespace VelmoCloudEntity {

/// The error codes that the service sends, each with a message in Chinese ("Ch") and in English
/// ("En"). Every item has a table of its own.
///
/// A code is six digits, three of a group and three within it. Groups: 000 general, 001 a code
/// without messages, 002 phone number, 003 e-mail address, 004 membership, 005 login, 006 bound QQ
/// and WeChat accounts.
class ExceptionItem {
public:
    using Table =
        std::map<std::string, std::shared_ptr<const PerchAppLibrary::BaseExceptionEntity>>;

    ExceptionItem();

    /// The errors by their codes. What is shown for a code that is not there is for the caller to
    /// say.
    const Table& Dict() const noexcept { return m_Dict; }

private:
    Table m_Dict;
};

} // namespace VelmoCloudEntity
