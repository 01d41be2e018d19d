#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <string>

namespace VelmoCloudEntity {

/// An international dialling prefix.
class PhoneNumberPrefixItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(PhoneNumberPrefixItem, PerchAppLibrary::BaseEntity);

    /// Name of the region, as shown.
    PERCH_PROPERTY(std::string, Region);
    /// The prefix, as sent: "+86" and "86" are different texts.
    PERCH_PROPERTY(std::string, Prefix);

    PERCH_RECORD_END;

    /// Overrides of the mapping and of setValue() do not run in create(json).
    static constexpr auto jsonFilling = PerchAppLibrary::JSONFilling::baseMapping;
};

} // namespace VelmoCloudEntity
