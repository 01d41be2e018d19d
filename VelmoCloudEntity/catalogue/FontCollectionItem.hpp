#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace VelmoCloudEntity {

/// A collection of fonts that the service has chosen, with a title and a cover.
class FontCollectionItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(FontCollectionItem, PerchAppLibrary::BaseEntity);

    /// Cover image, as sent.
    PERCH_PROPERTY(std::string, Cover);
    /// Title, for display.
    PERCH_PROPERTY(std::string, Title);
    /// Second name.
    PERCH_PROPERTY(std::string, Alias);
    /// Short description.
    PERCH_PROPERTY(std::string, Abstract);
    /// Position among the collections.
    PERCH_PROPERTY(std::int64_t, Ordinal);
    /// Identifiers of the fonts in the collection, in the service's order.
    PERCH_PROPERTY(std::vector<std::int64_t>, FontIdList);
    /// Count for top lists.
    PERCH_PROPERTY(std::int64_t, TopCount);

    PERCH_RECORD_END;
};

} // namespace VelmoCloudEntity
