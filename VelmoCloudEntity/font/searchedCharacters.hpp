#pragma once

#include <string_view>
#include <vector>

namespace VelmoCloudEntity {

/// The characters of a key by which FontList::isFontMatchedByCharacter() matches, each once, in the order of the key. What they
/// refer to is the key's.
///
/// Counted are the key's user-perceived characters (UAX #29), taken are as many of its UTF-16 code units from the first on, and
/// halves of a character that takes two are left out, since they match nothing.
std::vector<std::string_view> searchedCharacters(std::string_view key);

} // namespace VelmoCloudEntity
