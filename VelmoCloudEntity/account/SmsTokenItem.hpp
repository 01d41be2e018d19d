#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <string>

namespace VelmoCloudEntity {

/// The reply of the service to a request for an SMS token: a picture.
class SmsTokenItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(SmsTokenItem, PerchAppLibrary::BaseEntity);

    /// The picture, as Base64 text, as sent.
    PERCH_PROPERTY(std::string, ImageBase64String);

    PERCH_RECORD_END;

    /// create(json) does not call overrides of the mapping or of setValue().
    static constexpr auto jsonFilling = PerchAppLibrary::JSONFilling::baseMapping;
};

} // namespace VelmoCloudEntity
