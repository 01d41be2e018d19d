#pragma once

#include <PerchAppLibrary/json/JSON.hpp>

#include <simdjson.h>

#include <bit>
#include <memory>
#include <optional>

namespace PerchAppLibrary {

/// The reader's view of a JSON; for the sources of this library alone, so that its headers need no
/// reader.
class JSONElement {
public:
    /// None for JSON::null, which belongs to no document.
    static std::optional<simdjson::dom::element> of(const JSON& json) noexcept {
        if (!json.m_document)
            return std::nullopt;
        return std::bit_cast<simdjson::dom::element>(json.m_place);
    }

    /// Another element of the document that the JSON belongs to.
    static JSON inDocumentOf(const JSON& json, simdjson::dom::element element) noexcept {
        return {json.m_document, std::bit_cast<JSON::Place>(element)};
    }

    /// The element in a document of its own, so that it does not keep the whole of a large one.
    static JSON detached(simdjson::dom::element element);

    static JSON inDocument(std::shared_ptr<const void> document,
                           simdjson::dom::element element) noexcept {
        return {std::move(document), std::bit_cast<JSON::Place>(element)};
    }
};

} // namespace PerchAppLibrary
