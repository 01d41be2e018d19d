#pragma once

#include <VelmoCloudEntity/entity/LeafWalk.hpp>
#include <VelmoCloudEntity/font/FontItem.hpp>

#include <PerchAppLibrary/platform/SearchedText.hpp>

#include <array>
#include <cstddef>
#include <memory>
#include <string>

namespace VelmoCloudEntity {

/// The names by which a font is searched, one after the other. For the queries of FontList.
class FontNames {
public:
    /// Whether ProductName, ProductSetName or ProductFileName, in this order, passes the test.
    template <class Test>
    bool anyStored(const FontItem& font, Test&& test) {
        return passes(font.ProductName(), test) || passes(font.ProductSetName(), test) ||
               passes(font.ProductFileName(), test);
    }

    /// Whether one of these does or else DisplayName. Requires a test that an ASCII text passes when a part of it does.
    template <class Test>
    bool any(const FontItem& font, Test&& test) {
        // Mostly the product set name begins the product name, and the display name is the product name.
        const std::string& name = font.ProductName();
        if (passes(name, test))
            return true;
        const std::string& setName = font.ProductSetName();
        const bool isTried = m_name.isASCII() && &setName != &name && name.starts_with(setName);
        if ((!isTried && passes(setName, test)) || passes(font.ProductFileName(), test))
            return true;
        if (const std::string* const stored = font.storedDisplayName())
            return stored != &name && passes(*stored, test);
        return passes(font.DisplayName(), test);
    }

private:
    template <class Test>
    bool passes(const std::string& name, Test& test) {
        m_name.assign(name);
        return test(m_name);
    }

    PerchAppLibrary::text::SearchedText m_name;
};

/// Visits the leaves below the list as forEachLeaf() does, for a visitor that reads these names of them. They are visited some at
/// a time, so that the memory brings the names of all of these at once.
template <class Visitor>
void forEachNamedLeaf(const Records<FontItem>& list, FontFields::Names names, Visitor&& visit) {
    std::array<const std::shared_ptr<FontItem>*, 32> leaves;
    std::size_t count = 0;
    const auto visitAll = [&] {
        for (std::size_t index = 0; index < count; ++index)
            (*leaves[index])->prefetchTexts(names);
        for (std::size_t index = 0; index < count; ++index)
            visit(*leaves[index]);
        count = 0;
    };
    forEachLeaf(list, [&](const std::shared_ptr<FontItem>& leaf) {
        leaf->prefetchFields(names);
        leaves[count++] = &leaf;
        if (count == leaves.size())
            visitAll();
    });
    visitAll();
}

/// The leaves that the test, which reads their names, takes, in the order of the walk.
template <class Test>
Records<FontItem> namedLeavesWhere(const Records<FontItem>& list, FontFields::Names names, Test&& isTaken) {
    Records<FontItem> taken;
    forEachNamedLeaf(list, names, [&](const std::shared_ptr<FontItem>& leaf) {
        if (isTaken(*leaf))
            taken.push_back(leaf);
    });
    return taken;
}

} // namespace VelmoCloudEntity
