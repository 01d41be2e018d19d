// Fuzzes the locations of a font: they are made of their parts as the rules say, read literally.
#include "Texts.hpp"

#include <tests/literal/LiteralText.hpp>

#include <VelmoCloudEntity/font/FontItem.hpp>

#include <PerchAppLibrary/ApplicationManager.hpp>
#include <PerchAppLibrary/md5.hpp>
#include <PerchAppLibrary/platform/Path.hpp>
#include <PerchAppLibrary/platform/URL.hpp>

#include <array>
#include <cstdio>

using namespace PerchAppLibrary;
using namespace VelmoCloudEntity;

namespace {

/// Returns the text without its last four UTF-16 code units.
std::optional<std::string> cut(const std::string& text) {
    const icu::UnicodeString units = literal::unicode(text);
    if (units.length() < 4)
        return std::nullopt;
    return literal::utf8(units.tempSubString(0, units.length() - 4));
}

std::string encoded(const std::string& text) {
    std::string result;
    for (const char each : literal::utf8(literal::unicode(text)))
        if (each > 0 && (std::isalnum(each) != 0 ||
                         std::string_view("-._~!$&'()*+,;=:@/?").find(each) != std::string::npos)) {
            result += each;
        } else {
            std::array<char, 4> hexadecimal{};
            std::snprintf(hexadecimal.data(), 4, "%%%02X", static_cast<unsigned char>(each));
            result += hexadecimal.data();
        }
    return result;
}

std::string joined(std::string path, std::string component) {
    if (path.empty() || component.empty())
        return path + component;
    while (!path.empty() && path.back() == '/')
        path.pop_back();
    component.erase(0, component.find_first_not_of('/'));
    return path + "/" + component;
}

std::string address(Input& input, Texts& texts) {
    constexpr std::array begins{"",  "https://h:80/", "http://[::1]/", "//h", "a:", ":", "?",
                                "/", "http://h:p/"};
    constexpr std::array ends{"", ".ttf", "/", "//", "%20.ttf", ".😀tf"};
    std::string text = input.pick(begins);
    text += texts.fresh();
    return text + input.pick(ends);
}

std::string wellFormed(const std::string& text) { return literal::utf8(literal::unicode(text)); }

void check(Input& input, Texts& texts) {
    const auto font = FontItem::create();
    const std::string name = address(input, texts), url = address(input, texts),
                      folder = address(input, texts), set = texts.fresh(), tag = texts.fresh();
    font->setProductFileName(name);
    font->setProductFileUrl(url);
    font->setPreviewFileUrl(folder);
    font->setProductSetName(set);
    font->setVersion(url);
    font->setIsPrivate(input.oneIn(2));
    font->setIsOnline(input.oneIn(2));

    requireEqual(path::append(folder, name), joined(folder, name), "joined");
    const std::string cache = ApplicationManager::tmpCachesDir();
    requireEqual(font->LocalFile(), font->IsOnline() ? joined(cache, name) : name, "LocalFile");
    const std::string ofPublic = set + "/" + url + "/", ofPrivate = "own/" + folder + "/";
    requireEqual(font->getRemoteFileUrl({.productFileUrlHeader = "p/",
                                         .privateProductFileUrlHeader = "own/",
                                         .userGuid = folder}),
                 (font->IsPrivate() ? ofPrivate : "p/" + ofPublic) + name, name);

    requireEqual(url::percentEncodedForFragment(url), encoded(url), "encoded");
    require(url::parse("#" + encoded(url)).has_value(), "no fragment: " + url);
    const auto preview = font->findRemotePreviewFile();
    const auto expected = url::parse(encoded(cut(url).value_or("") + "_B.png"));
    require(preview.has_value() == (cut(url) && expected), "preview of " + url);
    if (preview)
        requireEqual(preview->buffer(), expected->buffer(), "preview of " + url);
    require(!preview || font->remotePreviewFile() == *preview, "remotePreviewFile of " + url);

    const std::optional<std::string> stem = cut(name);
    require(font->stem().has_value() == stem.has_value(), "stem of " + name);
    if (!stem)
        return;
    requireEqual(wellFormed(*font->stem()), *stem, "stem of " + name);
    requireEqual(font->LocalPreviewFile(), joined(cache, *font->stem() + "_B.png"), name);
    const FontItem::PreviewLabels labels{
        .isFixed = input.oneIn(2), .previewTag = tag, .colorTag = "c", .fontSize = -3};
    const std::string clear = *font->stem() + "_" + tag + "_c_-3.png";
    const std::string file = labels.isFixed.value ? clear : md5(clear);
    requireEqual(font->getLocalPreviewFile(labels), joined(cache, file), name);
    requireEqual(font->getRemotePreviewFile(labels), joined(folder, file), name);
    const std::string header = labels.isFixed.value ? "f/" : "p/";
    requireEqual(font->getRemotePreviewFile({.isFixed = labels.isFixed,
                                             .previewTag = tag,
                                             .colorTag = "c",
                                             .fontSize = -3,
                                             .fixPreviewFileUrlHeader = "f/",
                                             .previewFileUrlHeader = "p/",
                                             .privatePreviewFileUrlHeader = "own/",
                                             .userGuid = folder}),
                 (font->IsPrivate() ? ofPrivate : header + ofPublic) + file, name);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    Texts texts(input);
    do
        check(input, texts);
    while (!input.isAtEnd());
    return 0;
}
