#pragma once

#include <VelmoCloudEntity/font/FontItem.hpp>

#include <PerchAppLibrary/platform/prefetch.hpp>
#include <PerchAppLibrary/text/TextSignature.hpp>

#include <string>

namespace VelmoCloudEntity {

/// Access to the names in a font's fields, for searches.
struct FontAccess {
    /// Returns the cached signature of the four texts that searches by name read: ProductName,
    /// ProductSetName, ProductFileName and displayName.
    static const PerchAppLibrary::text::CachedSignature& signature(const FontItem& font) noexcept {
        return font.m_nameSignature;
    }

    /// Returns the text of DisplayName() without a copy, or null if DisplayName() computes it: for
    /// a group, and for a subclass, which may override it.
    static const std::string* storedDisplayName(const FontItem& font) {
        return isExactly(font) && !font.IsGroup() ? &font.leafDisplayName() : nullptr;
    }

    /// Prefetches the strings of the stored names.
    static void prefetchNames(const FontItem& font) noexcept {
        for (const std::string* const name :
             {&font.m_ProductSetName, &font.m_ProductName, &font.m_ProductFileName}) {
            PerchAppLibrary::prefetch(name);
            PerchAppLibrary::prefetch(reinterpret_cast<const char*>(name + 1) - 1);
        }
    }

    /// Prefetches the characters of the stored names. Reads the strings.
    static void prefetchTexts(const FontItem& font) noexcept {
        for (const std::string* const name :
             {&font.m_ProductName, &font.m_ProductSetName, &font.m_ProductFileName}) {
            PerchAppLibrary::prefetch(name->data());
            PerchAppLibrary::prefetch(name->data() + name->size());
        }
    }
};

} // namespace VelmoCloudEntity
