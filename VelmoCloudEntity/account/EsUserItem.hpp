#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// A user of an enterprise account. Made from JSON only, by create(json), which calls the virtual
/// mapping.
class EsUserItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD_FROM_JSON(EsUserItem, PerchAppLibrary::BaseEntity);

    /// Identifier of the user within the enterprise.
    PERCH_PROPERTY(std::string, UserId);
    /// Password of the request.
    PERCH_PROPERTY(std::string, Pwd);
    /// Identifier of the enterprise.
    PERCH_PROPERTY(std::int64_t, EnterpriseId);
    /// Disabled entries are included. False by default.
    PERCH_PROPERTY(bool, ContainDisabled);
    /// Tag of the request, as the service defines it.
    PERCH_PROPERTY(std::int64_t, Tag);

    /// All stored properties, the base's first.
    PERCH_COMPUTED(PerchAppLibrary::Dictionary, Dict);

    PERCH_RECORD_END;

    /// create(json) calls a subclass's override of the mapping, but not one of setValue(json).
    static constexpr auto jsonFilling = PerchAppLibrary::JSONFilling::mapping;
};

} // namespace VelmoCloudEntity
