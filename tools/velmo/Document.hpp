#pragma once

#include <PerchAppLibrary/json/JSON.hpp>

#include <string>

namespace velmo {

/// The JSON document in a file; "-" is standard input. Throws Failure when it cannot be read or is
/// malformed.
PerchAppLibrary::JSON readDocument(const std::string& file);

/// How messages name the file.
std::string nameOf(const std::string& file);

} // namespace velmo
