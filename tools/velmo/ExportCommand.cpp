#include "Commands.hpp"
#include "FontView.hpp"
#include "Terminal.hpp"

#include <CLI/App.hpp>

#include <memory>

namespace velmo {
namespace {

struct ExportOptions {
    FontSource source;
    bool asJSON = false; // it is JSON either way
};

ExitStatus exportFonts(const ExportOptions& options) {
    print(PerchAppLibrary::toText(FontItem::getFontArray(readFontList(options.source).List())) + "\n");
    return ExitStatus::done;
}

} // namespace

void addExport(CLI::App& application, Work& work) {
    const auto options = std::make_shared<ExportOptions>();
    CLI::App* const command = application.add_subcommand("export", "Print the fonts' Dict as JSON");
    addFile(*command, options->source);
    addJSONFlag(*command, options->asJSON);
    command->callback([options, &work] { work = [options] { return exportFonts(*options); }; });
}

} // namespace velmo
