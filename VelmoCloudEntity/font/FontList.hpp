#pragma once

#include <VelmoCloudEntity/entity/RecordList.hpp>
#include <VelmoCloudEntity/font/FontItem.hpp>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace VelmoCloudEntity {

class FontTagItem;

/// The list of fonts that the service sends (one for each object in a JSON array, its other elements dropped), and the
/// queries over trees of fonts.
///
/// The queries take any array of fonts (a list, a group's Children, one that the client put together) and
/// walk it in one pass: depth first and in order, a group being replaced by its members at its place. They
/// return or mark the leaf fonts, never a group; the fonts of a result are those of the input themselves. A
/// font that stands in the tree twice comes twice. Fonts are read and written through their virtual
/// accessors. Requires: no font is null.
///
/// Texts are any bytes, ill-formed ones standing for U+FFFD. They are equal when they are canonically equivalent
/// (UAX #15). A key occurs in a name as a text::Needle does: without regard to case, by the full mapping of the
/// root locale, and in whole characters; an empty key is in nothing. Time is linear in the key and the names.
class FontList : public RecordList<FontList, FontItem, Elements::objects> {
public:
    using RecordList::RecordList;

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

    /// The fonts whose ProductName is the given one or, with `fuzzy`, has it in it.
    ///
    /// The former heeds case, and an empty name finds the fonts that have none; the latter does not, and it finds nothing.
    static Records<FontItem> getFontByName(const Records<FontItem>& list, const std::string& fontName,
                                           bool fuzzy);

    /// The fonts of which ProductName, ProductSetName or ProductFileName is the key but for case or, with `fuzzy`, of
    /// which one of these or DisplayName has the key in it.
    ///
    /// The former does not look at DisplayName, and an empty key finds the fonts with an empty name among the three; the
    /// latter finds nothing then.
    static Records<FontItem> getFontByKey(const Records<FontItem>& list, const std::string& key, bool fuzzy);

    /// What a search box shows: first the fonts that getFontByKey() finds with `fuzzy`, second those that
    /// isFontMatchedByCharacter() accepts. Mostly the former are among the latter.
    static std::pair<Records<FontItem>, Records<FontItem>> getSearchResultFont(const Records<FontItem>& list,
                                                                               const std::string& key);

    /// Whether one of the first N UTF-16 code units of the key, N being its number of user-perceived characters
    /// (UAX #29), occurs in ProductName, ProductSetName, ProductFileName or DisplayName. Of most keys these are its
    /// characters; half of a character that takes two units occurs in nothing.
    static bool isFontMatchedByCharacter(const std::shared_ptr<FontItem>& font, const std::string& key);

    /// The fonts whose Id is one of the given ones, which may be unknown or repeated. Linear in fonts and
    /// identifiers together.
    static Records<FontItem> getFontById(const Records<FontItem>& list,
                                         const std::vector<std::int64_t>& fontIdList);

    /// The first item of the list itself with this Id, be it a font or a group, whose members are not looked at; null
    /// when there is none.
    static std::shared_ptr<FontItem> getFontItemById(const Records<FontItem>& list, std::int64_t fontId);

    /// The fonts whose Tags hold the Id of each of the tags; without tags, all fonts.
    static Records<FontItem> getFontByTags(const Records<FontItem>& list, const Records<FontTagItem>& tags);

    /// Number of leaf fonts.
    static std::int64_t getFontCount(const Records<FontItem>& list);

    /// Number of activated leaf fonts.
    static std::int64_t getActivatedFontCount(const Records<FontItem>& list);
};

} // namespace VelmoCloudEntity
