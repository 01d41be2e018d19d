#pragma once

#include <VelmoCloudEntity/font/FontList.hpp>

#include <cstddef>
#include <memory>
#include <string>

/// A font list as the service sends it, made of the bundled sample repeated.
struct FontDocument {
    std::string text;
    std::size_t fonts; // leaf fonts
};

FontDocument repeatedSample(std::size_t leastFonts);

/// A reply as it arrives in a client's buffer, with room for the padding that simdjson wants.
std::string reply(const FontDocument& document);

using Fonts = VelmoCloudEntity::Records<VelmoCloudEntity::FontItem>;

/// A document read, with its number of leaf fonts.
struct FontTree {
    explicit FontTree(const FontDocument& document);

    Fonts fonts;
    std::size_t leaves;
};

// Each registers the comparisons of one kind of work. What they are given must live until the
// benchmarks have run. They throw when the sides of a comparison do not come to the same result.

/// Loading a document: by the library, and by the usual readers of JSON into a plain struct.
void registerLoad(const std::shared_ptr<const FontDocument>& document);

/// Writing fonts as JSON: by the library, and from a plain struct by nlohmann/json and RapidJSON.
void registerExport(const std::shared_ptr<const FontDocument>& document);

/// Reading every type of record: the library, and simdjson on-demand by hand into a plain struct.
void registerRecords();

/// Searching by name and key: the library, the rules written down literally with ICU, and Qt.
void registerSearch(const std::shared_ptr<const FontTree>& tree);

/// Finding and marking fonts by identifier: the library, and bare hash joins of two arrays of
/// integers.
void registerLookup(const std::shared_ptr<const FontTree>& tree);

/// Reducing a million identifiers by ticked tags: the library, std::set and Roaring bitmaps.
void registerTagFilter();
