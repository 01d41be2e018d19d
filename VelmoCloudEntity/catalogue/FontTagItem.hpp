#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VelmoCloudEntity {

/// A tag that fonts carry, or a group of tags that are ticked and combined together.
///
/// A record whose IsGroup is true is a group and stands for its Children; any other is a plain tag,
/// whose own sub-tags only tell that it filters (see FontTagList::getCheckedFontTagFontIdList()).
/// Sub-tags are shared objects.
///
/// Requires: no tag is below itself, and no sub-tag is null. Any depth is managed but by
/// properties(), which goes down one call for each level.
class FontTagItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(FontTagItem, PerchAppLibrary::BaseEntity);

    /// Display width of the sub-tags' names.
    PERCH_PROPERTY(std::int64_t, SubNameWidth);
    /// Name shown to the user.
    PERCH_PROPERTY(std::string, Name);
    /// Second name.
    PERCH_PROPERTY(std::string, Alias);
    /// The record is a group of the tags in Children.
    PERCH_PROPERTY(bool, IsGroup);
    /// How sub-tags are drawn: text only, or with an image.
    PERCH_PROPERTY(std::string, SubNameTextImageStyle, "TextOnly");
    /// How the sub-tags of a group are laid out.
    PERCH_PROPERTY(std::string, SubNameDisplayStyle, "List");
    /// Number of rows of sub-tags.
    PERCH_PROPERTY(std::int64_t, SubNameRowSum);
    /// Sub-tags in a row.
    PERCH_PROPERTY(std::int64_t, SubTagCountPerRow);
    /// How the ticked sub-tags of a group combine: "Or" or "And".
    PERCH_PROPERTY(std::string, SubTagFilterType, "Or");
    /// Name of the tag's image.
    PERCH_PROPERTY(std::string, TagImageName);
    /// Identifier of the group that the tag belongs to.
    PERCH_PROPERTY(std::int64_t, GroupId);
    /// Position in the order.
    PERCH_PROPERTY(std::int64_t, Ordinal);
    /// The user has ticked the tag.
    PERCH_PROPERTY(bool, IsChecked);
    /// Identifiers of the fonts that carry the tag.
    PERCH_PROPERTY(std::vector<std::int64_t>, FontIdList);
    /// Sub-tags.
    PERCH_PROPERTY(Records<FontTagItem>, Children);

    /// The fonts that the tag leaves on show, by identifier; absent when it does not filter.
    ///
    /// A plain tag: its FontIdList as stored when it is ticked, otherwise absent. A group: the
    /// FontIdLists of its ticked children together with "Or", those in all of them with "And"; by
    /// any other SubTagFilterType the first one's. Absent when no child is ticked, whether the
    /// group itself is ticked or not. Children count as plain tags here, whatever they are. The
    /// list of one child comes as stored, a combination in ascending order and without duplicates.
    /// Linear in all the lists together while the identifiers lie close together.
    PERCH_COMPUTED(std::optional<std::vector<std::int64_t>>, CheckedFontTagFontIdList);

    PERCH_RECORD_END;

    FontTagItem();
    ~FontTagItem() override;
};

} // namespace VelmoCloudEntity
