#pragma once

#include <VelmoCloudEntity/entity/RecordTree.hpp>
#include <VelmoCloudEntity/font/FontItem.hpp>

#include <PerchAppLibrary/platform/ComparedText.hpp>
#include <PerchAppLibrary/platform/SearchedText.hpp>
#include <PerchAppLibrary/platform/TextSignature.hpp>

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace VelmoCloudEntity {

/// The names by which a font is searched. For the queries of FontList.
///
/// Most fonts are told from their signatures, which lie beside what a walk reads anyway; the names themselves, each in a place
/// of its own in memory, are read of the few that are left.
class FontNames {
    using TextSignature = PerchAppLibrary::text::TextSignature;

public:
    /// What the signature tells of the names of the font, as the test says: an optional Boolean of a TextSignature.
    template <class Test>
    std::optional<bool> told(const FontItem& font, Test&& test) {
        if (!isSigned(font))
            return std::nullopt;
        const TextSignature signature = font.nameSignature().get([&] { return signatureOf(font); });
        return test(signature);
    }

    /// For namedLeavesWhere(): tells the leaves no name of which has what this signature is of in it, or is that.
    auto mayHold(const TextSignature& sought) {
        return [this, &sought](const FontItem& leaf) {
            return told(leaf, [&sought](const TextSignature& signature) {
                return signature.covers(sought) ? std::nullopt : std::optional(false);
            });
        };
    }

    /// Whether ProductName, ProductSetName, ProductFileName or DisplayName, in this order, passes the test: a Boolean of a
    /// SearchedText, and an optional one of a TextSignature, which may tell it of all names. Requires that an ASCII text
    /// passes when a part of it does.
    template <class Test>
    bool any(const FontItem& font, Test&& test) {
        const std::optional<bool> isTold = told(font, test);
        return isTold ? *isTold : anyRead(font, test);
    }

    /// Whether ProductName, ProductSetName or ProductFileName, in this order, passes the test.
    template <class Test>
    bool anyStored(const FontItem& font, Test&& test) {
        return passes(font.ProductName(), test) || passes(font.ProductSetName(), test) ||
               passes(font.ProductFileName(), test);
    }

private:
    /// Whether the stored names are those by which the font is searched: no subclass has overridden an accessor, and
    /// DisplayName is not worked out.
    static bool isSigned(const FontItem& font) { return isExactly(font) && !font.IsGroup(); }

    TextSignature signatureOf(const FontItem& font);

    template <class Test>
    bool anyRead(const FontItem& font, Test& test) {
        // Mostly the product set name begins the product name, and the display name is the product name.
        const std::string& name = font.ProductName();
        if (passes(name, test))
            return true;
        const std::string& setName = font.ProductSetName();
        // An override may answer both from one member, in which the set name now stands.
        const bool isTried = m_name.isASCII() && &setName != &name && name.starts_with(setName);
        if ((!isTried && passes(setName, test)) || passes(font.ProductFileName(), test))
            return true;
        if (const std::string* const stored = font.storedDisplayName())
            return stored != &name && passes(*stored, test);
        return passes(font.DisplayName(), test);
    }

    template <class Test>
    bool passes(const std::string& name, Test& test) {
        m_name.assign(name);
        return test(m_name);
    }

    PerchAppLibrary::text::SearchedText m_name;
};

/// Visits leaves below the list as forEachLeaf() does: all but those of which `tell(leaf)`, an optional Boolean, is false. Where
/// it is none, the visitor reads names, so leaves are visited some at a time, and the memory brings the names of all of these
/// at once.
template <class Tell, class Visitor>
void forEachNamedLeaf(const Records<FontItem>& list, Tell&& tell, Visitor&& visit) {
    struct Waiting {
        std::shared_ptr<FontItem> leaf; // kept: the array it stands in may go before it is visited
        bool isTold;
    };
    std::array<Waiting, 32> waiting;
    std::size_t count = 0;
    const auto visitAll = [&] {
        for (const Waiting& each : std::span(waiting).first(count))
            if (!each.isTold)
                each.leaf->prefetchTexts();
        for (const Waiting& each : std::span(waiting).first(count))
            visit(each.leaf);
        count = 0;
    };
    const auto sort = [&](const std::shared_ptr<FontItem>& leaf) {
        const std::optional<bool> told = tell(*leaf);
        if (told && !*told)
            return;
        if (!told)
            leaf->prefetchNames();
        waiting[count++] = {leaf, told.has_value()};
        if (count == waiting.size())
            visitAll();
    };
    forEachLeaf(list, sort, [](const FontItem& font) {
        PerchAppLibrary::prefetch(&font);
        PerchAppLibrary::prefetch(font.signatureEnd());
    });
    visitAll();
}

/// The leaves that the test takes, in the order of the walk.
template <class Tell, class Test>
Records<FontItem> namedLeavesWhere(const Records<FontItem>& list, Tell&& tell, Test&& isTaken) {
    Records<FontItem> taken;
    forEachNamedLeaf(list, tell, [&](const std::shared_ptr<FontItem>& leaf) {
        if (isTaken(*leaf))
            taken.push_back(leaf);
    });
    return taken;
}

} // namespace VelmoCloudEntity
