#pragma once

#include <VelmoCloudEntity/catalogue/FontTagItem.hpp>
#include <VelmoCloudEntity/entity/RecordList.hpp>

#include <cstdint>
#include <utility>
#include <vector>

namespace VelmoCloudEntity {

/// The list of tags that the service sends, and the operations of a tag panel.
///
/// An operation takes any array of tags, and reads and writes them through their virtual accessors.
/// Nothing is cached. Requires that no tag is null.
class FontTagList : public RecordList<FontTagList, FontTagItem> {
public:
    using RecordList::RecordList;
    static constexpr auto parsing = Parsing::direct;

    /// Returns the ticked plain tags, in the order of the tree, at any depth of groups. The
    /// sub-tags of a plain tag are not read.
    static Records<FontTagItem> getCheckedFontTagList(const Records<FontTagItem>& tags);

    /// Sets IsChecked of every plain tag, at any depth of groups. Leaves a group's own flag
    /// unchanged, and that of the sub-tags of a plain tag.
    static void setFontTagItemCheck(const Records<FontTagItem>& tags, bool check);

    /// Returns the identifiers of `fontIdList` that pass every tag of `tags` that filters. A group
    /// filters by its CheckedFontTagFontIdList unless that is nullopt. A ticked plain tag with
    /// sub-tags filters by its FontIdList. Any other plain tag does not filter.
    ///
    /// The result is in ascending order, without duplicates; if no tag filters, it is `fontIdList`
    /// itself. Linear in the lists together if the identifiers lie close together.
    static std::vector<std::int64_t>
    getCheckedFontTagFontIdList(const Records<FontTagItem>& tags,
                                const std::vector<std::int64_t>& fontIdList);
};

} // namespace VelmoCloudEntity
