#include "Loaders.hpp"

#include <simdjson.h>

namespace {

namespace dom = simdjson::dom;

void read(dom::element value, std::int64_t& field) { field = value.get_int64().value(); }
void read(dom::element value, bool& field) { field = value.get_bool().value(); }
void read(dom::element value, std::string& field) { field = value.get_string().value(); }
void read(dom::element value, std::vector<std::int64_t>& field) {
    const dom::array elements = value.get_array().value();
    field.reserve(elements.size());
    for (const dom::element element : elements)
        field.push_back(element.get_int64().value());
}

void read(dom::element value, PlainFonts& fonts) {
    const dom::array elements = value.get_array().value();
    fonts.reserve(elements.size());
    for (const dom::element element : elements) {
        auto font = std::make_shared<PlainFont>();
        const dom::object members = element.get_object().value();
        for (const auto& [key, member] : members)
            readMember(*font, key, [source = member](auto& field) { read(source, field); });
        fonts.push_back(std::move(font));
    }
}

} // namespace

PlainFonts loadDOM(std::string text) {
    const std::size_t length = text.size();
    text.append(simdjson::SIMDJSON_PADDING, ' ');
    dom::parser parser;
    PlainFonts fonts;
    read(parser.parse(text.data(), length, false).value(), fonts);
    return fonts;
}
