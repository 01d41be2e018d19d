#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// What lets a font be used on a web page.
class WebFontItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(WebFontItem, PerchAppLibrary::BaseEntity);

    /// User.
    PERCH_PROPERTY(std::string, UserGuid);
    /// Font product.
    PERCH_PROPERTY(std::int64_t, ProductId);
    /// Characters that the web font covers, as text.
    PERCH_PROPERTY(std::string, Chas);
    /// Font family to use on the page.
    PERCH_PROPERTY(std::string, FontFamily);
    /// Style class that applies the font.
    PERCH_PROPERTY(std::string, ClassName);
    /// Link to reference from the page.
    PERCH_PROPERTY(std::string, RefLink);

    PERCH_RECORD_END;
};

} // namespace VelmoCloudEntity
