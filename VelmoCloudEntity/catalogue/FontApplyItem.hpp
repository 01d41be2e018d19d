#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// A user's application for a font.
class FontApplyItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(FontApplyItem, PerchAppLibrary::BaseEntity);

    /// User who applies.
    PERCH_PROPERTY(std::string, UserGuid);
    /// Identifier of the font.
    PERCH_PROPERTY(std::int64_t, FontId);
    /// Platform of the client. 1 by default.
    PERCH_PROPERTY(std::int64_t, PlatformId, 1);
    /// Purpose of the application.
    PERCH_PROPERTY(std::string, AppTag);
    /// Text of the application.
    PERCH_PROPERTY(std::string, Content);

    PERCH_RECORD_END;

    /// Labels of an application: all properties, in the order above.
    PERCH_LABELS(ApplicationLabels, (userGuid, UserGuid), (fontId, FontId),
                 (platformId, PlatformId), (appTag, AppTag), (content, Content));
};

} // namespace VelmoCloudEntity
