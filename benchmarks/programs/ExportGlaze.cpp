#include "ExportProgram.hpp"
#include "GlazeFont.hpp"
#include "Loaders.hpp"

#include <stdexcept>

namespace {

std::string writeGlaze(const PlainFonts& fonts) {
    std::string text;
    if (const auto error = glz::write_json(fonts, text))
        throw std::runtime_error(glz::format_error(error));
    return text;
}

} // namespace

int main(int argc, char** argv) {
    return runProgram(argc, argv, &runExport<loadGlaze, writeGlaze>);
}
