#include <PerchAppLibrary/json/Dictionary.hpp>

#include <PerchAppLibrary/json/detail/Conversion.hpp>
#include <PerchAppLibrary/json/detail/JSONElement.hpp>
#include <PerchAppLibrary/text/Text.hpp>

#include <boost/json/serializer.hpp>
#include <fast_float/fast_float.h>

#include <charconv>
#include <cmath>
#include <concepts>
#include <iterator>
#include <variant>

namespace PerchAppLibrary {
namespace {

namespace dom = simdjson::dom;

/// Calls itself once for each level. A document has at most JSON::maximumDepth levels.
void assign(Value& target, dom::element element) {
    if (dom::array elements; element.get(elements) == simdjson::SUCCESS) {
        target.emplace_array().reserve(elements.size());
        for (const dom::element each : elements)
            assign(target.get_array().emplace_back(nullptr), each);
    } else if (dom::object members; element.get(members) == simdjson::SUCCESS) {
        target.emplace_object().reserve(members.size());
        for (const auto& [key, member] : members)
            assign(target.get_object()[key], member);
    } else {
        std::visit(
            [&target]<class T>(T scalar) {
                if constexpr (std::same_as<T, std::string_view>)
                    target.emplace_string() = scalar;
                else if constexpr (!std::same_as<T, std::monostate>)
                    target = scalar;
            },
            scalarOf(element));
    }
}

/// Returns the text with that of the source behind it. For each piece, the serializer descends anew
/// to where it stopped. Pieces of one size would take quadratic time in the depth, so the text
/// grows by a factor.
template <class Source>
std::string withText(std::string text, const Source& source) {
    char buffer[4096];
    boost::json::serializer serializer;
    serializer.reset(&source);
    const std::size_t start = text.size(); // A factor of the whole text would take quadratic time.
    text.append(serializer.read(buffer));
    while (!serializer.done()) {
        const std::size_t begin = text.size();
        const std::size_t size = begin - start;
        text.resize(begin + size);
        text.resize(begin + serializer.read(&text[begin], size).size());
    }
    return text;
}

} // namespace

void assign(Value& target, std::nullptr_t) { target = nullptr; }
void assign(Value& target, std::int64_t number) { target = number; }
void assign(Value& target, std::uint64_t number) { target = number; }
void assign(Value& target, bool flag) { target = flag; }

void assign(Value& target, double number) {
    target = std::isfinite(number) ? Value(number) : Value(nullptr);
}
void assign(Value& target, float number) {
    if (!std::isfinite(number)) {
        target = nullptr;
        return;
    }
    // Converts by the shortest decimal, 12.7. A plain cast gives 12.699999809265137.
    char decimal[32];
    double value = 0;
    fast_float::from_chars(decimal, std::to_chars(decimal, std::end(decimal), number).ptr, value);
    target = value;
}

void assign(Value& target, std::string_view text) {
    boost::json::string& string = target.emplace_string();
    if (text::isWellFormed(text))
        string = text;
    else
        string = text::wellFormed(text);
}

void assign(Value& target, const std::string& text) { assign(target, std::string_view(text)); }
void assignArray(Value& target, std::size_t size) { target.emplace_array().reserve(size); }
Value& append(Value& array) { return array.get_array().emplace_back(nullptr); }
void assign(Value& target, const JSON& json) {
    if (const std::optional<dom::element> element = JSONElement::of(json))
        assign(target, *element);
    else
        target = nullptr;
}
void assign(Value& target, Dictionary&& dictionary) { target = std::move(dictionary); }

std::string toText(const Dictionary& dictionary) { return withText({}, dictionary); }
std::string toText(const Value& value) { return withText({}, value); }

std::string toText(const std::vector<Dictionary>& dictionaries) {
    std::string text = "[";
    for (const Dictionary& dictionary : dictionaries) {
        if (text.size() > 1)
            text += ',';
        text = withText(std::move(text), dictionary);
    }
    text += ']';
    return text;
}

} // namespace PerchAppLibrary
