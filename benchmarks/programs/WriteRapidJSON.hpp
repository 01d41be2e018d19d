#pragma once

#include "PlainFont.hpp"

#include <rapidjson/stringbuffer.h>

#include <string_view>

/// Exports fonts with RapidJSON's writer, called for each field.
rapidjson::StringBuffer writeRapidJSON(const PlainFonts& fonts);

inline std::string_view viewOf(const rapidjson::StringBuffer& buffer) {
    return {buffer.GetString(), buffer.GetSize()};
}
