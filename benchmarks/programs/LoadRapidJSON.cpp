#include "Loaders.hpp"

#include <rapidjson/document.h>
#include <rapidjson/error/en.h>

#include <stdexcept>

namespace {

using rapidjson::Value;

std::string_view viewOf(const Value& text) { return {text.GetString(), text.GetStringLength()}; }

void read(const Value& value, std::int64_t& field) { field = value.GetInt64(); }
void read(const Value& value, bool& field) { field = value.GetBool(); }
void read(const Value& value, std::string& field) { field = viewOf(value); }
void read(const Value& value, std::vector<std::int64_t>& field) {
    field.reserve(value.Size());
    for (const Value& element : value.GetArray())
        field.push_back(element.GetInt64());
}

void read(const Value& array, PlainFonts& fonts) {
    fonts.reserve(array.Size());
    for (const Value& object : array.GetArray()) {
        auto font = std::make_shared<PlainFont>();
        for (const auto& member : object.GetObject())
            readMember(*font, viewOf(member.name), [&](auto& field) { read(member.value, field); });
        fonts.push_back(std::move(font));
    }
}

} // namespace

PlainFonts loadRapidJSON(std::string text) {
    rapidjson::Document document;
    document.ParseInsitu(text.data()); // the fastest way: strings stay in the text
    if (document.HasParseError())
        throw std::runtime_error(rapidjson::GetParseError_En(document.GetParseError()));
    PlainFonts fonts;
    read(document, fonts);
    return fonts;
}
