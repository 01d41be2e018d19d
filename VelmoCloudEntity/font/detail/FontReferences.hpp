#pragma once

#include <VelmoCloudEntity/font/FontItem.hpp>

#include <PerchAppLibrary/IdSet.hpp>
#include <PerchAppLibrary/platform/ComparedText.hpp>
#include <PerchAppLibrary/platform/TextSet.hpp>

#include <optional>

namespace VelmoCloudEntity {

/// A list of references to fonts, prepared for the question whether one of them means a given font. The references must
/// live as long as it does. For the queries of FontList.
class FontReferences {
public:
    explicit FontReferences(const Records<FontItem>& references);

    /// Whether a reference matches the leaf, by the rule that FontList::setActivatedFont() states.
    bool match(const FontItem& leaf);

private:
    using TextSet = PerchAppLibrary::text::TextSet;

    /// The references' names, decomposed, so that equivalent names are the same bytes. Made when the first font without
    /// an identifier asks for them, since most fonts have one.
    const TextSet& names();

    const Records<FontItem>* m_references;
    PerchAppLibrary::IdSet m_public; // identifiers of the public and of the private references
    PerchAppLibrary::IdSet m_private;
    std::optional<TextSet> m_names;
    PerchAppLibrary::text::ComparedText m_name; // decomposed: of a font that is asked for, or of a reference
};

} // namespace VelmoCloudEntity
