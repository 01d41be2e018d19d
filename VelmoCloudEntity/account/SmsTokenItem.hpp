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
    PERCH_FILLED_BY_BASE;
};

} // namespace VelmoCloudEntity
