#include "GlazeFont.hpp"
#include "Loaders.hpp"

#include <stdexcept>

namespace {

struct Options : glz::opts {
    bool validate_trailing_whitespace = true; // otherwise anything may follow the document
};

} // namespace

PlainFonts loadGlaze(std::string text) {
    PlainFonts fonts;
    if (const auto error = glz::read<Options{{.error_on_unknown_keys = false}}>(fonts, text))
        throw std::runtime_error(glz::format_error(error, text));
    return fonts;
}
