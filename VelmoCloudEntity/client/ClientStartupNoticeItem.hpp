#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <string>

namespace VelmoCloudEntity {

/// A notice that the client shows when it starts.
class ClientStartupNoticeItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(ClientStartupNoticeItem, PerchAppLibrary::BaseEntity);

    /// Title of the notice.
    PERCH_PROPERTY(std::string, Title);
    /// Text of the notice.
    PERCH_PROPERTY(std::string, Content);

    PERCH_RECORD_END;
};

} // namespace VelmoCloudEntity
