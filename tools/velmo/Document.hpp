#pragma once

#include <PerchAppLibrary/json/JSON.hpp>

#include <string>

namespace velmo {

/// Returns the JSON document in a file. "-" is standard input. Throws Failure if the file cannot be
/// read or the document is malformed.
PerchAppLibrary::JSON readDocument(const std::string& file);

/// Returns the name of the file in messages.
std::string nameOf(const std::string& file);

} // namespace velmo
