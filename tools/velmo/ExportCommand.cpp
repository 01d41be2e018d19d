#include "Commands.hpp"
#include "FontView.hpp"
#include "Terminal.hpp"

#include <CLI/App.hpp>

namespace velmo {
namespace {

struct ExportOptions {
    FontSource source;
    bool asJSON = false; // not read: the output is always JSON
};

ExitStatus exportFonts(const ExportOptions& options) {
    printJSONText(FontItem::getFontArrayText(readFontList(options.source).List()));
    return ExitStatus::success;
}

} // namespace

void addExport(CLI::App& application, Action& selected) {
    auto [command, options] =
        addCommand(application, selected,
                   {.name = "export",
                    .description = "Print the fonts as JSON, each as its Dict",
                    .example = "velmo export font-list.json",
                    .statusOne = ""},
                   &exportFonts);
    addFile(command, options.source);
}

} // namespace velmo
