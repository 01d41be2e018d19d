#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// A search key: one that a user has searched for, to be sent, or one that the service reports with
/// its number of searches.
class FontSearchItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(FontSearchItem, PerchAppLibrary::BaseEntity);

    /// User who searched.
    PERCH_PROPERTY(std::string, UserGuid);
    /// Identifier of the font product, or 0 for none.
    PERCH_PROPERTY(std::int64_t, ProductId);
    /// The search text.
    PERCH_PROPERTY(std::string, SearchKey);
    /// Platform of the client. 1 by default.
    PERCH_PROPERTY(std::int64_t, PlatformId, 1);
    /// Number of searches for the key.
    PERCH_PROPERTY(std::int64_t, SearchCount);
    /// Rank of the key.
    PERCH_PROPERTY(std::int64_t, Ranking);

    /// The six properties above only, in their order.
    PERCH_COMPUTED(PerchAppLibrary::Dictionary, Dict);

    PERCH_RECORD_END;

    /// Labels of a search to send: create({.userGuid = "u", .searchKey = "k"}).
    PERCH_LABELS(SearchLabels, (userGuid, UserGuid), (searchKey, SearchKey));
};

} // namespace VelmoCloudEntity
