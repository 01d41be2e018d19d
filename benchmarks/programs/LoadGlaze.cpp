#include "GlazeFont.hpp"
#include "Loaders.hpp"

#include <stdexcept>

PlainFonts loadGlaze(std::string text) {
    PlainFonts fonts;
    if (const auto error = glz::read<glz::opts{.error_on_unknown_keys = false}>(fonts, text))
        throw std::runtime_error(glz::format_error(error, text));
    return fonts;
}
