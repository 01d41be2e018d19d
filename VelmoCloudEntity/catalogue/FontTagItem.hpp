#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VelmoCloudEntity {

/// A tag of fonts, or a group of tags that filter fonts together.
///
/// A record whose IsGroup is true is a group; its Children are tags or groups. Any other record is
/// a plain tag. Its Children are not read, except that a plain tag without any does not filter (see
/// FontTagList::getCheckedFontTagFontIdList()). Sub-tags are shared: a record may be in several
/// groups.
///
/// Requires that no tag contains itself, at any depth, and that no sub-tag is null. Every operation
/// works at any depth, except that properties() calls itself once for each level.
class FontTagItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(FontTagItem, PerchAppLibrary::BaseEntity);

    /// Display width of the sub-tags' names.
    PERCH_PROPERTY(std::int64_t, SubNameWidth);
    /// Name, for display.
    PERCH_PROPERTY(std::string, Name);
    /// Second name.
    PERCH_PROPERTY(std::string, Alias);
    /// The record is a group of the tags in Children.
    PERCH_PROPERTY(bool, IsGroup);
    /// How sub-tags are drawn: text only, or with an image. "TextOnly" by default.
    PERCH_PROPERTY(std::string, SubNameTextImageStyle, "TextOnly");
    /// How the sub-tags of a group are laid out. "List" by default.
    PERCH_PROPERTY(std::string, SubNameDisplayStyle, "List");
    /// Number of rows of sub-tags.
    PERCH_PROPERTY(std::int64_t, SubNameRowSum);
    /// Number of sub-tags in a row.
    PERCH_PROPERTY(std::int64_t, SubTagCountPerRow);
    /// How the ticked sub-tags of a group combine: "Or" (the default) or "And".
    PERCH_PROPERTY(std::string, SubTagFilterType, "Or");
    /// Name of the tag's image.
    PERCH_PROPERTY(std::string, TagImageName);
    /// Identifier of the group that the tag belongs to.
    PERCH_PROPERTY(std::int64_t, GroupId);
    /// Position among the tags.
    PERCH_PROPERTY(std::int64_t, Ordinal);
    /// The user has ticked the tag.
    PERCH_PROPERTY(bool, IsChecked);
    /// Identifiers of the fonts that have the tag.
    PERCH_PROPERTY(std::vector<std::int64_t>, FontIdList);
    /// Sub-tags.
    PERCH_PROPERTY(Records<FontTagItem>, Children);

    /// Identifiers of the fonts that pass the filter of the tag, or nullopt if it does not filter.
    ///
    /// Of a plain tag: FontIdList if the tag is ticked, otherwise nullopt. Of a group: the
    /// FontIdLists of its ticked children, united if SubTagFilterType is "Or", intersected if it is
    /// "And"; for any other value the list of the first ticked child. Nullopt if no child is
    /// ticked. A group's own IsChecked is not read, and a child that is a group counts as a plain
    /// tag.
    ///
    /// The list of a single tag is as stored. A union or intersection is in ascending order,
    /// without duplicates. Linear in the lists together if the identifiers lie close together.
    PERCH_COMPUTED(std::optional<std::vector<std::int64_t>>, CheckedFontTagFontIdList);

    PERCH_RECORD_END;

    /// Makes a tag with the default of each property.
    FontTagItem();
    /// Destroys the sub-tags that have no other owner, at any depth.
    ~FontTagItem() override;
};

} // namespace VelmoCloudEntity
