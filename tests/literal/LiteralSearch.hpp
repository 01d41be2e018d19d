#pragma once

#include <VelmoCloudEntity/font/FontItem.hpp>

#include <memory>
#include <string>
#include <utility>

/// The text queries of FontList a second time: short, slow and obviously right. For every leaf,
/// every field and every position of the key, copies of both texts are upper-cased and searched,
/// with ICU's own strings.
///
/// Tests compare FontList with it, and a benchmark shows what FontList gains over it.
struct LiteralSearch {
    using Fonts = VelmoCloudEntity::Records<VelmoCloudEntity::FontItem>;

    static Fonts getFontByName(const Fonts& list, const std::string& fontName, bool fuzzy);
    static Fonts getFontByKey(const Fonts& list, const std::string& key, bool fuzzy);
    static std::pair<Fonts, Fonts> getSearchResultFont(const Fonts& list, const std::string& key);
    static bool isFontMatchedByCharacter(const std::shared_ptr<VelmoCloudEntity::FontItem>& font,
                                         const std::string& key);
};
