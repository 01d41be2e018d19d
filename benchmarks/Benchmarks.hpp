#pragma once

#include <VelmoCloudEntity/font/FontList.hpp>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>

/// A font list as the service sends it: the bundled sample, repeated.
struct FontDocument {
    std::string text;
    std::size_t fonts; // number of leaf fonts
};

/// Returns the sample, repeated until it has at least this many leaf fonts.
FontDocument repeatedSample(std::size_t minFonts);

/// A document in a file, for the programs that are measured in processes of their own. The file is
/// written when it is first asked for.
class DocumentFile {
public:
    DocumentFile(std::string path, std::size_t fonts, std::function<std::string()> text)
        : m_path(std::move(path)), m_fonts(fonts), m_text(std::move(text)) {}

    /// Returns the path of the file. Throws std::runtime_error if it cannot be written.
    const std::string& path() const;

    /// Returns the number of leaf fonts.
    std::size_t fonts() const { return m_fonts; }

private:
    std::string m_path;
    std::size_t m_fonts;
    std::function<std::string()> m_text;
};

/// Ways in which the documents of a service may differ from the sample.
enum class Shape {
    shuffledKeys,  // in each font another order of the keys
    missingKeys,   // in each font another third of the keys is missing
    unknownKeys,   // eight more keys in each font, with values of all kinds
    prettyPrinted, // one value in a line
};

/// Returns the document with each font in this shape. The groups and their members stay.
std::string reshaped(const std::string& text, Shape shape);

using Fonts = VelmoCloudEntity::Records<VelmoCloudEntity::FontItem>;

/// The fonts of a document, with distinct identifiers and without marks.
struct FontTree {
    explicit FontTree(const FontDocument& document);

    Fonts fonts;
    std::size_t leaves; // number of leaf fonts
};

// Each function registers the comparisons of one kind of work. A side whose result differs from
// that of the sides before it is reported as an error and not timed.

/// Registers loading a document, in processes of their own: the library, and common JSON readers
/// that fill a plain struct. Also a client's whole process, the first search, and exports.
void registerLoad(const std::shared_ptr<const DocumentFile>& document);

/// Registers loading a document of another shape.
void registerShape(const std::string& shape, const std::shared_ptr<const DocumentFile>& document);

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
