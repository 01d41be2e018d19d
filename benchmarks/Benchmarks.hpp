#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <string>

/// A font list as the service sends it, made of the bundled sample repeated.
struct FontDocument {
    std::string text;
    std::size_t fonts; // leaf fonts
};

/// Loading a document: by the library, by simdjson on-demand and by nlohmann/json into a plain struct.
/// The document must live until the benchmarks have run. Throws when the loaders do not agree on it.
void registerLoadBenchmarks(const FontDocument& document);
