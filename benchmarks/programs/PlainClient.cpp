#include "PlainClient.hpp"

#include "Digest.hpp"

#include <cstring>
#include <unordered_set>

namespace {

void addAll(Digest& digest, const PlainFonts& fonts) {
    for (const auto& font : fonts) {
        forEachField(*font, [&](const char*, const auto& field) { digest.add(field); });
        addAll(digest, font->Children);
    }
}

/// Calls `visit(font)` for each font that is not a group.
template <class Visitor>
void forEachFont(const PlainFonts& fonts, const Visitor& visit) {
    for (const auto& font : fonts)
        if (font->IsGroup)
            forEachFont(font->Children, visit);
        else
            visit(*font);
}

} // namespace

std::size_t digestOf(const PlainFonts& fonts) {
    Digest digest;
    addAll(digest, fonts);
    return digest.value();
}

void activate(const PlainFonts& fonts, const std::vector<std::int64_t>& ids) {
    const std::unordered_set<std::int64_t> wanted(ids.begin(), ids.end());
    forEachFont(fonts, [&wanted](PlainFont& font) {
        if (wanted.contains(font.Id))
            font.isActivated = true;
    });
}

std::string textOfFound(const PlainFonts& fonts, const std::string& key) {
    std::string text;
    forEachFont(fonts, [&](const PlainFont& font) {
        if (strcasestr(font.ProductName.c_str(), key.c_str()) != nullptr)
            text.append(font.isActivated ? "* " : "  ").append(font.ProductName).append("\n");
    });
    return text;
}
