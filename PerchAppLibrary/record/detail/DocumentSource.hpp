#pragma once

#include <PerchAppLibrary/json/detail/Conversion.hpp>
#include <PerchAppLibrary/json/detail/JSONElement.hpp>
#include <PerchAppLibrary/record/detail/NameIndex.hpp>

#include <concepts>
#include <optional>
#include <string_view>
#include <utility>

namespace PerchAppLibrary {

/// A parsed document as the Source of a RecordFiller.
class DocumentSource {
public:
    using Element = simdjson::dom::element;

    explicit DocumentSource(JSON json) noexcept : m_json(std::move(json)) {}

    static constexpr bool readsInOrder = false;

    /// Returns the JSON itself, or nullopt for JSON::null, which belongs to no document.
    std::optional<Element> root() const noexcept { return JSONElement::of(m_json); }

    template <class Visitor>
    bool forEachMember(Element element, Visitor visit) const {
        // In the document, other texts and the parser's padding follow the text of a key.
        static_assert(NameIndex::headSize <= simdjson::SIMDJSON_PADDING);
        simdjson::dom::object members;
        if (element.get(members) != simdjson::SUCCESS)
            return false;
        const auto end = members.end();
        for (auto member = members.begin(); member != end; ++member)
            visit(member.key(), member.value());
        return true;
    }

    static std::string_view unescapedKey(std::string_view key) noexcept { return key; }

    template <class Visitor>
    void forEachElement(Element element, Visitor visit) const {
        simdjson::dom::array elements;
        if (element.get(elements) == simdjson::SUCCESS)
            for (const Element each : elements)
                visit(each);
    }

    /// Returns the number of elements, which the parser counts up to 0xFFFFFF.
    static std::size_t sizeHint(Element element) noexcept {
        simdjson::dom::array elements;
        return element.get(elements) == simdjson::SUCCESS ? elements.size() : 0;
    }

    static bool isArray(Element element) noexcept { return element.is_array(); }
    static bool isObject(Element element) noexcept { return element.is_object(); }

    template <class T>
    bool get(Element element, T& value) const noexcept {
        if constexpr (std::integral<T> || std::same_as<T, std::string_view>)
            return element.get(value) == simdjson::SUCCESS;
        else
            return false; // convert() reads it
    }

    template <class T>
    bool convert(Element element, T& value) const {
        return convertElement(element, value);
    }

    JSON toJSON(Element element) const noexcept {
        return JSONElement::inDocumentOf(m_json, element);
    }

private:
    JSON m_json; // a copy, since filling may set a property that holds the given one
};

} // namespace PerchAppLibrary
