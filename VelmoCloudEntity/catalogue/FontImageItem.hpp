#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// What a preview image of a font is rendered from, and its address once it is made.
class FontImageItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(FontImageItem, PerchAppLibrary::BaseEntity);

    /// User who asks for the image.
    PERCH_PROPERTY(std::string, UserGuid);
    /// Font product to render.
    PERCH_PROPERTY(std::int64_t, ProductId);
    /// The image is private.
    PERCH_PROPERTY(bool, IsPrivate);
    /// Text to render.
    PERCH_PROPERTY(std::string, PreviewText);
    /// Background colour: a number sign and six hexadecimal digits.
    PERCH_PROPERTY(std::string, BackColor, "#000000");
    /// Text colour, in the same form.
    PERCH_PROPERTY(std::string, ForeColor, "#FFFFFF");
    /// Size of the rendered text, in points.
    PERCH_PROPERTY(float, EmSize, 32.0F);
    /// Address of the rendered image, from the service's answer.
    PERCH_PROPERTY(std::string, PreviewUrl);

    /// What the service is asked with: ProductId, PreviewText, BackColor, ForeColor, EmSize, and
    /// nothing else.
    PERCH_COMPUTED(PerchAppLibrary::Dictionary, Dict);

    PERCH_RECORD_END;
};

} // namespace VelmoCloudEntity
