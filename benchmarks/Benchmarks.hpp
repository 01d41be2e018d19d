#pragma once

#include <VelmoCloudEntity/font/FontList.hpp>

#include <cstddef>
#include <memory>
#include <string>

/// A font list as the service sends it: the bundled sample, repeated.
struct FontDocument {
    std::string text;
    std::size_t fonts; // number of leaf fonts
};

/// Returns the sample, repeated until it has at least this many leaf fonts.
FontDocument repeatedSample(std::size_t minFonts);

/// Returns a copy of the text as a reply, with capacity for the padding that simdjson requires.
std::string reply(const FontDocument& document);

using Fonts = VelmoCloudEntity::Records<VelmoCloudEntity::FontItem>;

/// The fonts of a document, with distinct identifiers and without marks.
struct FontTree {
    explicit FontTree(const FontDocument& document);

    Fonts fonts;
    std::size_t leaves; // number of leaf fonts
};

// Each function registers the comparisons of one kind of work. A side whose result differs from
// that of the sides before it is reported as an error and not timed.

/// Registers loading a document: the library, and common JSON readers that fill a plain struct.
void registerLoad(const std::shared_ptr<const FontDocument>& document);

/// Registers writing fonts as JSON: the library, and nlohmann/json, RapidJSON and Boost.JSON from a
/// plain struct.
void registerExport(const std::shared_ptr<const FontDocument>& document);

/// Registers reading each type of record: the library, and simdjson on-demand by hand into a plain
/// struct.
void registerRecords();

/// Registers searching by name and key: the library, a literal implementation of the rules with
/// ICU, and Qt.
void registerSearch(const std::shared_ptr<const FontTree>& tree);

/// Registers finding and marking fonts by identifier: the library, and hash joins of two arrays of
/// integers.
void registerLookup(const std::shared_ptr<const FontTree>& tree);

/// Registers filtering a million identifiers by ticked tags: the library, std::set,
/// std::unordered_set and Roaring bitmaps.
void registerTagFilter();
