// Fuzzes reading and export. A text is a document if it is one for Boost.JSON, and its content is
// equal. Any document can be read as records, which give back what they took.
#include "Document.hpp"

#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/account/UserItem.hpp>
#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/entity/RecordTree.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <boost/json/error.hpp>
#include <boost/json/parse.hpp>

#include <cmath>
#include <limits>
#include <optional>

using namespace PerchAppLibrary;
using namespace VelmoCloudEntity;

namespace {

using Fonts = Records<FontItem>;

/// Returns the document, or the message of the ParseError.
template <class Text>
std::pair<std::optional<JSON>, std::string> parsed(Text&& text) {
    try {
        return {JSON::parse(std::forward<Text>(text)), ""};
    } catch (const JSON::ParseError& error) {
        require(error.line() > 0 && error.column() > 0 && !error.reason().empty(), "place");
        return {std::nullopt, error.what()};
    }
}

/// Boost.JSON rounds in its own way, and takes great exponents as infinite, in 1.83 even of zero.
bool isEqual(double given, double expected) {
    if (!std::isfinite(expected))
        return given == 0 || std::abs(given) == std::numeric_limits<double>::max();
    return std::abs(given - expected) <= 1e-14 * std::abs(expected) + 1e-320;
}

bool isEqual(const Value& given, const Value& expected) {
    if (given.is_double() && expected.is_double())
        return isEqual(given.as_double(), expected.as_double());
    if (given.is_array() && expected.is_array())
        return std::ranges::equal(
            given.get_array(), expected.get_array(),
            [](const Value& one, const Value& other) { return isEqual(one, other); });
    if (!given.is_object() || !expected.is_object())
        return given == expected;
    return given.get_object().size() == expected.get_object().size() &&
           std::ranges::all_of(given.get_object(), [&](const auto& member) {
               const Value* const other = expected.get_object().if_contains(member.key());
               return other != nullptr && isEqual(member.value(), *other);
           });
}

/// Tests that Boost.JSON reads the document, too, or refuses the text, too.
void compareWithBoost(std::string_view text, const std::optional<JSON>& json) {
    boost::json::error_code refused;
    boost::json::parse_options options;
    options.max_depth = JSON::maximumDepth;
    const Value expected = boost::json::parse(text, refused, {}, options);
    if (!refused)
        require(json && isEqual(toValue(*json), expected),
                json ? toText(toValue(*json)) : "refused: " + std::string(text));
    // Boost.JSON 1.81 also refuses halves of surrogate pairs, and exponents beyond int.
    const bool mayHaveHalves =
        text.find("\\ud") != std::string::npos || text.find("\\uD") != std::string::npos;
    if (refused && refused != boost::json::error::exponent_overflow && !mayHaveHalves)
        require(!json, "accepted: " + std::string(text));
}

void checkRecords(const JSON& json) {
    const Fonts fonts = FontList(json).List();
    const std::string exported = toText(FontItem::getFontArray(fonts));
    requireEqual(FontItem::getFontArrayText(fonts), exported, "exported without dictionaries");
    const Fonts again = FontList::parse(exported).List();
    requireEqual(FontItem::getFontArrayText(again), exported, "exported again");

    const Fonts leaves = leavesWhere(again, [](const FontItem&) { return true; });
    FontList::setActivatedFont(fonts, leaves); // every font matches its own reading
    require(FontList::getActivatedFont(fonts).size() == leaves.size(), "marks");
    const auto map = UserFontActivateMapItem::create(json);
    require(map->FontList().size() == json["FontList"].arrayValue().size(), "FontList");
    const std::string user = toText(UserItem::create(json)->Dict()); // with a token of any kind
    requireEqual(toText(UserItem::create(JSON::parse(user))->Dict()), user, "UserItem");

    const auto tags = FontTagList(json).List();
    FontTagList::setFontTagItemCheck(tags, true);
    for (const auto& tag : FontTagList::getCheckedFontTagList(tags))
        require(FontTagList::getCheckedFontTagFontIdList({tag}, tag->FontIdList()).size() <=
                    tag->FontIdList().size(),
                "a filter adds no identifiers");
}

void check(const std::string& text) {
    const auto [json, message] = parsed(std::string_view(text));
    const auto inPlace = parsed(std::string(text));
    require(json == inPlace.first, text);
    requireEqual(message, inPlace.second, text);
    compareWithBoost(text, json);
    if (!json)
        return;
    require(JSON::parse(toText(toValue(*json))) == *json, text);
    checkRecords(*json);
}

const std::vector<std::string_view> keys{
    "Id",         "ProductName", "ProductFileName", "ProductFileUrl", "displayName", "Tags",
    "IsGroup",    "Children",    "IsActivated",     "FontList",       "sms_token",   "Fonts",
    "FontIdList", "Guid"};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    check(makeDocument(input, keys));
    return 0;
}
