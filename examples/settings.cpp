// Settings of the client in a file: read at the start, saved after a change.
//
//     $ settings settings.json
//     Preview of style S in colour B, 32 points
//     $ settings settings.json 48
//     Preview of style S in colour B, 48 points
//     $ settings settings.json
//     Preview of style S in colour B, 48 points
//     $ settings settings.json large
//     large is not a number of points
//     [1]
//     $ echo '{"PreviewTag": "F", "PreviewFontSize": ' > settings.json
//     $ settings settings.json 24
//     settings.json, line 2, column 1: the text ends before the document does
//     [1]
#include <VelmoCloudEntity/client/ConfigItem.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

using PerchAppLibrary::JSON;
using VelmoCloudEntity::ConfigItem;

/// Returns the settings in the file, or the defaults if there is no file. A setting without a
/// suitable value in the file keeps its default. Throws std::runtime_error if the file cannot be
/// read or is not JSON.
std::shared_ptr<ConfigItem> readSettings(const std::string& path) {
    const auto settings = ConfigItem::create();
    if (!std::filesystem::exists(path))
        return settings;
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error(path + ": cannot be read");
    try {
        settings->setValue(JSON::parse(std::string(std::istreambuf_iterator<char>(file), {})));
    } catch (const JSON::ParseError& error) {
        throw std::runtime_error(path + ", " + error.what());
    }
    return settings;
}

/// Replaces the file. The old file remains if the new one cannot be written.
void saveSettings(const ConfigItem& settings, const std::string& path) {
    const std::string temporary = path + ".new";
    std::ofstream file(temporary, std::ios::binary);
    file << PerchAppLibrary::toText(settings.Dict()) << '\n';
    file.close();
    if (!file)
        throw std::runtime_error(temporary + ": cannot be written");
    std::filesystem::rename(temporary, path);
}

int main(int count, char** arguments) try {
    const std::string path = count > 1 ? arguments[1] : "settings.json";
    const auto settings = readSettings(path);
    if (count > 2) {
        const auto points = JSON(arguments[2]).as<std::int64_t>();
        if (!points)
            throw std::runtime_error(std::string(arguments[2]) + " is not a number of points");
        settings->setPreviewFontSize(*points);
        saveSettings(*settings, path);
    }
    std::cout << "Preview of style " << settings->PreviewTag() << " in colour "
              << settings->PreviewColorTag() << ", " << settings->PreviewFontSize() << " points\n";
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
