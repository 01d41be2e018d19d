#pragma once

#include <VelmoCloudEntity/entity/RecordList.hpp>
#include <VelmoCloudEntity/font/FontItem.hpp>

#include <cstdint>
#include <utility>

namespace VelmoCloudEntity {

/// The list of fonts that the service sends, and the queries over trees of fonts.
///
/// The queries take any array of fonts (a list, a group's Children, one that the client put together) and
/// walk it in one pass: depth first and in order, a group being replaced by its members at its place. They
/// return or mark the leaf fonts, never a group; the fonts of a result are those of the input themselves. A
/// font that stands in the tree twice comes twice. Fonts are read and written through their virtual
/// accessors. Requires: no font is null.
class FontList : private RecordList<FontItem> {
public:
    /// An empty list.
    FontList() = default;

    /// One font for each object in a JSON array, in order; its other elements are dropped. Empty for any other value.
    explicit FontList(const PerchAppLibrary::JSON& json) : RecordList(json, Elements::objects) {}

    /// The fonts, in order.
    const Records<FontItem>& List() const noexcept { return items(); }
    void setList(Records<FontItem> newList) { setItems(std::move(newList)); }

    /// The activated fonts: those whose IsActivated is true.
    static Records<FontItem> getActivatedFont(const Records<FontItem>& list);

    /// The favourite fonts: those whose IsFavorited is true.
    static Records<FontItem> getFavoritedFont(const Records<FontItem>& list);

    /// The fonts that the user is authorised for: those whose IsAuthed is true.
    static Records<FontItem> getAuthorizedFont(const Records<FontItem>& list);

    /// Sets IsActivated of each font that one of the references matches; never clears it, and leaves groups
    /// alone. A font whose Id is 1 or more is matched by a reference with the same Id and the same IsPrivate,
    /// any other by a reference with a canonically equivalent ProductName. Linear in fonts and references together.
    static void setActivatedFont(const Records<FontItem>& list, const Records<FontItem>& activatedFont);

    /// Sets IsFavorited of each font that one of the references matches, by the same rule.
    static void setFavoritedFont(const Records<FontItem>& list, const Records<FontItem>& favoritedFont);

    /// Number of leaf fonts.
    static std::int64_t getFontCount(const Records<FontItem>& list);

    /// Number of activated leaf fonts.
    static std::int64_t getActivatedFontCount(const Records<FontItem>& list);
};

} // namespace VelmoCloudEntity
