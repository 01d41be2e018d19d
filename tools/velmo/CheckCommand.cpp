#include "Commands.hpp"
#include "Document.hpp"
#include "RecordTypes.hpp"
#include "Terminal.hpp"

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/explain.hpp>

#include <CLI/App.hpp>
#include <fmt/format.h>

namespace velmo {
namespace {

using PerchAppLibrary::Dictionary;
using PerchAppLibrary::Explanation;
using PerchAppLibrary::Mismatch;
using PerchAppLibrary::ValueArray;

struct CheckOptions {
    std::string file;
    std::string type;
    bool asJSON = false;
};

Dictionary describe(const Mismatch& mismatch) {
    return {{"place", mismatch.place}, {"found", mismatch.found}, {"expected", mismatch.expected},
            {"path", mismatch.path},   {"count", mismatch.count}, {"text", mismatch.text()}};
}

ExitStatus check(const CheckOptions& options) {
    Progress progress(nameOf(options.file));
    const PerchAppLibrary::JSON document = readDocument(options.file, progress);
    const RecordType* const type =
        options.type.empty() ? typeOf(document) : &recordType(options.type);
    if (type == nullptr)
        throw Failure(nameOf(options.file) + ": is of an unknown type; name the TYPE");
    const Explanation explanation =
        PerchAppLibrary::explain(document, type->schema(), !type->item.empty());
    progress.hide();
    ValueArray described;
    std::string text;
    for (const Mismatch& each : explanation.mismatches) {
        described.push_back(describe(each));
        text += printable(each.text()) + "\n";
    }
    if (options.asJSON)
        printJSON(Dictionary{{"type", type->name},
                             {"used", explanation.used},
                             {"ignored", explanation.ignored},
                             {"mismatches", std::move(described)}});
    else
        print(text + fmt::format("{}: {} values used, {} ignored\n", type->name, explanation.used,
                                 explanation.ignored));
    return explanation.ignored == 0 ? ExitStatus::success : ExitStatus::nothingFound;
}

} // namespace

void addCheck(CLI::App& application, Action& selected) {
    auto [command, options] = addCommand(application, selected,
                                         {.name = "check",
                                          .description = "List what reading a saved reply ignores",
                                          .example = "velmo check font-list.json FontList"},
                                         &check);
    addFileName(command, "FILE", options.file, "Saved reply")->required();
    std::vector<std::string> types;
    for (const RecordType& type : recordTypes())
        types.push_back(type.name);
    command
        .add_option("TYPE", options.type, "Type of the document; by default the one that fits best")
        ->type_name(choiceType(types));
}

} // namespace velmo
