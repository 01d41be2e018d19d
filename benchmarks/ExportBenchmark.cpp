#include "Benchmarks.hpp"
#include "Comparison.hpp"
#include "Loaders.hpp"

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <boost/json/array.hpp>
#include <boost/json/monotonic_resource.hpp>
#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>
#include <nlohmann/json.hpp>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace {

using VelmoCloudEntity::FontItem;

/// Calls `visit(key, field)` for each field that an export contains, but Children.
template <class Visitor>
void forEachExported(PlainFont& font, Visitor&& visit) {
    forEachField(font, [&](std::string_view key, auto& field) {
        if (key != "displayName" && key != "previewText" && key != "isActivated")
            visit(key, field);
    });
}

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

using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

void write(Writer& writer, std::int64_t number) { writer.Int64(number); }
void write(Writer& writer, bool flag) { writer.Bool(flag); }
void write(Writer& writer, const std::string& text) {
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}
void write(Writer& writer, const std::vector<std::int64_t>& numbers) {
    writer.StartArray();
    for (const std::int64_t number : numbers)
        writer.Int64(number);
    writer.EndArray();
}
void write(Writer& writer, const PlainFonts& fonts) {
    writer.StartArray();
    for (const auto& font : fonts) {
        writer.StartObject();
        forEachExported(*font, [&](std::string_view key, const auto& field) {
            writer.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()));
            write(writer, field);
        });
        writer.Key("Children");
        write(writer, font->Children);
        writer.EndObject();
    }
    writer.EndArray();
}

} // namespace

void registerExport(const std::shared_ptr<const FontDocument>& document) {
    const auto fonts = std::make_shared<const Fonts>(loadOurs(document->text).List());
    const auto plain = std::make_shared<const PlainFonts>(loadOnDemand(reply(*document)));
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
        "RapidJSON's writer by hand",
        [plain] {
            rapidjson::StringBuffer buffer;
            Writer writer(buffer);
            write(writer, *plain);
            return buffer;
        },
        [](const rapidjson::StringBuffer& buffer) {
            return std::hash<std::string_view>()(
                {buffer.GetString(), buffer.GetSize()}); // equals the hash of a std::string
        });
    texts.add("nlohmann/json", [plain] { return jsonOf(*plain).dump(); }, digest);
}
