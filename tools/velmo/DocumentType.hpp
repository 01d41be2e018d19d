#pragma once

#include "RecordTypes.hpp"

#include <PerchAppLibrary/json/JSON.hpp>

#include <string>

namespace velmo {

/// Returns the type that fits a document best, or null if none has one of its keys.
const RecordType* typeOf(const PerchAppLibrary::JSON& document);

/// Warns if the document in a file seems to be of another type than the expected one: an error
/// reply, a list in place of an object or the reverse, or records whose keys fit another type
/// better. Does not warn of an empty or null document. Looks at the first elements of a list only.
void warnOfOtherType(const std::string& file, const PerchAppLibrary::JSON& document,
                     const RecordType& expected);

} // namespace velmo
