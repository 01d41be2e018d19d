#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <string>

namespace VelmoCloudEntity {

/// A user's upload of a font file.
class FontUploadItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(FontUploadItem, PerchAppLibrary::BaseEntity);

    /// User who uploads.
    PERCH_PROPERTY(std::string, UserGuid);
    /// Name of the uploaded file.
    PERCH_PROPERTY(std::string, ProductFileName);

    /// The two properties above only.
    PERCH_COMPUTED(PerchAppLibrary::Dictionary, Dict);

    PERCH_RECORD_END;
};

} // namespace VelmoCloudEntity
