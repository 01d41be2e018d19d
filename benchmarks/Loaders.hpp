#pragma once

#include "PlainFont.hpp"

#include <VelmoCloudEntity/font/FontList.hpp>

#include <string>

/// The ways of loading a font list that are compared. Each consumes the text of a reply, which has
/// room for the padding that a reader may want, and gives the whole tree.

VelmoCloudEntity::FontList loadOurs(std::string text);

/// simdjson on-demand, the keys told apart by hand.
PlainFonts loadOnDemand(std::string text);

/// The same by way of simdjson's document, whose values can be kept and read in any order, as ours
/// can.
PlainFonts loadDOM(std::string text);

/// nlohmann/json, each field looked up by its key.
PlainFonts loadNlohmann(std::string text);

/// RapidJSON in situ and Boost.JSON in a monotonic resource, the keys told apart by hand.
PlainFonts loadRapidJSON(std::string text);
PlainFonts loadBoostJSON(std::string text);

/// QJsonDocument, each field looked up by its key.
PlainFonts loadQt(std::string text);
