#pragma once

#include <VelmoCloudEntity/catalogue/FontTagItem.hpp>
#include <VelmoCloudEntity/entity/RecordList.hpp>

#include <cstdint>
#include <utility>
#include <vector>

namespace VelmoCloudEntity {

/// The list of tags that the service sends, and the operations of a tag panel.
///
/// They take any array of tags, read and write them through their virtual accessors, and look at
/// the state of the moment. Requires: no tag is null.
class FontTagList : public RecordList<FontTagList, FontTagItem> {
public:
    using RecordList::RecordList;

    /// The ticked plain tags, in the order of the tree: a group is replaced by those below it, at
    /// its place. The sub-tags of a plain tag are not looked at.
    static Records<FontTagItem> getCheckedFontTagList(const Records<FontTagItem>& tags);

    /// Sets IsChecked of every plain tag, in groups at any depth; a group's own stays as it is.
    static void setFontTagItemCheck(const Records<FontTagItem>& tags, bool check);

    /// The identifiers that every tag with something to say lets pass: of a group, those in its
    /// CheckedFontTagFontIdList, if it has one; of a ticked plain tag that has sub-tags, those in
    /// its own FontIdList. A plain tag without sub-tags says nothing here. In ascending order and
    /// without duplicates, but when no tag has anything to say: then `fontIdList` as it is. Linear
    /// in all the lists together while the identifiers lie close together.
    static std::vector<std::int64_t>
    getCheckedFontTagFontIdList(const Records<FontTagItem>& tags,
                                const std::vector<std::int64_t>& fontIdList);
};

} // namespace VelmoCloudEntity
