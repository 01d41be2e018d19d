#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// The data that a web page needs to use a font.
class WebFontItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(WebFontItem, PerchAppLibrary::BaseEntity);

    /// User of the web font.
    PERCH_PROPERTY(std::string, UserGuid);
    /// Identifier of the font product.
    PERCH_PROPERTY(std::int64_t, ProductId);
    /// Characters of the web font, as one text.
    PERCH_PROPERTY(std::string, Chas);
    /// Name of the font family on the page.
    PERCH_PROPERTY(std::string, FontFamily);
    /// Name of the style class that applies the font.
    PERCH_PROPERTY(std::string, ClassName);
    /// Link that the page references.
    PERCH_PROPERTY(std::string, RefLink);

    PERCH_RECORD_END;
};

} // namespace VelmoCloudEntity
