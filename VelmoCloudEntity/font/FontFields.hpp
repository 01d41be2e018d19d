#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>

#include <PerchAppLibrary/BaseEntity.hpp>
#include <PerchAppLibrary/platform/Prefetch.hpp>

#include <string>

namespace VelmoCloudEntity {

class FontItem;

/// The fields of a font that queries read, side by side: a font is a thousand bytes, and a walk over a large tree takes as
/// long as the memory takes to bring what it looks at. FontItem declares the properties.
class FontFields : public PerchAppLibrary::BaseEntity {
public:
    /// Where the first of them is.
    const void* walkedFields() const noexcept { return &m_IsGroup; }

    /// The names that a query reads.
    enum class Names { product, all };

    /// Ask the memory for the fields of the names, and, when these are there, for the texts that they keep elsewhere.
    void prefetchFields(Names names) const noexcept;
    void prefetchTexts(Names names) const noexcept;

protected:
    bool m_IsGroup = false;
    bool m_IsPrivate = false;
    bool m_isActivated = false;
    bool m_IsFavorited = false;
    bool m_IsAuthed = false;
    Records<FontItem> m_Children;
    std::string m_ProductName;
    std::string m_ProductSetName;
    std::string m_ProductFileName;
    std::string m_displayName;
};

inline void FontFields::prefetchFields(Names names) const noexcept {
    PerchAppLibrary::prefetch(&m_ProductName);
    if (names == Names::product)
        return;
    for (const std::string* const name : {&m_ProductFileName, &m_displayName})
        PerchAppLibrary::prefetch(name);
}

inline void FontFields::prefetchTexts(Names names) const noexcept {
    PerchAppLibrary::prefetch(m_ProductName.data());
    if (names == Names::product)
        return;
    for (const std::string* const name : {&m_ProductSetName, &m_ProductFileName})
        PerchAppLibrary::prefetch(name->data());
}

} // namespace VelmoCloudEntity
