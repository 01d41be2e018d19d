#include <VelmoCloudEntity/font/detail/FontReferences.hpp>

namespace VelmoCloudEntity {

using PerchAppLibrary::IdSet;
using PerchAppLibrary::text::Case;

namespace {

IdSet idsOf(const Records<FontItem>& references, bool isPrivate) {
    IdSet::Ids ids;
    ids.reserve(references.size());
    for (const std::shared_ptr<FontItem>& reference : references)
        if (reference->IsPrivate() == isPrivate)
            ids.push_back(reference->Id());
    return IdSet(ids);
}

} // namespace

FontReferences::FontReferences(const Records<FontItem>& references)
    : m_references(&references),
      m_public(idsOf(references, false)),
      m_private(idsOf(references, true)),
      m_name(Case::sensitive) {}

bool FontReferences::match(const FontItem& leaf) {
    if (const std::int64_t id = leaf.Id(); id >= 1)
        return (leaf.IsPrivate() ? m_private : m_public).contains(id);
    const TextSet& names = this->names();
    m_name.assign(leaf.ProductName());
    return names.contains(m_name.bytes());
}

const FontReferences::TextSet& FontReferences::names() {
    if (!m_names) {
        m_names.emplace();
        for (const std::shared_ptr<FontItem>& reference : *m_references) {
            m_name.assign(reference->ProductName());
            m_names->emplace(m_name.bytes());
        }
    }
    return *m_names;
}

} // namespace VelmoCloudEntity
