#pragma once

#include <PerchAppLibrary/json/JSON.hpp>

#include <simdjson.h>

#include <bit>
#include <memory>
#include <optional>

namespace PerchAppLibrary {

/// Converts between a JSON and an element of the parser. Only sources of this library use it, so
/// public headers do not include the parser.
class JSONElement {
public:
    /// Returns the element of a JSON, or nullopt for JSON::null, which has no document.
    static std::optional<simdjson::dom::element> of(const JSON& json) noexcept {
        if (!json.m_document)
            return std::nullopt;
        return std::bit_cast<simdjson::dom::element>(json.m_position);
    }

    /// Returns another element of the document of `json`.
    static JSON inDocumentOf(const JSON& json, simdjson::dom::element element) noexcept {
        return {json.m_document, std::bit_cast<JSON::Position>(element)};
    }

    /// Copies the element into a document of its own, so it does not keep a large document alive.
    static JSON detached(simdjson::dom::element element);

    /// Returns an element of this document.
    static JSON inDocument(std::shared_ptr<const void> document,
                           simdjson::dom::element element) noexcept {
        return {std::move(document), std::bit_cast<JSON::Position>(element)};
    }
};

} // namespace PerchAppLibrary
