#include "Loaders.hpp"

#include <simdjson.h>

#include <stdexcept>

namespace {

namespace ondemand = simdjson::ondemand;

void read(ondemand::value value, std::int64_t& field) { field = value.get_int64(); }
void read(ondemand::value value, bool& field) { field = value.get_bool(); }
void read(ondemand::value value, std::string& field) {
    field = std::string_view(value.get_string());
}
void read(ondemand::value value, PlainFonts& field);
void read(ondemand::value value, std::vector<std::int64_t>& field) {
    for (auto element : value.get_array())
        field.push_back(element.get_int64());
}

PlainFonts fontsFrom(ondemand::array array) {
    PlainFonts fonts;
    for (auto element : array) {
        auto font = std::make_shared<PlainFont>();
        for (auto member : element.get_object())
            readMember(*font, std::string_view(member.unescaped_key()),
                       [value = member.value().value()](auto& field) { read(value, field); });
        fonts.push_back(std::move(font));
    }
    return fonts;
}

void read(ondemand::value value, PlainFonts& field) { field = fontsFrom(value.get_array()); }

} // namespace

PlainFonts loadOnDemand(std::string text) {
    ondemand::parser parser;
    ondemand::document document = parser.iterate(text.data(), text.size(), text.capacity());
    return fontsFrom(document.get_array());
}
