#pragma once

#include <VelmoCloudEntity/font/FontItem.hpp>
#include <VelmoCloudEntity/font/detail/FontNames.hpp>
#include <VelmoCloudEntity/font/searchedCharacters.hpp>

#include <PerchAppLibrary/text/ComparedText.hpp>
#include <PerchAppLibrary/text/Needle.hpp>
#include <PerchAppLibrary/text/TextSignature.hpp>
#include <PerchAppLibrary/text/internal/NeedleSet.hpp>

#include <concepts>
#include <optional>
#include <string_view>

/// The queries of FontList over the names of fonts, one class for each.
namespace VelmoCloudEntity {

namespace text = PerchAppLibrary::text;
using text::TextSignature;

/// Whether a font matches a query, or nullopt if undecided.
using Decision = std::optional<bool>;

/// A query that decides on a font by the signature of its names or, if that decides nothing, by the
/// names themselves.
template <class Query>
concept NameQuery =
    requires(Query query, const TextSignature& signature, const FontItem& font, FontNames& reader) {
        { query.prefilter(signature) } -> std::same_as<Decision>;
        { query.matches(font, reader) } -> std::same_as<bool>;
    };

/// Returns false if no name with this signature can contain or equal a text with the signature
/// `sought`, otherwise nullopt.
inline Decision mayContain(const TextSignature& names, const TextSignature& sought) {
    return names.covers(sought) ? Decision() : Decision(false);
}

/// Matches a font whose ProductName equals the name, case included.
class ExactNameQuery {
public:
    explicit ExactNameQuery(std::string_view name)
        : m_signature(text::ComparedText(name)), m_name(name, text::Case::sensitive) {}

    Decision prefilter(const TextSignature& names) const { return mayContain(names, m_signature); }
    bool matches(const FontItem& font, FontNames&) {
        m_compared.assign(font.ProductName());
        return m_compared == m_name;
    }

private:
    TextSignature m_signature;
    text::ComparedText m_name;
    text::ComparedText m_compared{text::Case::sensitive};
};

/// Matches a font whose ProductName contains the name.
class FuzzyNameQuery {
public:
    explicit FuzzyNameQuery(std::string_view name) : m_needle(name) {}

    Decision prefilter(const TextSignature& names) const {
        // Never true: the signature is of all names, and the query of ProductName only.
        return mayContain(names, m_needle.signature());
    }
    bool matches(const FontItem& font, FontNames& names) const {
        return names.isProductName(font, [this](const auto& name) { return m_needle.isIn(name); });
    }

private:
    text::Needle m_needle;
};

/// Matches a font whose ProductName, ProductSetName or ProductFileName equals the key.
class ExactKeyQuery {
public:
    explicit ExactKeyQuery(std::string_view key) : m_key(key), m_signature(m_key) {}

    Decision prefilter(const TextSignature& names) const { return mayContain(names, m_signature); }
    bool matches(const FontItem& font, FontNames& names) const {
        return names.anyStored(font, [this](const auto& name) { return name == m_key; });
    }

private:
    text::ComparedText m_key;
    TextSignature m_signature;
};

/// Matches a font whose ProductName, ProductSetName, ProductFileName or DisplayName contains the
/// key.
class FuzzyKeyQuery {
public:
    explicit FuzzyKeyQuery(std::string_view key) : m_needle(key) {}

    Decision prefilter(const TextSignature& names) const { return m_needle.prefilter(names); }
    bool matches(const FontItem& font, FontNames& names) const {
        return names.any(font, [this](const auto& name) { return m_needle.isIn(name); });
    }

private:
    text::Needle m_needle;
};

/// Matches a font if one of these four names contains one of the searchedCharacters() of the key.
class CharacterQuery {
public:
    explicit CharacterQuery(std::string_view key) {
        for (const std::string_view character : searchedCharacters(key))
            m_characters.add(character);
    }

    Decision prefilter(const TextSignature& names) const { return m_characters.prefilter(names); }
    bool matches(const FontItem& font, FontNames& names) const {
        return names.any(font, [this](const auto& name) { return m_characters.anyIn(name); });
    }

private:
    text::NeedleSet m_characters;
};

} // namespace VelmoCloudEntity
