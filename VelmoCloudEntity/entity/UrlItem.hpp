#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <string>

namespace VelmoCloudEntity {

/// A named address.
class UrlItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(UrlItem, PerchAppLibrary::BaseEntity);

    /// Name of the address.
    PERCH_PROPERTY(std::string, Name);
    /// The address.
    PERCH_PROPERTY(std::string, Url);

    PERCH_RECORD_END;

    /// create(json) does not call overrides of the mapping or of setValue().
    static constexpr auto jsonFilling = PerchAppLibrary::JSONFilling::baseMapping;
};

} // namespace VelmoCloudEntity
