#include "Loaders.hpp"

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::json;

PlainFonts fontsFrom(Json& array);

std::shared_ptr<PlainFont> fontFrom(Json& object) {
    auto font = std::make_shared<PlainFont>();
    forEachField(*font, [&](const char* key, auto& field) {
        if (const auto found = object.find(key); found != object.end())
            found->get_to(field);
    });
    if (const auto children = object.find("Children"); children != object.end())
        font->Children = fontsFrom(*children);
    return font;
}

PlainFonts fontsFrom(Json& array) {
    PlainFonts fonts;
    fonts.reserve(array.size());
    for (Json& element : array)
        fonts.push_back(fontFrom(element));
    return fonts;
}

} // namespace

PlainFonts loadNlohmann(std::string text) {
    Json document = Json::parse(text);
    return fontsFrom(document);
}
