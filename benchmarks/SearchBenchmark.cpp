#include "Benchmarks.hpp"
#include "Comparison.hpp"
#include "QtSearch.hpp"

#include <VelmoCloudEntity/entity/RecordTree.hpp>

#include <tests/literal/LiteralSearch.hpp>

#include <string_view>

namespace {

using VelmoCloudEntity::FontItem;
using VelmoCloudEntity::FontList;

std::size_t digestOfFonts(const Fonts& fonts) {
    return digestOf(fonts, [](const auto& font) { return font->Id(); });
}

std::size_t digestOfLists(const std::pair<Fonts, Fonts>& lists) {
    return digestOfFonts(lists.first) * 3 + digestOfFonts(lists.second);
}

std::size_t digestOfIds(const std::vector<std::int64_t>& ids) {
    return digestOf(ids, [](std::int64_t id) { return id; });
}

/// Adds the library and the literal implementation: `query(search)` runs the query with a FontList
/// or a LiteralSearch.
template <class Query, class Digest>
void addBoth(Comparison& comparison, Query query, Digest digest) {
    comparison.add("VelmoCloudEntity", [query] { return query(FontList()); }, digest);
    comparison.add("ICU, literally", [query] { return query(LiteralSearch()); }, digest);
}

std::shared_ptr<const QtSearch> qtSearchOf(const FontTree& tree) {
    return std::make_shared<const QtSearch>([&tree](const QtSearch::Visitor& visit) {
        forEachLeaf(tree.fonts, [&visit](const std::shared_ptr<FontItem>& leaf) {
            visit(leaf->Id(), {leaf->ProductName(), leaf->ProductSetName(), leaf->ProductFileName(),
                               leaf->DisplayName()});
        });
    });
}

} // namespace

void registerSearch(const std::shared_ptr<const FontTree>& tree) {
    const std::shared_ptr<const QtSearch> qt = qtSearchOf(*tree);
    for (const std::string name : {"light", "宋体"}) {
        Comparison fuzzyName("name \"" + name + "\", fuzzy", tree->leaves);
        addBoth(
            fuzzyName,
            [tree, name](auto search) { return search.getFontByName(tree->fonts, name, true); },
            digestOfFonts);
        fuzzyName.add("Qt", [qt, name] { return qt->fontsByName(name); }, digestOfIds);
    }
    for (const std::string key : {"sans", "宋体", "étude"}) {
        Comparison fuzzyKey("key \"" + key + "\", fuzzy", tree->leaves);
        addBoth(
            fuzzyKey,
            [tree, key](auto search) { return search.getFontByKey(tree->fonts, key, true); },
            digestOfFonts);
        if (key != "étude") // Qt finds only one of its spellings
            fuzzyKey.add("Qt", [qt, key] { return qt->fontsByKey(key); }, digestOfIds);
    }
    Comparison wholeKey("key \"Anuphan-Light.ttf\"", tree->leaves);
    addBoth(
        wholeKey,
        [tree](auto search) {
            return search.getFontByKey(tree->fonts, "anuphan-light.ttf", false);
        },
        digestOfFonts);
    for (const std::string key : {"Hei", "宋体"}) {
        Comparison twoLists("search \"" + key + '"', tree->leaves);
        addBoth(
            twoLists,
            [tree, key](auto search) { return search.getSearchResultFont(tree->fonts, key); },
            digestOfLists);
    }
}
