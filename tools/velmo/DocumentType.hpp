#pragma once

#include "RecordTypes.hpp"

#include <PerchAppLibrary/json/JSON.hpp>

#include <string>

namespace velmo {

/// Returns the type that fits a document best, or null if none has one of its keys. For a list of
/// records whose lists are no type, the type of the records.
const RecordType* typeOf(const PerchAppLibrary::JSON& document);

/// Returns what a document is for which typeOf() is null, such as "is an error reply". Empty for an
/// empty document or null.
std::string describeWithoutType(const PerchAppLibrary::JSON& document);

/// Returns in what a document differs from the expected type, such as "is an error reply": an error
/// reply, a list in place of an object or the reverse, or records whose keys fit another type
/// better. Empty if it seems to be of that type, or is empty or null. Looks at the first elements
/// of a list only.
std::string differenceFrom(const RecordType& expected, const PerchAppLibrary::JSON& document);

/// Throws Failure for a document in a file that has a differenceFrom() the expected type; with
/// `isForced`, warns of that.
void requireType(const std::string& file, const PerchAppLibrary::JSON& document,
                 const RecordType& expected, bool isForced);

} // namespace velmo
