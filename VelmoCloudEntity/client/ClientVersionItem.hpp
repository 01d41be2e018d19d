#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace VelmoCloudEntity {

/// A released version of a client.
class ClientVersionItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(ClientVersionItem, PerchAppLibrary::BaseEntity);

    /// Platform of the version. 1 by default.
    PERCH_PROPERTY(std::int64_t, PlatformId, 1);
    /// Number of the version, as text.
    PERCH_PROPERTY(std::string, Version);
    /// Tag of the version.
    PERCH_PROPERTY(std::string, VersionTag);
    /// Address of the download.
    PERCH_PROPERTY(std::string, Url);
    /// New features, one text each.
    PERCH_PROPERTY(std::vector<std::string>, News);
    /// Fixed bugs, one text each.
    PERCH_PROPERTY(std::vector<std::string>, Bugs);

    PERCH_RECORD_END;

    /// Labels of a version: create({.version = "2.0", .versionTag = "t"}).
    PERCH_LABELS(VersionLabels, (version, Version), (versionTag, VersionTag));

    /// Labels of a platform without a version: create({.platformId = 3}).
    PERCH_LABELS(PlatformLabels, (platformId, PlatformId));
};

} // namespace VelmoCloudEntity
