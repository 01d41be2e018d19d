#pragma once

#include <VelmoCloudEntity/font/FontItem.hpp>

#include <PerchAppLibrary/container/internal/IdSet.hpp>
#include <PerchAppLibrary/text/ComparedText.hpp>
#include <PerchAppLibrary/text/internal/TextSet.hpp>

#include <optional>

namespace VelmoCloudEntity {

/// An index of references to fonts, for the marking queries of FontList.
class FontReferences {
public:
    /// Requires references that outlive the index.
    explicit FontReferences(const Records<FontItem>& references);

    /// Returns whether a reference matches the leaf as FontList::setActivatedFont() defines it.
    bool match(const FontItem& leaf);

private:
    using TextSet = PerchAppLibrary::text::TextSet;

    /// Returns the decomposed names of the references, so that equivalent names have equal bytes.
    /// Computes them on first use, since most fonts are matched by identifier.
    const TextSet& names();

    const Records<FontItem>* m_references;
    PerchAppLibrary::IdSet m_public;            // identifiers of public references
    PerchAppLibrary::IdSet m_private;           // identifiers of private references
    std::optional<TextSet> m_names;             // what names() returns, once computed
    PerchAppLibrary::text::ComparedText m_name; // buffer: the decomposed name of one font
};

} // namespace VelmoCloudEntity
