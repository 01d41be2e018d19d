#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// A request for a preview image of a font, and the address of the image in the reply.
class FontImageItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(FontImageItem, PerchAppLibrary::BaseEntity);

    /// User who requests the image.
    PERCH_PROPERTY(std::string, UserGuid);
    /// Identifier of the font product to render.
    PERCH_PROPERTY(std::int64_t, ProductId);
    /// The image is private.
    PERCH_PROPERTY(bool, IsPrivate);
    /// Text to render.
    PERCH_PROPERTY(std::string, PreviewText);
    /// Background colour: "#" and six hexadecimal digits. Black by default.
    PERCH_PROPERTY(std::string, BackColor, "#000000");
    /// Text colour, in the form of BackColor. White by default.
    PERCH_PROPERTY(std::string, ForeColor, "#FFFFFF");
    /// Size of the rendered text, in points. 32 by default.
    PERCH_PROPERTY(float, EmSize, 32.0F);
    /// Address of the rendered image, from the reply.
    PERCH_PROPERTY(std::string, PreviewUrl);

    /// The request: ProductId, PreviewText, BackColor, ForeColor and EmSize only.
    PERCH_COMPUTED(PerchAppLibrary::Dictionary, Dict);

    PERCH_RECORD_END;
};

} // namespace VelmoCloudEntity
