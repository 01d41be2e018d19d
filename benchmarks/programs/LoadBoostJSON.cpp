#include "Loaders.hpp"

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>
#include <boost/json/value.hpp>

namespace {

using boost::json::value;

std::string_view viewOf(boost::json::string_view text) { return {text.data(), text.size()}; }

void read(const value& json, std::int64_t& field) { field = json.as_int64(); }
void read(const value& json, bool& field) { field = json.as_bool(); }
void read(const value& json, std::string& field) { field = viewOf(json.as_string()); }
void read(const value& json, std::vector<std::int64_t>& field) {
    field.reserve(json.as_array().size());
    for (const value& element : json.as_array())
        field.push_back(element.as_int64());
}

void read(const value& json, PlainFonts& fonts) {
    fonts.reserve(json.as_array().size());
    for (const value& object : json.as_array()) {
        auto font = std::make_shared<PlainFont>();
        for (const auto& member : object.as_object())
            readMember(*font, viewOf(member.key()),
                       [&](auto& field) { read(member.value(), field); });
        fonts.push_back(std::move(font));
    }
}

} // namespace

PlainFonts loadBoostJSON(std::string text) {
    // The documentation of Boost.JSON advises this resource for a document that is read once.
    boost::json::monotonic_resource memory;
    const value document = boost::json::parse(text, &memory);
    PlainFonts fonts;
    read(document, fonts);
    return fonts;
}
