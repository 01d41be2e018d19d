// Fuzzes explain(). A value that it calls used changes the record when it is changed; one that it
// calls ignored changes nothing, whatever other ignored value stands there.
#include "Document.hpp"

#include <tests/Sample.hpp>

#include <VelmoCloudEntity/account/EsUserItem.hpp>
#include <VelmoCloudEntity/account/PhoneNumberPrefixList.hpp>
#include <VelmoCloudEntity/account/SmsTokenItem.hpp>
#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/account/UserFontFavoriteMapItem.hpp>
#include <VelmoCloudEntity/account/UserFontGroupMapItem.hpp>
#include <VelmoCloudEntity/account/UserItem.hpp>
#include <VelmoCloudEntity/catalogue/FontApplyItem.hpp>
#include <VelmoCloudEntity/catalogue/FontCollectionList.hpp>
#include <VelmoCloudEntity/catalogue/FontImageItem.hpp>
#include <VelmoCloudEntity/catalogue/FontSearchList.hpp>
#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/catalogue/FontUploadItem.hpp>
#include <VelmoCloudEntity/catalogue/WebFontItem.hpp>
#include <VelmoCloudEntity/catalogue/ZRFontEffectEntity.hpp>
#include <VelmoCloudEntity/client/ClientOperaItem.hpp>
#include <VelmoCloudEntity/client/ClientStartupNoticeItem.hpp>
#include <VelmoCloudEntity/client/ClientVersionItem.hpp>
#include <VelmoCloudEntity/client/ConfigItem.hpp>
#include <VelmoCloudEntity/client/ZRMessageBubbleItem.hpp>
#include <VelmoCloudEntity/entity/UrlList.hpp>
#include <VelmoCloudEntity/font/FontList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>
#include <PerchAppLibrary/record/explain.hpp>

#include <array>
#include <set>
#include <sstream>

using namespace PerchAppLibrary;
using namespace VelmoCloudEntity;

namespace {

/// The place of one value in the text of a document.
struct Place {
    std::size_t begin;
    std::size_t end;
    bool isElement; // of an array, not a member
};

/// Returns the places of all values. Requires a document.
std::vector<Place> placesIn(const std::string& text) {
    std::vector<Place> places;
    std::vector<Place> open;
    const auto add = [&](std::size_t begin, std::size_t end) {
        places.push_back({begin, end, !open.empty() && text[open.back().begin] == '['});
    };
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t begin = i++;
        if (text[begin] == '"') {
            for (; text[i] != '"'; ++i)
                i += text[i] == '\\' ? 1 : 0;
            const std::size_t next = text.find_first_not_of(" \t\r\n", ++i);
            if (next == std::string::npos || text[next] != ':') // not a key
                add(begin, i);
        } else if (text[begin] == '[' || text[begin] == '{') {
            open.push_back({begin, 0, false});
        } else if (text[begin] == ']' || text[begin] == '}') {
            const std::size_t first = open.back().begin;
            open.pop_back();
            add(first, i);
        } else if (std::string_view(" \t\r\n,:").find(text[begin]) == std::string_view::npos) {
            i = std::min(text.find_first_of(" \t\r\n,]}", i), text.size());
            add(begin, i);
        }
    }
    return places;
}

/// Returns the properties of what T is filled from the document.
template <class T>
std::string filled(const JSON& document) {
    if constexpr (!std::derived_from<T, BaseEntity>) {
        std::string text;
        for (const auto& record : T(document))
            text += toText(record->properties()) + "\n";
        return text;
    } else if constexpr (requires { T::create(document); }) {
        return toText(T::create(document)->properties());
    } else {
        T record;
        record.setValue(document);
        return toText(record.properties());
    }
}

template <class T>
class Check {
public:
    explicit Check(std::string text) : m_text(std::move(text)), m_document(JSON::parse(m_text)) {
        m_explanation = explain<T>(m_document);
        m_filled = filled<T>(m_document);
    }

    void run() const {
        std::size_t count = 0;
        for (const Mismatch& each : m_explanation.mismatches) {
            count += each.count;
            require(each.text().find_first_of("\n\x1B") == std::string::npos, each.text());
        }
        require(count == m_explanation.ignored, m_text);
        // A value within another comes before it. What holds a counted value is not counted itself.
        std::size_t endOfCounted = 0;
        std::size_t beginOfCounted = 0;
        for (const Place& place : placesIn(m_text)) {
            if (place.begin <= beginOfCounted && endOfCounted <= place.end && endOfCounted > 0)
                continue;
            if (checkPlace(place)) {
                beginOfCounted = place.begin;
                endOfCounted = place.end;
            }
        }
    }

private:
    enum class Use : unsigned char { neither, used, ignored };

    std::string with(const Place& place, std::string_view value) const {
        return std::string(m_text).replace(place.begin, place.end - place.begin, value);
    }

    /// Returns what the explanation calls this value of a text, from what changes in the numbers
    /// without it. A null stands for a missing member, and an empty object for an element.
    static Use useOf(const Explanation& with, const Explanation& without) {
        if (with.used == without.used + 1 && with.ignored == without.ignored)
            return Use::used;
        if (with.ignored == without.ignored + 1 && with.used == without.used)
            return Use::ignored;
        return Use::neither;
    }

    /// Returns whether the value is counted.
    bool checkPlace(const Place& place) const {
        const Explanation without =
            explain<T>(JSON::parse(with(place, place.isElement ? "{}" : "null")));
        const Use use = useOf(m_explanation, without);
        if (use == Use::neither)
            return false;
        bool isChanged = false;
        for (const std::string_view value : {"7", "-7.5", "\"z\"", "\"5\"", "true", "false", "[]",
                                             "{}", "[7]", "[\"z\"]", "[[]]", "{\"z\":7}"}) {
            const std::string text = with(place, value);
            const JSON changed = JSON::parse(text);
            const std::string record = filled<T>(changed);
            // In an array or object with content, the content may be what is ignored.
            const bool isWhole = value.size() == 2 || value.find_first_of("[{") != 0;
            if (use == Use::ignored && isWhole &&
                useOf(explain<T>(changed), without) == Use::ignored)
                requireEqual(record, m_filled, "ignored in\n" + m_text + "\nand\n" + text);
            isChanged = isChanged || record != m_filled;
        }
        require(isChanged || use == Use::ignored, [&] {
            return "used without effect at " + std::to_string(place.begin) + " in\n" + m_text;
        });
        return true;
    }

    std::string m_text;
    JSON m_document;
    Explanation m_explanation;
    std::string m_filled;
};

/// Adds the names of the properties of a class, and of the records in it.
void addNames(const RecordSchema& schema, std::set<std::string_view>& names) {
    for (const Property& property : schema.properties())
        if (names.insert(property.name).second)
            if (const auto* const records = std::get_if<RecordsAccess>(&property.access))
                addNames(records->schema(), names);
}

template <class T>
void check(Input& input) {
    static const std::vector<std::string_view> keys = [] {
        std::set<std::string_view> names{"unknown"};
        if constexpr (std::derived_from<T, BaseEntity>)
            addNames(RecordAccess::schema<T>(), names);
        else
            addNames(RecordAccess::schema<typename T::value_type::element_type>(), names);
        return std::vector<std::string_view>(names.begin(), names.end());
    }();
    std::string text = makeObject(input, keys);
    if constexpr (!std::derived_from<T, BaseEntity>)
        text = "[" + text + "," + makeObject(input, keys) + "]";
    Check<T>(std::move(text)).run();
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    constexpr std::array checks{check<FontItem>,
                                check<FontList>,
                                check<Sample>,
                                check<SampleList>,
                                check<FontTagList>,
                                check<FontCollectionList>,
                                check<FontSearchList>,
                                check<PhoneNumberPrefixList>,
                                check<UrlList>,
                                check<ClientOperaItem>,
                                check<ClientStartupNoticeItem>,
                                check<ClientVersionItem>,
                                check<ConfigItem>,
                                check<EsUserItem>,
                                check<FontApplyItem>,
                                check<FontImageItem>,
                                check<FontUploadItem>,
                                check<SmsTokenItem>,
                                check<UserFontActivateMapItem>,
                                check<UserFontFavoriteMapItem>,
                                check<UserFontGroupMapItem>,
                                check<UserItem>,
                                check<WebFontItem>,
                                check<ZRFontEffectEntity>,
                                check<ZRMessageBubbleItem>};
    input.pick(checks)(input);
    return 0;
}
