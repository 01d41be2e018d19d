#pragma once

#include <PerchAppLibrary/BaseExceptionEntity.hpp>

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace VelmoCloudEntity {

/// The error codes that the service sends, each with a message in Chinese ("Ch") and in English
/// ("En"). Each item has its own table.
///
/// A code has six digits: three for the group, three for the error in the group. Groups: 000
/// general, 001 a code with empty messages, 002 phone number, 003 e-mail address, 004 membership,
/// 005 login, 006 bound QQ and WeChat accounts.
class ExceptionItem {
public:
    /// Errors by code.
    using Table =
        std::map<std::string, std::shared_ptr<const PerchAppLibrary::BaseExceptionEntity>>;

    /// Makes the table with all errors.
    ExceptionItem();

    /// Returns the errors by code. The service may send a code that is not among them; the caller
    /// chooses the message for it.
    const Table& Dict() const& noexcept { return m_Dict; }
    Table Dict() && noexcept { return std::move(m_Dict); }

private:
    Table m_Dict;
};

} // namespace VelmoCloudEntity
