#include "Commands.hpp"
#include "FontView.hpp"
#include "Terminal.hpp"

#include <CLI/App.hpp>

namespace velmo {
namespace {

struct ExportOptions {
    FontSource source;
    bool asJSON = false; // it is JSON either way
};

ExitStatus exportFonts(const ExportOptions& options) {
    print(FontItem::getFontArrayText(readFontList(options.source).List()) + "\n");
    return ExitStatus::done;
}

} // namespace

void addExport(CLI::App& application, Work& work) {
    auto [command, options] =
        addCommand(application, work, "export", "Print the fonts' Dict as JSON", &exportFonts);
    addFile(command, options.source);
}

} // namespace velmo
