#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>
#include <PerchAppLibrary/json/JSON.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace VelmoCloudEntity {

/// An error that the service reports: instead of what was asked for, or in a record beside it.
struct ServiceError {
    /// The code of the error, such as "005001". Empty if the service sends none.
    std::string code;

    /// The message that the service sends with it, perhaps empty.
    std::string message;

    /// Returns the message to show, in the language "Ch" or "En": that of ExceptionItem for the
    /// code. For a code that has none there, and for any other language, returns `message`.
    std::string text(std::string_view language) const;
};

/// Returns the error that a record reports, or nullopt if Exception, ErrorCode, ExceptionCode and
/// ExceptionMessage have their defaults. The code is ExceptionCode; if that is empty, ErrorCode
/// with leading zeros to six digits.
std::optional<ServiceError> serviceError(const PerchAppLibrary::BaseEntity& record);

/// Returns the error that a reply reports: that of a record that is filled from it. A list reports
/// none. Constant time for a list, linear in the members of an object.
std::optional<ServiceError> serviceError(const PerchAppLibrary::JSON& reply);

} // namespace VelmoCloudEntity
