#include "Commands.hpp"
#include "Document.hpp"
#include "ExitStatus.hpp"
#include "RecordTypes.hpp"
#include "Terminal.hpp"

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/explain.hpp>

#include <CLI/App.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace velmo {
namespace {

using PerchAppLibrary::Dictionary;
using PerchAppLibrary::Explanation;
using PerchAppLibrary::JSON;
using PerchAppLibrary::Mismatch;
using PerchAppLibrary::toValue;
using PerchAppLibrary::Value;
using PerchAppLibrary::ValueArray;

struct CheckOptions {
    std::vector<std::string> files;
    std::string type; // empty: the one that fits best
    bool asJSON = false;
};

/// What a file holds.
struct Finding {
    std::string type;    ///< the name of the document's type, empty if none fits
    std::string problem; ///< why the document is none of this type, empty if it is
    Explanation explanation;
};

Finding findingOf(const std::string& file, const CheckOptions& options) {
    Progress progress(nameOf(file));
    const JSON document = readDocument(file, progress);
    progress.begin("checking");
    const RecordType* const type =
        options.type.empty() ? typeOf(document) : &recordType(options.type);
    if (type == nullptr)
        return {"", describeWithoutType(document), {}};
    const bool isList =
        options.type.empty() ? document.type() == JSON::Type::array : !type->item.empty();
    Explanation explanation = PerchAppLibrary::explain(document, type->schema(), isList);
    for (Mismatch& each : explanation.mismatches)
        if (isList && each.reason == Mismatch::Reason::noRecord && each.path.empty())
            each.place = type->name; // the list itself, by the name that the user gave
    return {type->name, options.type.empty() ? "" : differenceFrom(*type, document),
            std::move(explanation)};
}

Value dataOf(const std::string& file, const Finding& finding) {
    const auto textOrNull = [](const std::string& text) {
        return text.empty() ? Value(nullptr) : toValue(text);
    };
    ValueArray mismatches;
    for (const Mismatch& each : finding.explanation.mismatches)
        mismatches.push_back(Dictionary{{"place", each.place},
                                        {"found", each.found},
                                        {"expected", each.expected},
                                        {"path", each.path},
                                        {"count", each.count},
                                        {"value", each.value},
                                        {"text", each.text()}});
    return Dictionary{{"file", file},
                      {"type", textOrNull(finding.type)},
                      {"problem", textOrNull(finding.problem)},
                      {"used", finding.explanation.used},
                      {"ignored", finding.explanation.ignored},
                      {"mismatches", std::move(mismatches)}};
}

std::string textOf(const std::string& file, const Finding& finding) {
    const Explanation& explanation = finding.explanation;
    const std::string empty = finding.type.empty() ? "empty" : "";
    const std::string counts =
        finding.type.empty()
            ? ""
            : fmt::format("{} values used, {} ignored", explanation.used, explanation.ignored);
    const bool isOfType = finding.problem.empty();
    std::string text = printable(nameOf(file)) + ": " +
                       printable(isOfType ? finding.type + empty : finding.problem) +
                       (isOfType && !counts.empty() ? "; " + counts : "");
    text = wrapped(text, terminalWidth(), 2) + "\n";
    if (!isOfType && !counts.empty())
        text += "  " + counts + "\n";
    for (const Mismatch& each : explanation.mismatches)
        text += wrapped("  " + printable(each.text()), terminalWidth(), 4) + "\n";
    return text;
}

ExitStatus check(const CheckOptions& options) {
    ExitStatus status = ExitStatus::success;
    ValueArray findings;
    for (const std::string& file : options.files) {
        Finding finding;
        try {
            finding = findingOf(file, options);
            const bool isClean = finding.problem.empty() && finding.explanation.ignored == 0;
            status = std::max(status, isClean ? ExitStatus::success : ExitStatus::nothingFound);
            if (!options.asJSON)
                print(textOf(file, finding));
        } catch (const Failure& failure) { // the other files are still checked
            warn(failure.what());
            finding.problem = failure.what();
            status = ExitStatus::failure;
        }
        if (options.asJSON)
            findings.push_back(dataOf(file, finding));
    }
    if (options.asJSON)
        printJSON(findings);
    return status;
}

} // namespace

void addCheck(CLI::App& application, Action& selected) {
    auto [command, options] =
        addCommand(application, selected,
                   {.name = "check",
                    .description = "List what reading saved replies ignores",
                    .example = "velmo check font-list.json font-tags.json",
                    .statusOne = "something is ignored, or a document is of another type",
                    .statusTwo = "wrong usage, an unreadable file, a malformed document"},
                   &check);
    addFileNames(command, "FILE", options.files, "Saved replies")->required();
    command
        .add_option("--as", options.type,
                    "Type of the documents; by default the one that fits each best")
        ->type_name(choiceType(namesOfTypes()));
}

} // namespace velmo
