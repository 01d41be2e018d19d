#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <string>

namespace VelmoCloudEntity {

/// An international dialling prefix.
class PhoneNumberPrefixItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(PhoneNumberPrefixItem, PerchAppLibrary::BaseEntity);

    /// Name of the region, for display.
    PERCH_PROPERTY(std::string, Region);
    /// The prefix, as sent, with or without a plus sign.
    PERCH_PROPERTY(std::string, Prefix);

    PERCH_RECORD_END;

    /// create(json) does not call overrides of the mapping or of setValue().
    static constexpr auto jsonFilling = PerchAppLibrary::JSONFilling::baseMapping;
};

} // namespace VelmoCloudEntity
