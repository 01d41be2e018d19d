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
    PERCH_FILLED_BY_BASE;
};

} // namespace VelmoCloudEntity
