#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <string>

namespace VelmoCloudEntity {

/// The picture of the service's reply for an SMS token.
class SmsTokenItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(SmsTokenItem, PerchAppLibrary::BaseEntity);

    /// The picture as Base64 text, as received.
    PERCH_PROPERTY(std::string, ImageBase64String);

    PERCH_RECORD_END;

    /// Overrides of the mapping and of setValue() do not run in create(json).
    static constexpr auto jsonFilling = PerchAppLibrary::JSONFilling::baseMapping;
};

} // namespace VelmoCloudEntity
