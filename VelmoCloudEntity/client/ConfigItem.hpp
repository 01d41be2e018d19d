#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <optional>
#include <string>

namespace VelmoCloudEntity {

/// The settings that the client stores. The service does not send them.
class ConfigItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(ConfigItem, PerchAppLibrary::BaseEntity);

    /// Version of the client that ran last.
    PERCH_PROPERTY(std::string, LastUseVersion);
    /// Style of font previews. "S" by default.
    PERCH_PROPERTY(std::string, PreviewTag, "S");
    /// Colour of font previews. "B" by default.
    PERCH_PROPERTY(std::string, PreviewColorTag, "B");
    /// Size of font previews, in points. 32 by default.
    PERCH_PROPERTY(std::int64_t, PreviewFontSize, 32);
    /// Design application of the user, a number. InteractionAppTagName() is its name.
    PERCH_PROPERTY(std::int64_t, InteractionAppTag);
    /// Key code of the hot key.
    PERCH_PROPERTY_SET_BY(std::optional<std::string>, hotKeyCode, setHotKeyCode);
    /// The system's code for the hot key.
    PERCH_PROPERTY_SET_BY(std::optional<std::string>, systemHotKeyCode, setSystemHotKeyCode);
    /// The hot key as text, for display.
    PERCH_PROPERTY_SET_BY(std::optional<std::string>, hotKeyString, setHotKeyString);

    /// Whether previews have readable names: PreviewTag() is "S", "F", "N" or "E". To be passed as
    /// the first argument of the preview locations of FontItem.
    PERCH_COMPUTED(bool, UseFixPreviewTag);

    /// Name of the design application: "ps", "ai", "id", "ppt", "word", "sketch" or "keynote" for
    /// an InteractionAppTag() of 0 to 6, empty for any other.
    PERCH_COMPUTED(std::string, InteractionAppTagName);

    /// All stored properties, the base's first. An absent hot key is null.
    PERCH_COMPUTED(PerchAppLibrary::Dictionary, Dict);

    PERCH_RECORD_END;

    /// A ConfigItem cannot be created from JSON.
    static constexpr auto jsonFilling = PerchAppLibrary::JSONFilling::none;
};

} // namespace VelmoCloudEntity
