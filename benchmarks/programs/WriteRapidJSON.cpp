#include "WriteRapidJSON.hpp"

#include <rapidjson/writer.h>

namespace {

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

rapidjson::StringBuffer writeRapidJSON(const PlainFonts& fonts) {
    rapidjson::StringBuffer buffer;
    Writer writer(buffer);
    write(writer, fonts);
    return buffer;
}
