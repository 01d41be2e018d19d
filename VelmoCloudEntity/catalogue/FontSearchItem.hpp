#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>

#include <cstdint>
#include <string>

namespace VelmoCloudEntity {

/// One search key: of a user, to be sent, or of the service, with how often it was searched for.
class FontSearchItem : public PerchAppLibrary::BaseEntity {
    PERCH_RECORD(FontSearchItem, PerchAppLibrary::BaseEntity);

    /// User who searched.
    PERCH_PROPERTY(std::string, UserGuid);
    /// Identifier of the font product concerned; 0 for none.
    PERCH_PROPERTY(std::int64_t, ProductId);
    /// Text searched for.
    PERCH_PROPERTY(std::string, SearchKey);
    /// Platform of the client.
    PERCH_PROPERTY(std::int64_t, PlatformId, 1);
    /// Number of searches for the key.
    PERCH_PROPERTY(std::int64_t, SearchCount);
    /// Rank of the key.
    PERCH_PROPERTY(std::int64_t, Ranking);

    /// The six properties above in their order, and nothing else.
    PERCH_COMPUTED(PerchAppLibrary::Dictionary, Dict);

    PERCH_RECORD_END;

    /// Labels of a search to be sent: create({.userGuid = "u", .searchKey = "k"}).
    PERCH_LABELS(SearchLabels, (userGuid, UserGuid), (searchKey, SearchKey));
};

} // namespace VelmoCloudEntity
