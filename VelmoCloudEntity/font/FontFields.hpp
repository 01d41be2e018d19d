#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>

#include <PerchAppLibrary/BaseEntity.hpp>
#include <PerchAppLibrary/platform/Prefetch.hpp>
#include <PerchAppLibrary/platform/TextSignature.hpp>
#include <PerchAppLibrary/record/RareTexts.hpp>

#include <string>

namespace VelmoCloudEntity {

class FontItem;

/// The fields of a font that queries read, side by side: a font is hundreds of bytes, and a walk over a large tree takes as
/// long as the memory takes to bring what it looks at. FontItem declares the properties.
class FontFields : public PerchAppLibrary::BaseEntity {
public:
    /// Where the last of the fields is that every query reads; the class and the identifier stand before it.
    const void* walkedEnd() const noexcept { return &m_IsAuthed; }

    /// Where the signature ends, which stands behind these.
    const void* signatureEnd() const noexcept {
        return reinterpret_cast<const char*>(&m_nameSignature) + sizeof(m_nameSignature) - 1;
    }

    /// Of the names by which a font is searched, as they are stored: ProductName, ProductSetName, ProductFileName, displayName.
    const PerchAppLibrary::text::CachedSignature& nameSignature() const noexcept { return m_nameSignature; }

    /// Ask the memory for the names (the first, one from the middle and the last of what lies side by side), and, when these are
    /// there, for the texts that they keep elsewhere, of which few fonts have a displayName.
    void prefetchNames() const noexcept;
    void prefetchTexts() const noexcept;

protected:
    /// What the names have an effect on.
    void forgetNames() noexcept { m_nameSignature.forget(); }

    bool m_IsGroup = false;
    bool m_IsPrivate = false;
    bool m_isActivated = false;
    bool m_IsFavorited = false;
    bool m_IsAuthed = false;
    PerchAppLibrary::text::CachedSignature m_nameSignature;
    Records<FontItem> m_Children;
    std::string m_ProductName;
    std::string m_ProductSetName;
    std::string m_ProductFileName;
    PerchAppLibrary::RareTexts m_rareTexts; // displayName among them
};

inline void FontFields::prefetchNames() const noexcept {
    PerchAppLibrary::prefetch(&m_ProductName);
    PerchAppLibrary::prefetch(&m_ProductFileName);
    PerchAppLibrary::prefetch(&m_rareTexts);
}

inline void FontFields::prefetchTexts() const noexcept {
    for (const std::string* const name : {&m_ProductName, &m_ProductSetName, &m_ProductFileName})
        PerchAppLibrary::prefetch(name->data());
}

} // namespace VelmoCloudEntity
