#pragma once

#include <VelmoCloudEntity/entity/RecordList.hpp>
#include <VelmoCloudEntity/font/FontItem.hpp>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace VelmoCloudEntity {

class FontTagItem; // completed by VelmoCloudEntity/catalogue/FontTagItem.hpp

/// The list of fonts that the service sends, one for each object in a JSON array, and the queries
/// over trees of fonts. Elements of the array that are not objects are ignored.
///
/// A query takes any array of fonts: a list, a group's Children, or one built by the client. Unless
/// it says otherwise, it walks the tree once, depth first, and returns or marks leaf fonts only.
/// Results share the fonts of the tree, in its order; a font that occurs twice in the tree occurs
/// twice in the result. Fonts are read and written through their virtual accessors. Requires that
/// no font is null; a debug build asserts it. entity/RecordTree.hpp lets you visit the leaves.
///
/// Texts may hold any bytes; ill-formed ones count as U+FFFD. Texts are equal if canonically
/// equivalent (UAX #15). text::Needle defines when a name contains a key: case is ignored by the
/// root locale's full mapping, and a match never separates a letter from its accents. No name
/// contains an empty key. Searching is linear in the lengths of names and key together.
///
/// Any number of threads may read one tree at the same time, searches included, as long as no
/// thread changes it. Setting a property is a change, and so are setActivatedFont() and
/// setFavoritedFont(). Nothing is locked.
class FontList : public RecordList<FontList, FontItem, Elements::objects> {
public:
    using RecordList::RecordList;
    static constexpr auto parsing = Parsing::direct;

    /// Returns the fonts whose IsActivated is true.
    static Records<FontItem> getActivatedFont(const Records<FontItem>& list);

    /// Returns the fonts whose IsFavorited is true.
    static Records<FontItem> getFavoritedFont(const Records<FontItem>& list);

    /// Returns the fonts whose IsAuthed is true: those that the user is authorised for.
    static Records<FontItem> getAuthorizedFont(const Records<FontItem>& list);

    /// Sets IsActivated of each font of `list` that matches a font of `activatedFont`. Never clears
    /// it. A font whose Id is 1 or more matches a font with an equal Id and IsPrivate. Any other
    /// font matches a font with a canonically equivalent ProductName. Linear in both together.
    static void setActivatedFont(const Records<FontItem>& list,
                                 const Records<FontItem>& activatedFont);

    /// Sets IsFavorited, with the matches of setActivatedFont().
    static void setFavoritedFont(const Records<FontItem>& list,
                                 const Records<FontItem>& favoritedFont);

    /// Returns the fonts whose ProductName equals `fontName`, case included; an empty one finds
    /// fonts whose ProductName is empty. With `fuzzy`, returns those whose ProductName contains it.
    static Records<FontItem> getFontByName(const Records<FontItem>& list,
                                           const std::string& fontName, bool fuzzy);

    /// Returns the fonts whose ProductName, ProductSetName or ProductFileName equals the key, case
    /// ignored; an empty key finds those with an empty name among the three. With `fuzzy`, returns
    /// those in which one of the three, or DisplayName, contains the key.
    static Records<FontItem> getFontByKey(const Records<FontItem>& list, const std::string& key,
                                          bool fuzzy);

    /// Returns the two lists of a search box: the fonts that getFontByKey() finds with `fuzzy`, and
    /// those that isFontMatchedByCharacter() accepts. A font may be in both.
    static std::pair<Records<FontItem>, Records<FontItem>>
    getSearchResultFont(const Records<FontItem>& list, const std::string& key);

    /// Returns whether one of the key's first N UTF-16 code units occurs in ProductName,
    /// ProductSetName, ProductFileName or DisplayName, where N is its number of user-perceived
    /// characters (UAX #29). For most keys these units are its characters. Half of a surrogate pair
    /// occurs in no name.
    static bool isFontMatchedByCharacter(const std::shared_ptr<FontItem>& font,
                                         const std::string& key);

    /// Returns the fonts with one of these Ids, which may be unknown or repeated. Linear in fonts
    /// and identifiers together.
    static Records<FontItem> getFontById(const Records<FontItem>& list,
                                         const std::vector<std::int64_t>& fontIdList);

    /// Returns the first item of `list`, font or group, with this Id, or null if there is none.
    /// Test the result before you pass it on: no other function takes a null. Searches no group.
    static std::shared_ptr<FontItem> getFontItemById(const Records<FontItem>& list,
                                                     std::int64_t fontId);

    /// Returns the fonts whose Tags contain the Id of every tag; without tags, all fonts.
    static Records<FontItem> getFontByTags(const Records<FontItem>& list,
                                           const Records<FontTagItem>& tags);

    /// Returns the number of leaf fonts.
    static std::int64_t getFontCount(const Records<FontItem>& list);

    /// Returns the number of activated leaf fonts.
    static std::int64_t getActivatedFontCount(const Records<FontItem>& list);
};

} // namespace VelmoCloudEntity
