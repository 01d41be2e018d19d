#include "Loaders.hpp"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <stdexcept>

namespace {

void read(const QJsonValue& value, std::int64_t& field) { field = value.toInteger(); }
void read(const QJsonValue& value, bool& field) { field = value.toBool(); }
void read(const QJsonValue& value, std::string& field) { field = value.toString().toStdString(); }
void read(const QJsonValue& value, std::vector<std::int64_t>& field) {
    for (const auto& element : value.toArray())
        field.push_back(element.toInteger());
}

PlainFonts fontsFrom(const QJsonArray& array) {
    PlainFonts fonts;
    fonts.reserve(static_cast<std::size_t>(array.size()));
    for (const auto& element : array) {
        const QJsonObject object = element.toObject();
        auto font = std::make_shared<PlainFont>();
        forEachField(*font, [&](const char* key, auto& field) {
            if (const auto found = object.find(QLatin1StringView(key)); found != object.end())
                read(*found, field);
        });
        font->Children = fontsFrom(object.value(QLatin1StringView("Children")).toArray());
        fonts.push_back(std::move(font));
    }
    return fonts;
}

} // namespace

PlainFonts loadQt(std::string text) {
    const auto size = static_cast<qsizetype>(text.size());
    QJsonParseError error;
    const auto document =
        QJsonDocument::fromJson(QByteArray::fromRawData(text.data(), size), &error);
    if (error.error != QJsonParseError::NoError)
        throw std::runtime_error(error.errorString().toStdString());
    return fontsFrom(document.array());
}
