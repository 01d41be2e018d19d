#include <VelmoCloudEntity/font/FontReferences.hpp>

#include <PerchAppLibrary/platform/Text.hpp>

namespace VelmoCloudEntity {

namespace text = PerchAppLibrary::text;

FontReferences::FontReferences(const Records<FontItem>& references) : m_references(&references) {
    for (const std::shared_ptr<FontItem>& reference : references)
        m_ids[reference->IsPrivate() ? 1 : 0].insert(reference->Id());
}

bool FontReferences::match(const FontItem& leaf) {
    if (const std::int64_t id = leaf.Id(); id >= 1)
        return m_ids[leaf.IsPrivate() ? 1 : 0].contains(id);
    return names().contains(text::decomposed(leaf.ProductName()));
}

const FontReferences::Names& FontReferences::names() {
    if (!m_names) {
        m_names.emplace();
        for (const std::shared_ptr<FontItem>& reference : *m_references)
            m_names->insert(text::decomposed(reference->ProductName()));
    }
    return *m_names;
}

} // namespace VelmoCloudEntity
