// Fuzzes the queries over trees of fonts: each gives what the literal reading of its rule gives.
#include "Texts.hpp"

#include <tests/literal/LiteralSearch.hpp>

#include <VelmoCloudEntity/catalogue/FontTagItem.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/text/Text.hpp>

#include <array>
#include <functional>

using namespace VelmoCloudEntity;
using namespace PerchAppLibrary;

namespace {

using Fonts = Records<FontItem>;

constexpr std::array setters{&FontItem::setProductName, &FontItem::setProductSetName,
                             &FontItem::setProductFileName, &FontItem::setDisplayName};
constexpr std::array keys{"ProductName", "ProductSetName", "ProductFileName", "displayName"};
constexpr std::array<std::int64_t, 9> ids{0, 1, 2, 3, 64, 400'000, -1, INT64_MAX, INT64_MIN};

/// A font whose accessors return other values than the stored ones: one of its names, and more.
struct ClientFont : FontItem {
    using Base = FontItem;
    std::size_t overridden = 0;
    std::string name;
    std::vector<std::int64_t> tags;
    Fonts members;
    const std::string& pick(std::size_t index, const std::string& base) const {
        return index == overridden ? name : base;
    }
    const std::string& ProductName() const override { return pick(0, Base::ProductName()); }
    const std::string& ProductSetName() const override { return pick(1, Base::ProductSetName()); }
    const std::string& ProductFileName() const override { return pick(2, Base::ProductFileName()); }
    std::string DisplayName() const override { return pick(3, Base::DisplayName()); }
    const std::string& displayName() const override { return pick(4, Base::displayName()); }
    std::int64_t Id() const override { return Base::Id() ^ 1; }
    bool IsPrivate() const override { return !Base::IsPrivate(); }
    bool IsAuthed() const override { return !Base::IsAuthed(); }
    bool isActivated() const override { return !Base::isActivated(); }
    void setIsActivated(bool flag) override { Base::setIsActivated(!flag); }
    bool IsFavorited() const override { return !Base::IsFavorited(); }
    void setIsFavorited(bool flag) override { Base::setIsFavorited(!flag); }
    bool IsGroup() const override { return !Base::IsGroup(); }
    const std::vector<std::int64_t>& Tags() const override { return tags; }
    const Fonts& Children() const override { return members; }
    void setChildren(Fonts fonts) override { members = std::move(fonts); }
};

/// Makes a tree, and keys that mostly come from its names.
class Tree {
public:
    explicit Tree(Input& choices) : input(choices), texts(choices), top(list(0)) {}

    std::string key() {
        std::string text = input.oneIn(8) ? texts.fresh() : input.pick(names);
        if (!input.oneIn(3))
            text = texts.part(text);
        if (input.oneIn(12))
            text += texts.part(texts.fresh());
        return input.oneIn(24) ? "" : texts.respelled(text);
    }

    std::vector<std::int64_t> someIds() {
        std::vector<std::int64_t> some(input.below(4));
        for (std::int64_t& id : some)
            id = input.pick(ids);
        return some;
    }

    Fonts some() {
        Fonts chosen;
        for (std::size_t count = input.below(4); count > 0; --count)
            chosen.push_back(input.pick(made));
        return chosen;
    }

    /// Renames a font, through a setter or from JSON.
    void rename() {
        FontItem& font = *input.pick(made);
        const std::size_t which = input.below(setters.size());
        if (input.oneIn(2)) {
            (font.*setters[which])(name());
            return;
        }
        const auto json = JSON::parse(toText(Dictionary{{keys[which], text::wellFormed(name())}}));
        input.oneIn(2) ? font.setValue(json) : font.setValue(json, {});
    }

private:
    std::string name() {
        names.push_back(input.oneIn(4) ? texts.respelled(input.pick(names)) : texts.fresh());
        return names.back();
    }

    std::shared_ptr<FontItem> font() {
        auto font = FontItem::create();
        if (input.oneIn(8)) {
            auto client = FontItem::create<ClientFont>();
            client->overridden = input.below(5);
            client->name = name();
            client->tags = someIds();
            font = client;
        }
        for (std::size_t which = 0; which < setters.size(); ++which)
            if (!input.oneIn(which == 0 ? 16 : 3))
                ((*font).*setters[which])(name());
        font->setPostscriptName(name()); // no query reads it
        font->setId(input.pick(ids));
        font->setIsPrivate(input.oneIn(3));
        font->setTags(someIds());
        font->setIsActivated(input.oneIn(8));
        font->setIsFavorited(input.oneIn(8));
        font->setIsAuthed(input.oneIn(4));
        return font;
    }

    Fonts list(int depth) {
        Fonts result;
        const std::size_t most = input.oneIn(32) ? 80 : 5; // more than are prefetched at once
        for (std::size_t count = input.below(most) + (depth == 0 ? 1 : 0); count > 0; --count) {
            if (input.oneIn(8) && !made.empty()) {
                const auto& shared = input.pick(made);
                if (FontList::getFontCount({shared}) < 50) // else a tree could grow exponentially
                    result.push_back(shared);
                continue;
            }
            const auto item = font();
            item->setIsGroup(depth < 3 && input.oneIn(4));
            if (item->IsGroup() || input.oneIn(16))
                item->setChildren(list(depth + 1));
            made.push_back(item);
            result.push_back(item);
        }
        return result;
    }

    Input& input;
    Texts texts;
    std::vector<std::string> names{""};

public:
    Fonts made; // each after what is below it, so no group contains itself
    const Fonts top;
};

void collect(const Fonts& list, Fonts& leaves) {
    for (const auto& font : list)
        font->IsGroup() ? collect(font->Children(), leaves) : leaves.push_back(font);
}

std::string described(const Fonts& list) {
    std::string text;
    for (const auto& font : list)
        text += "\n" + (font ? toText(font->properties()) : "none");
    return text + "\n";
}

void requireEqual(const Fonts& given, const Fonts& expected, const std::string& query) {
    require(given == expected,
            [&] { return query + described(given) + "expected:" + described(expected); });
}

void search(const Fonts& list, const Fonts& all, const std::string& key) {
    const std::string quoted = toText(toValue(key));
    for (const bool fuzzy : {false, true}) {
        requireEqual(FontList::getFontByName(list, key, fuzzy),
                     LiteralSearch::getFontByName(list, key, fuzzy), "by name " + quoted);
        requireEqual(FontList::getFontByKey(list, key, fuzzy),
                     LiteralSearch::getFontByKey(list, key, fuzzy), "by key " + quoted);
    }
    const auto given = FontList::getSearchResultFont(list, key);
    const auto expected = LiteralSearch::getSearchResultFont(list, key);
    requireEqual(given.first, expected.first, "whole key " + quoted);
    requireEqual(given.second, expected.second, "characters " + quoted);
    for (const auto& font : all)
        require(FontList::isFontMatchedByCharacter(font, key) ==
                    LiteralSearch::isFontMatchedByCharacter(font, key),
                [&] { return "font by characters " + quoted + described({font}); });
}

bool hasAll(const std::vector<std::int64_t>& held, const std::vector<std::int64_t>& sought) {
    return std::ranges::all_of(sought, [&](auto id) { return std::ranges::count(held, id) > 0; });
}

void lookUp(const Fonts& list, const Fonts& leaves, const std::vector<std::int64_t>& sought) {
    Fonts byId, byTags;
    std::ranges::copy_if(leaves, std::back_inserter(byId),
                         [&](const auto& leaf) { return hasAll(sought, {leaf->Id()}); });
    std::ranges::copy_if(leaves, std::back_inserter(byTags),
                         [&](const auto& leaf) { return hasAll(leaf->Tags(), sought); });
    Records<FontTagItem> tags;
    for (const std::int64_t id : sought) {
        tags.push_back(FontTagItem::create());
        tags.back()->setId(id);
        tags.back()->setIsGroup(id % 2 == 0); // it counts by its own identifier
        const auto first = std::ranges::find(list, id, &FontItem::Id);
        require(FontList::getFontItemById(list, id) == (first == list.end() ? nullptr : *first),
                "first by identifier");
    }
    requireEqual(FontList::getFontById(list, sought), byId, "by identifiers");
    requireEqual(FontList::getFontByTags(list, tags), byTags, "by tags");
    require(FontList::getFontCount(list) == std::ssize(leaves), "count");
}

bool matches(const FontItem& font, const FontItem& reference) {
    if (font.Id() > 0)
        return font.Id() == reference.Id() && font.IsPrivate() == reference.IsPrivate();
    return text::decomposed(font.ProductName()) == text::decomposed(reference.ProductName());
}

/// Returns the leaves that have the flag or match one of the references.
Fonts marked(const Fonts& leaves, bool (FontItem::*flag)() const, const Fonts& references) {
    Fonts result;
    std::ranges::copy_if(leaves, std::back_inserter(result), [&](const auto& leaf) {
        return std::invoke(flag, leaf) ||
               std::ranges::any_of(
                   references, [&](const auto& reference) { return matches(*leaf, *reference); });
    });
    return result;
}

void mark(const Fonts& list, const Fonts& leaves, const Fonts& references, const Fonts& others) {
    const Fonts activated = marked(leaves, &FontItem::isActivated, references);
    const Fonts favorited = marked(leaves, &FontItem::IsFavorited, others);
    FontList::setActivatedFont(list, references);
    FontList::setFavoritedFont(list, others);
    requireEqual(FontList::getActivatedFont(list), activated, "activated");
    require(FontList::getActivatedFontCount(list) == std::ssize(activated), "count of activated");
    requireEqual(FontList::getFavoritedFont(list), favorited, "favorited");
    requireEqual(FontList::getAuthorizedFont(list), marked(leaves, &FontItem::IsAuthed, {}),
                 "authorized");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    Tree tree(input);
    for (int round = 0; round < 3; ++round) {
        Fonts leaves;
        collect(tree.top, leaves);
        search(tree.top, tree.made, tree.key());
        lookUp(tree.top, leaves, tree.someIds());
        mark(tree.top, leaves, tree.some(), tree.some());
        tree.rename(); // a query keeps a signature of the names that it has read
    }
    return 0;
}
