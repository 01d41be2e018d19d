#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// A user's application for a font.
class FontApplyItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(FontApplyItem, PerchAppLibrary::BaseEntity);

    /// Applying user.
    PERCH_PROPERTY(std::string, UserGuid);
    /// Font concerned.
    PERCH_PROPERTY(std::int64_t, FontId);
    /// Platform of the client.
    PERCH_PROPERTY(std::int64_t, PlatformId, 1);
    /// What the application is for.
    PERCH_PROPERTY(std::string, AppTag);
    /// Free text of the application.
    PERCH_PROPERTY(std::string, Content);

    PERCH_RECORD_END;

    /// Labels of an application: all properties, in their order.
    PERCH_LABELS(ApplicationLabels, (userGuid, UserGuid), (fontId, FontId),
                 (platformId, PlatformId), (appTag, AppTag), (content, Content));
};

} // namespace VelmoCloudEntity
