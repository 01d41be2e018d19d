#pragma once

#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <chrono>
#include <optional>

namespace client {

using PerchAppLibrary::JSON;
using VelmoCloudEntity::FontItem;
using VelmoCloudEntity::FontTagItem;
using Fonts = VelmoCloudEntity::Records<FontItem>;
using Tags = VelmoCloudEntity::Records<FontTagItem>;

/// Allows about 90,000 fonts, which have some 30 elements each. So many empty fonts take 1.9 GB.
constexpr JSON::Limits replyLimits{.elements = 3'000'000};

/// What a query found.
struct Found {
    Fonts fonts;                         // whole-key matches first; without a query, the tree
    std::int64_t count = 0;              // number of leaf fonts
    std::size_t wholeKey = 0;            // number of fonts that contain the whole key
    std::chrono::nanoseconds duration{}; // of the query
};

/// The fonts and tags of the service, and the queries. The functions that read the text of a reply
/// throw like parseReply(), and then change nothing.
class Catalogue {
public:
    void readFonts(const std::string& reply);
    void readTags(const std::string& reply);
    void markActivated(const std::string& reply);
    void markFavourites(const std::string& reply);

    /// Returns the fonts that pass the ticked tags and contain the key, then, if asked for, those
    /// that contain a character of it. Returns the tree of fonts if the key is empty and no tag is
    /// ticked.
    Found find(const std::string& key, bool alsoByCharacter);

    const Tags& tags() const noexcept { return m_tags.List(); }
    void tick(FontTagItem& tag, bool isTicked);
    void untickAll();
    bool isAnyTicked() const;

    std::int64_t fontCount() const noexcept { return m_fontCount; }

private:
    Fonts fontsPassingTags() const;

    VelmoCloudEntity::FontList m_fonts;
    VelmoCloudEntity::FontTagList m_tags;
    std::int64_t m_fontCount = 0;
    std::optional<Fonts> m_passing; // the fonts that pass the tags; nullopt after a change
};

} // namespace client
