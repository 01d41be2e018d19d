#pragma once

#include <VelmoCloudEntity/font/FontItem.hpp>

#include <array>
#include <cstdint>
#include <string>
#include <unordered_set>

namespace VelmoCloudEntity {

/// A list of references to fonts, prepared for the question whether one of them means a given font. It keeps
/// what it needs of the references, which are read once each. For the queries of FontList.
class FontReferences {
public:
    explicit FontReferences(const Records<FontItem>& references);

    /// Whether a reference matches the leaf, by the rule that FontList::setActivatedFont() states.
    bool match(const FontItem& leaf) const;

private:
    std::array<std::unordered_set<std::int64_t>, 2> m_ids; // of public and of private fonts
    std::unordered_set<std::string> m_names; // decomposed, so that equivalent names are the same bytes
};

} // namespace VelmoCloudEntity
