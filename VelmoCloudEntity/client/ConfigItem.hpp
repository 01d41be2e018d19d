#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <optional>
#include <string>

namespace VelmoCloudEntity {

/// The settings that the client keeps. No reply of the service holds them.
class ConfigItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(ConfigItem, PerchAppLibrary::BaseEntity);

    /// Version of the client that ran last.
    PERCH_PROPERTY(std::string, LastUseVersion);
    /// Style of font previews.
    PERCH_PROPERTY(std::string, PreviewTag, "S");
    /// Colour of font previews.
    PERCH_PROPERTY(std::string, PreviewColorTag, "B");
    /// Size of font previews, in points.
    PERCH_PROPERTY(std::int64_t, PreviewFontSize, 32);
    /// Design application that the user works with; named by InteractionAppTagName().
    PERCH_PROPERTY(std::int64_t, InteractionAppTag);
    /// Key code of the hot key.
    PERCH_PROPERTY_SET_BY(std::optional<std::string>, hotKeyCode, setHotKeyCode);
    /// The system's code for the same hot key.
    PERCH_PROPERTY_SET_BY(std::optional<std::string>, systemHotKeyCode, setSystemHotKeyCode);
    /// The hot key as shown.
    PERCH_PROPERTY_SET_BY(std::optional<std::string>, hotKeyString, setHotKeyString);

    /// Whether previews are addressed by their readable names: PreviewTag() is "S", "F", "N" or
    /// "E". The first argument of the preview locations of FontItem.
    PERCH_COMPUTED(bool, UseFixPreviewTag);

    /// The design application: "ps", "ai", "id", "ppt", "word", "sketch" or "keynote" for an
    /// InteractionAppTag() from 0 to 6, empty for any other.
    PERCH_COMPUTED(std::string, InteractionAppTagName);

    /// All stored properties, the base's first; an absent hot key as null.
    PERCH_COMPUTED(PerchAppLibrary::Dictionary, Dict);

    PERCH_RECORD_END;

    /// There is no create(json).
    static constexpr auto jsonFilling = PerchAppLibrary::JSONFilling::none;
};

} // namespace VelmoCloudEntity
