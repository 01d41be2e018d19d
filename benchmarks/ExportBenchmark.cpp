#include "Benchmarks.hpp"
#include "Comparison.hpp"
#include "programs/Loaders.hpp"
#include "programs/OurClient.hpp"
#include "programs/Program.hpp"
#include "programs/WriteRapidJSON.hpp"

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <boost/json/array.hpp>
#include <boost/json/monotonic_resource.hpp>
#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>
#include <nlohmann/json.hpp>

namespace {

using VelmoCloudEntity::FontItem;

/// Keeps the order of keys, unlike nlohmann::json.
using Json = nlohmann::ordered_json;

Json jsonOf(const PlainFonts& fonts) {
    Json array = Json::array();
    for (const auto& font : fonts) {
        Json object = Json::object();
        forEachExported(*font, [&](std::string_view key, const auto& field) {
            object[std::string(key)] = field;
        });
        object["Children"] = jsonOf(font->Children);
        array.push_back(std::move(object));
    }
    return array;
}

/// Returns the fonts as a Boost.JSON array, the type that the library's dictionaries use. Its
/// values are in `storage`. A storage that outlives them is fastest, as the documentation of
/// Boost.JSON says. Values that are returned to a caller must own theirs.
boost::json::array boostArrayOf(const PlainFonts& fonts, const boost::json::storage_ptr& storage) {
    boost::json::array array(storage);
    array.reserve(fonts.size());
    for (const auto& font : fonts) {
        boost::json::object object(storage);
        object.reserve(64);
        forEachExported(*font, [&](std::string_view key, const auto& field) {
            if constexpr (requires { boost::json::value(field); })
                object.emplace(key, field);
            else
                object.emplace(key, boost::json::array(field.begin(), field.end(), storage));
        });
        object.emplace("Children", boostArrayOf(font->Children, storage));
        array.push_back(std::move(object));
    }
    return array;
}

} // namespace

void registerExport(const std::shared_ptr<const FontDocument>& document) {
    const auto fonts = std::make_shared<const Fonts>(loadOurs(document->text).List());
    const auto plain = std::make_shared<const PlainFonts>(loadOnDemand(padded(document->text)));
    const auto digest = std::hash<std::string>();

    Comparison dictionaries("Dict and its text", document->fonts);
    dictionaries.add(
        "VelmoCloudEntity",
        [fonts] { return PerchAppLibrary::toText(FontItem::getFontArray(*fonts)); }, digest);
    dictionaries.add(
        "Boost.JSON by hand",
        [plain] {
            boost::json::monotonic_resource resource;
            return boost::json::serialize(boostArrayOf(*plain, &resource));
        },
        digest);
    dictionaries.add(
        "Boost.JSON by hand, owning",
        [plain] {
            const auto storage =
                boost::json::make_shared_resource<boost::json::monotonic_resource>();
            return boost::json::serialize(boostArrayOf(*plain, storage));
        },
        digest);
    dictionaries.add("nlohmann/json", [plain] { return jsonOf(*plain).dump(); }, digest);

    Comparison texts("export", document->fonts);
    texts.add("VelmoCloudEntity", [fonts] { return FontItem::getFontArrayText(*fonts); }, digest);
    texts.add(
        "RapidJSON's writer by hand", [plain] { return writeRapidJSON(*plain); },
        [](const rapidjson::StringBuffer& buffer) {
            return std::hash<std::string_view>()(viewOf(buffer)); // equals that of a std::string
        });
    texts.add("nlohmann/json", [plain] { return jsonOf(*plain).dump(); }, digest);
}
