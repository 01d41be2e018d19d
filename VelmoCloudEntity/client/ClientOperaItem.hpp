#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// A report of one operation of the user in the client.
class ClientOperaItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(ClientOperaItem, PerchAppLibrary::BaseEntity);

    /// User of the operation.
    PERCH_PROPERTY(std::string, UserGuid);
    /// Platform of this client. Always 1.
    PERCH_CONSTANT(std::int64_t, PlatformId, 1);
    /// Version of the client that reports.
    PERCH_PROPERTY(std::string, ClientVersion);
    /// Name of the operation.
    PERCH_PROPERTY(std::string, OperaTag);
    /// Identifier of the font of the operation, or 0 for none.
    PERCH_PROPERTY(std::int64_t, FontId);
    /// Sort order in use.
    PERCH_PROPERTY(std::string, SortTypeTag);

    PERCH_RECORD_END;

    /// Labels of a report: create({.userGuid = "u", .clientVersion = "2.0", .operaTag = "t"}).
    PERCH_LABELS(ReportLabels, (userGuid, UserGuid), (clientVersion, ClientVersion),
                 (operaTag, OperaTag));
};

} // namespace VelmoCloudEntity
