#pragma once

#include "Program.hpp"

#include <cstdio>
#include <functional>
#include <optional>
#include <string_view>

/// Times the export of one side in a process of its own, in the default heap, or prints a hash of
/// the exported text. `write(load(text))` returns the text, and `view(text)` a view of it.
template <auto load, auto write, auto view = std::identity()>
void runExport(const std::string& mode, const std::string& file) {
    const auto fonts = load(readFile(file));
    std::optional<decltype(write(fonts))> text;
    const auto time = [&] { return secondsOf([&] { text.emplace(write(fonts)); }); };
    time();
    if (mode == "check") {
        std::printf("%zu\n", std::hash<std::string_view>()(view(*text)));
        return;
    }
    print("seconds", medianSecondsOf([&] {
              text.reset();
              return time();
          }));
}
