#pragma once

#include <PerchAppLibrary/JSONElement.hpp>
#include <PerchAppLibrary/json/detail/Conversion.hpp>
#include <PerchAppLibrary/record/detail/RecordFiller.hpp>

#include <simdjson.h>

#include <cstddef>
#include <optional>
#include <string_view>

namespace PerchAppLibrary {

/// The members of a parsed document, as a RecordFiller takes them.
class DocumentSource {
public:
    using Element = simdjson::dom::element;

    /// Requires that the JSON, whose document is read, outlives the source.
    explicit DocumentSource(const JSON& json) noexcept : m_json(json) {}

    /// Returns the JSON itself, or nullopt for JSON::null, which belongs to no document.
    std::optional<Element> root() const noexcept { return JSONElement::of(m_json); }

    template <class Visitor>
    bool forEachMember(Element element, Visitor visit) const {
        // The text of a key lies in the document, followed by other texts and the reader's padding.
        static_assert(NameIndex::headSize <= simdjson::SIMDJSON_PADDING);
        simdjson::dom::object members;
        if (element.get(members) != simdjson::SUCCESS)
            return false;
        const auto end = members.end();
        for (auto member = members.begin(); member != end; ++member)
            visit(member.key(), member.value());
        return true;
    }

    template <class Visitor>
    void forEachElement(Element element, Visitor visit) const {
        simdjson::dom::array elements;
        if (element.get(elements) == simdjson::SUCCESS)
            for (const Element each : elements)
                visit(each);
    }

    /// Returns the number of elements, at least so many if there are millions.
    std::optional<std::size_t> elementCount(Element element) const noexcept {
        simdjson::dom::array elements;
        return element.get(elements) == simdjson::SUCCESS ? std::optional(elements.size()) : std::nullopt;
    }

    bool isObject(Element element) const noexcept { return element.is_object(); }

    template <class T>
    bool get(Element element, T& value) const noexcept {
        return element.get(value) == simdjson::SUCCESS;
    }

    template <class T>
    bool convert(Element element, T& value) const {
        return convertElement(element, value);
    }

    JSON toJSON(Element element) const noexcept { return JSONElement::inDocumentOf(m_json, element); }

private:
    const JSON& m_json;
};

extern template class RecordFiller<DocumentSource>;

} // namespace PerchAppLibrary
