#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// A report of one operation of the user's in the client.
class ClientOperaItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(ClientOperaItem, PerchAppLibrary::BaseEntity);

    /// User who acted.
    PERCH_PROPERTY(std::string, UserGuid);
    /// Platform of this client.
    PERCH_CONSTANT(std::int64_t, PlatformId, 1);
    /// Version of the client that reports.
    PERCH_PROPERTY(std::string, ClientVersion);
    /// Names the operation.
    PERCH_PROPERTY(std::string, OperaTag);
    /// Font that the operation concerned; 0 for none.
    PERCH_PROPERTY(std::int64_t, FontId);
    /// Sort order in use.
    PERCH_PROPERTY(std::string, SortTypeTag);

    PERCH_RECORD_END;

    /// Labels of a report: create({.userGuid = "u", .clientVersion = "2.0", .operaTag = "t"}).
    PERCH_LABELS(ReportLabels, (userGuid, UserGuid), (clientVersion, ClientVersion),
                 (operaTag, OperaTag));
};

} // namespace VelmoCloudEntity
