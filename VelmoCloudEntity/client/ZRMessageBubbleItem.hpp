#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// A message shown in a bubble. Its times are texts, neither parsed nor compared.
class ZRMessageBubbleItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(ZRMessageBubbleItem, PerchAppLibrary::BaseEntity);

    /// Title of the message.
    PERCH_PROPERTY(std::string, Title);
    /// Text of the message.
    PERCH_PROPERTY(std::string, Content);
    /// Address that the message links to.
    PERCH_PROPERTY(std::string, Url);
    /// Identifier of the user group that the message is for.
    PERCH_PROPERTY(std::int64_t, UserGroupId);
    /// Name of that group.
    PERCH_PROPERTY(std::string, UserGroupName);
    /// When it was sent.
    PERCH_PROPERTY(std::string, SendTimeStamp);
    /// From when on it is no longer valid.
    PERCH_PROPERTY(std::string, InvalidTimeStamp);
    /// Disabled entries are included.
    PERCH_PROPERTY(bool, ContainDisabled, true);
    /// Tag of the message.
    PERCH_PROPERTY(std::int64_t, Tag);

    PERCH_RECORD_END;
};

} // namespace VelmoCloudEntity
