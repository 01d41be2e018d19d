#pragma once

#include <VelmoCloudEntity/font/FontItem.hpp>
#include <VelmoCloudEntity/font/detail/FontAccess.hpp>

#include <PerchAppLibrary/text/ComparedText.hpp>
#include <PerchAppLibrary/text/TextSignature.hpp>

#include <string>

namespace VelmoCloudEntity {

/// Reads the names by which fonts are searched. Reuses its memory from one font to the next.
class FontNames {
public:
    /// Returns whether the font has a signature. A subclass has none, since it may override
    /// accessors. A group has none, since its DisplayName is computed.
    static bool hasSignature(const FontItem& font) { return isExactly(font) && !font.IsGroup(); }

    /// Returns the signature of all names of the font. Requires hasSignature(font).
    PerchAppLibrary::text::TextSignature signature(const FontItem& font) {
        return FontAccess::signature(font).get([&] { return computeSignature(font); });
    }

    /// Returns `test(name)` of ProductName, a Boolean. The name is a ComparedText.
    template <class Test>
    bool isProductName(const FontItem& font, Test&& test) {
        return passes(font.ProductName(), test);
    }

    /// Returns whether ProductName, ProductSetName or ProductFileName passes the test. Reads them
    /// in this order.
    template <class Test>
    bool anyStored(const FontItem& font, Test&& test) {
        return passes(font.ProductName(), test) || passes(font.ProductSetName(), test) ||
               passes(font.ProductFileName(), test);
    }

    /// Returns whether ProductName, ProductSetName, ProductFileName or DisplayName passes the test.
    /// Reads them in this order.
    template <class Test>
    bool any(const FontItem& font, Test&& test) {
        if (anyStored(font, test))
            return true;
        if (const std::string* const stored = FontAccess::storedDisplayName(font))
            return stored != &font.ProductName() && // which has failed the test
                   passes(*stored, test);
        return passes(font.DisplayName(), test);
    }

private:
    PerchAppLibrary::text::TextSignature computeSignature(const FontItem& font);

    template <class Test>
    bool passes(const std::string& name, Test& test) {
        m_name.assign(name);
        return test(m_name);
    }

    PerchAppLibrary::text::ComparedText m_name;
};

} // namespace VelmoCloudEntity
