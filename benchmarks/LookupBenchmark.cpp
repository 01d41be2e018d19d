#include "Benchmarks.hpp"
#include "Comparison.hpp"

#include <VelmoCloudEntity/entity/RecordTree.hpp>

#include <boost/unordered/unordered_flat_set.hpp>

#include <cstdint>
#include <unordered_set>

namespace {

using VelmoCloudEntity::FontItem;
using VelmoCloudEntity::FontList;

using Ids = std::vector<std::int64_t>;

Ids idsOfLeaves(const FontTree& tree) {
    Ids ids;
    forEachLeaf(tree.fonts,
                [&ids](const std::shared_ptr<FontItem>& leaf) { ids.push_back(leaf->Id()); });
    return ids;
}

/// Returns every tenth identifier, in reverse order.
Ids tenthOf(const Ids& ids) {
    Ids tenth;
    for (std::size_t index = ids.size() / 10 * 10; index > 0; index -= 10)
        tenth.push_back(ids[index - 1]);
    return tenth;
}

/// Returns the positions of the leaves that are in `wanted`: a hash join.
template <class Set>
std::vector<std::size_t> join(const Ids& leaves, const Ids& wanted) {
    const Set set(wanted.begin(), wanted.end());
    std::vector<std::size_t> positions;
    for (std::size_t position = 0; position < leaves.size(); ++position)
        if (set.contains(leaves[position]))
            positions.push_back(position);
    return positions;
}

template <class List>
std::size_t sizeOf(const List& list) {
    return list.size();
}

/// Adds the join with the standard set, and with a faster set.
void addJoins(Comparison& comparison, const std::shared_ptr<const Ids>& leaves,
              const std::shared_ptr<const Ids>& wanted) {
    using Positions = std::vector<std::size_t>;
    comparison.add(
        "integers, std::unordered_set",
        [leaves, wanted] { return join<std::unordered_set<std::int64_t>>(*leaves, *wanted); },
        sizeOf<Positions>);
    comparison.add(
        "integers, Boost's flat set",
        [leaves, wanted] {
            return join<boost::unordered_flat_set<std::int64_t>>(*leaves, *wanted);
        },
        sizeOf<Positions>);
}

} // namespace

void registerLookup(const std::shared_ptr<const FontTree>& tree) {
    const auto leaves = std::make_shared<const Ids>(idsOfLeaves(*tree));
    const auto wanted = std::make_shared<const Ids>(tenthOf(*leaves));

    Comparison byId("getFontById", tree->leaves);
    byId.add(
        "VelmoCloudEntity", [tree, wanted] { return FontList::getFontById(tree->fonts, *wanted); },
        sizeOf<Fonts>);
    addJoins(byId, leaves, wanted);

    const auto references = std::make_shared<Fonts>();
    for (const std::int64_t id : *wanted)
        references->push_back(FontItem::create({.id = id, .productName = "", .isPrivate = false}));
    for (const auto& [name, marks] : {std::pair("setActivatedFont", &FontList::setActivatedFont),
                                      std::pair("setFavoritedFont", &FontList::setFavoritedFont)}) {
        Comparison marking(name, tree->leaves);
        marking.add(
            "VelmoCloudEntity",
            [tree, references, mark = marks] {
                mark(tree->fonts, *references);
                return references->size(); // The digest counts the marked fonts.
            },
            [tree, mark = marks](std::size_t) {
                return mark == &FontList::setActivatedFont
                           ? FontList::getActivatedFont(tree->fonts).size()
                           : FontList::getFavoritedFont(tree->fonts).size();
            });
        addJoins(marking, leaves, wanted);
    }
}
