#pragma once

#include <VelmoCloudEntity/font/FontItem.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>

namespace VelmoCloudEntity {

/// A list of references to fonts, prepared for the question whether one of them means a given font. The references must
/// live as long as it does. For the queries of FontList.
class FontReferences {
public:
    explicit FontReferences(const Records<FontItem>& references);

    /// Whether a reference matches the leaf, by the rule that FontList::setActivatedFont() states.
    bool match(const FontItem& leaf);

private:
    using Names = std::unordered_set<std::string>;

    /// The references' names, decomposed, so that equivalent names are the same bytes. Made when the first font without
    /// an identifier asks for them, since most fonts have one.
    const Names& names();

    const Records<FontItem>* m_references;
    std::array<std::unordered_set<std::int64_t>, 2> m_ids; // of public and of private fonts
    std::optional<Names> m_names;
};

} // namespace VelmoCloudEntity
