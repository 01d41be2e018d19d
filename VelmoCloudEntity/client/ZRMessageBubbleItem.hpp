#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// A message that the client shows in a bubble. Its times are texts that the library does not
/// parse.
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
    /// Name of the user group.
    PERCH_PROPERTY(std::string, UserGroupName);
    /// Time when the message was sent.
    PERCH_PROPERTY(std::string, SendTimeStamp);
    /// Time when the message becomes invalid.
    PERCH_PROPERTY(std::string, InvalidTimeStamp);
    /// Disabled entries are included. True by default.
    PERCH_PROPERTY(bool, ContainDisabled, true);
    /// Tag of the message.
    PERCH_PROPERTY(std::int64_t, Tag);

    PERCH_RECORD_END;
};

} // namespace VelmoCloudEntity
