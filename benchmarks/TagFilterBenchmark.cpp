#include "Benchmarks.hpp"
#include "Comparison.hpp"

#include <VelmoCloudEntity/catalogue/FontTagList.hpp>

#include <roaring/roaring.hh>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <random>
#include <set>
#include <unordered_set>

namespace {

using VelmoCloudEntity::FontTagItem;
using VelmoCloudEntity::FontTagList;

using Ids = std::vector<std::int64_t>;
using Tags = VelmoCloudEntity::Records<FontTagItem>;

constexpr std::size_t fontCount = 1'000'000;
constexpr std::size_t groupCount = 3;
constexpr std::size_t tagsInGroup = 10;
constexpr std::size_t fontsOfTag = 100'000;

/// The identifiers of a catalogue, and groups of ticked tags.
struct Panel {
    Ids fontIds;
    Tags groups;
};

/// Returns a panel whose lists are in ascending order, as services send them, or shuffled.
Panel makePanel(bool isAscending) {
    std::mt19937_64 random(42);
    Panel panel;
    panel.fontIds.resize(fontCount);
    std::iota(panel.fontIds.begin(), panel.fontIds.end(), 1);
    const Ids all = panel.fontIds;
    if (!isAscending)
        std::ranges::shuffle(panel.fontIds, random);
    for (std::size_t group = 0; group < groupCount; ++group) {
        Tags tags;
        for (std::size_t tag = 0; tag < tagsInGroup; ++tag) {
            Ids ids;
            std::ranges::sample(all, std::back_inserter(ids), fontsOfTag, random);
            if (!isAscending)
                std::ranges::shuffle(ids, random);
            tags.push_back(FontTagItem::create());
            tags.back()->setIsChecked(true);
            tags.back()->setFontIdList(std::move(ids));
        }
        panel.groups.push_back(FontTagItem::create());
        panel.groups.back()->setIsGroup(true);
        panel.groups.back()->setChildren(std::move(tags));
    }
    return panel;
}

template <class Set>
Ids filterBySets(const Panel& panel) {
    Set passing(panel.fontIds.begin(), panel.fontIds.end());
    for (const auto& group : panel.groups) {
        Set allowed;
        for (const auto& tag : group->Children())
            allowed.insert(tag->FontIdList().begin(), tag->FontIdList().end());
        std::erase_if(passing, [&allowed](std::int64_t id) { return !allowed.contains(id); });
    }
    Ids ids(passing.begin(), passing.end());
    std::ranges::sort(ids);
    return ids;
}

Roaring bitmapOf(const Ids& ids) {
    const std::vector<std::uint32_t> narrow(ids.begin(), ids.end());
    Roaring bitmap;
    bitmap.addMany(narrow.size(), narrow.data());
    return bitmap;
}

Ids filterByRoaring(const Panel& panel) {
    Roaring passing = bitmapOf(panel.fontIds);
    for (const auto& group : panel.groups) {
        std::vector<Roaring> tags;
        for (const auto& tag : group->Children())
            tags.push_back(bitmapOf(tag->FontIdList()));
        std::vector<const Roaring*> pointers(tags.size());
        std::ranges::transform(tags, pointers.begin(), [](const Roaring& tag) { return &tag; });
        passing &= Roaring::fastunion(pointers.size(), pointers.data());
    }
    std::vector<std::uint32_t> narrow(passing.cardinality());
    passing.toUint32Array(narrow.data());
    return {narrow.begin(), narrow.end()};
}

std::size_t digestOfIds(const Ids& ids) {
    return digestOf(ids, [](std::int64_t id) { return id; });
}

} // namespace

void registerTagFilter() {
    for (const bool isAscending : {true, false}) {
        const auto panel = std::make_shared<const Panel>(makePanel(isAscending));
        Comparison filter(isAscending ? "tag filter, lists in order" : "tag filter, lists shuffled",
                          fontCount);
        filter.add(
            "VelmoCloudEntity",
            [panel] {
                return FontTagList::getCheckedFontTagFontIdList(panel->groups, panel->fontIds);
            },
            digestOfIds);
        filter.add("Roaring", [panel] { return filterByRoaring(*panel); }, digestOfIds);
        filter.add(
            "std::set", [panel] { return filterBySets<std::set<std::int64_t>>(*panel); },
            digestOfIds);
        filter.add(
            "std::unordered_set",
            [panel] { return filterBySets<std::unordered_set<std::int64_t>>(*panel); },
            digestOfIds);
    }
}
