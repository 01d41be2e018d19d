#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// A user of an enterprise account. It is always made from JSON: `create(json)`, which runs the
/// virtual mapping.
class EsUserItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD_FROM_JSON(EsUserItem, PerchAppLibrary::BaseEntity);

    /// Identifier of the user within the enterprise.
    PERCH_PROPERTY(std::string, UserId);
    /// Password of the request.
    PERCH_PROPERTY(std::string, Pwd);
    /// Identifier of the enterprise.
    PERCH_PROPERTY(std::int64_t, EnterpriseId);
    /// Disabled entries are included.
    PERCH_PROPERTY(bool, ContainDisabled);
    /// Tag of the request, as the service defines it.
    PERCH_PROPERTY(std::int64_t, Tag);

    /// All stored properties, the base's first.
    PERCH_COMPUTED(PerchAppLibrary::Dictionary, Dict);

    PERCH_RECORD_END;

    /// A subclass's override of the mapping runs in create(json), one of setValue(json) does not.
    static constexpr auto jsonFilling = PerchAppLibrary::JSONFilling::mapping;
};

} // namespace VelmoCloudEntity
