#pragma once

#include "Replies.hpp"

#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <optional>
#include <string_view>

namespace client {

using VelmoCloudEntity::FontItem;
using VelmoCloudEntity::FontTagItem;
using Fonts = VelmoCloudEntity::Records<FontItem>;
using Tags = VelmoCloudEntity::Records<FontTagItem>;

/// What a query found.
struct Found {
    Fonts fonts; // that contain the whole key; without a key, the tree or what passes the tags
    Fonts byCharacter; // the others that contain a character of the key, if they are asked for
};

/// The fonts and tags of the service, and the queries. The functions that read the text of a reply
/// throw like parseReply(), and then change nothing.
class Catalogue {
public:
    void readFonts(std::string_view reply);
    void readTags(std::string_view reply);
    void markActivated(std::string_view reply);
    void markFavourites(std::string_view reply);

    /// Returns the fonts that pass the ticked tags and contain the key, and those that contain a
    /// character of it if `characters` is set. Returns the tree of fonts if the key is empty and no
    /// tag is ticked.
    Found find(const std::string& key, bool characters);

    const Tags& tags() const noexcept { return m_tags.List(); }
    void tick(FontTagItem& tag, bool isTicked);
    void untickAll();
    bool hasTicks() const;

    std::int64_t fontCount() const noexcept { return m_fontCount; }

private:
    Fonts fontsPassingTags() const;

    VelmoCloudEntity::FontList m_fonts;
    VelmoCloudEntity::FontTagList m_tags;
    std::int64_t m_fontCount = 0;
    std::optional<Fonts> m_passing; // the fonts that pass the tags; nullopt after a change
};

/// What replies gave.
struct Loaded {
    std::shared_ptr<Catalogue> catalogue; // null if the fonts could not be read
    QStringList problems;                 // one line each, to be shown
    std::vector<Reply> replies;           // as they were read
};

/// Names of the replies that load() expects, in this order.
QStringList replyNames();

/// Makes a catalogue from replies. Takes long for many fonts, so call it in a worker thread.
Loaded load(std::vector<Reply> replies);

/// Returns lines that say what load() ignored in the replies. Takes longer than load().
QStringList ignoredIn(const std::vector<Reply>& replies);

} // namespace client
