#pragma once

#include "PlainFont.hpp"

#include <string>

/// The ways of loading a font list that the library is compared with. Each function takes the text
/// of a reply, with capacity for the padding that simdjson requires, and returns the whole tree. It
/// throws an exception if the text is malformed.

/// Loads with simdjson on-demand, by readMember().
PlainFonts loadOnDemand(std::string text);

/// Loads with simdjson's document, by readMember(). Its values can be kept and read in any order,
/// as those of the library's JSON can.
PlainFonts loadDOM(std::string text);

/// Loads with nlohmann/json, which looks up each field by its key.
PlainFonts loadNlohmann(std::string text);

/// Loads with RapidJSON's document in situ, by readMember().
PlainFonts loadRapidJSON(std::string text);

/// Loads with RapidJSON's SAX reader in situ, by readMember().
PlainFonts loadRapidJSONSAX(std::string text);

/// Loads with yyjson in situ, by readMember().
PlainFonts loadYyjson(std::string text);

/// Loads with glaze, which finds the fields by reflection.
PlainFonts loadGlaze(std::string text);

/// Loads with Boost.JSON in a monotonic resource, by readMember().
PlainFonts loadBoostJSON(std::string text);

/// Loads with QJsonDocument, which looks up each field by its key.
PlainFonts loadQt(std::string text);
