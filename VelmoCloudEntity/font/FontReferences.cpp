#include <VelmoCloudEntity/font/FontReferences.hpp>

#include <PerchAppLibrary/platform/Text.hpp>

namespace VelmoCloudEntity {

namespace text = PerchAppLibrary::text;

FontReferences::FontReferences(const Records<FontItem>& references) {
    for (const std::shared_ptr<FontItem>& reference : references) {
        m_ids[reference->IsPrivate() ? 1 : 0].insert(reference->Id());
        m_names.insert(text::decomposed(reference->ProductName()));
    }
}

bool FontReferences::match(const FontItem& leaf) const {
    if (const std::int64_t id = leaf.Id(); id >= 1)
        return m_ids[leaf.IsPrivate() ? 1 : 0].contains(id);
    return m_names.contains(text::decomposed(leaf.ProductName()));
}

} // namespace VelmoCloudEntity
