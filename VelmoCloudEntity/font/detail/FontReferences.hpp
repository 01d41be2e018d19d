#pragma once

#include <VelmoCloudEntity/font/FontItem.hpp>

#include <PerchAppLibrary/container/IdSet.hpp>
#include <PerchAppLibrary/text/ComparedText.hpp>
#include <PerchAppLibrary/text/TextSet.hpp>

#include <optional>

namespace VelmoCloudEntity {

/// An index of references to fonts, for the queries of FontList. Requires references that outlive
/// it.
class FontReferences {
public:
    explicit FontReferences(const Records<FontItem>& references);

    /// Returns whether a reference matches the leaf as FontList::setActivatedFont() defines it.
    bool match(const FontItem& leaf);

private:
    using TextSet = PerchAppLibrary::text::TextSet;

    /// Returns the names of the references, decomposed, so that equivalent names have equal bytes.
    /// Computed for the first font without an identifier, since most fonts have one.
    const TextSet& names();

    const Records<FontItem>* m_references;
    PerchAppLibrary::IdSet m_public;  // identifiers of public references
    PerchAppLibrary::IdSet m_private; // identifiers of private references
    std::optional<TextSet> m_names;
    PerchAppLibrary::text::ComparedText m_name; // decomposed: the name of the font or reference
};

} // namespace VelmoCloudEntity
