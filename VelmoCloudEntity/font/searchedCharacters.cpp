#include <VelmoCloudEntity/font/searchedCharacters.hpp>

#include <PerchAppLibrary/text/Text.hpp>

#include <cstddef>
#include <set>

namespace VelmoCloudEntity {

namespace text = PerchAppLibrary::text;

std::vector<std::string_view> searchedCharacters(std::string_view key) {
    std::vector<std::string_view> characters;
    std::set<std::string_view> seen;
    const std::size_t count = text::graphemeCount(key);
    for (std::size_t unit = 0; unit < count;) {
        const std::string_view character = text::firstCodePoint(key);
        key.remove_prefix(character.size());
        const std::size_t units = text::utf16Length(character);
        if (units == 1 && seen.insert(character).second)
            characters.push_back(character);
        unit += units;
    }
    return characters;
}

} // namespace VelmoCloudEntity
