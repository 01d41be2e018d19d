#pragma once

#include <string_view>
#include <vector>

namespace VelmoCloudEntity {

/// Returns the characters of a key that FontList::isFontMatchedByCharacter() looks for, without
/// duplicates, in the order of the key. They are views into the key.
///
/// They are the first N UTF-16 code units of the key, where N is its number of user-perceived
/// characters (UAX #29). Surrogate pairs are omitted, since half of a pair matches nothing.
std::vector<std::string_view> searchedCharacters(std::string_view key);

} // namespace VelmoCloudEntity
