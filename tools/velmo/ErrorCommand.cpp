#include "Commands.hpp"
#include "Terminal.hpp"

#include <VelmoCloudEntity/entity/ExceptionItem.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>

#include <CLI/App.hpp>
#include <fmt/format.h>

namespace velmo {
namespace {

using PerchAppLibrary::BaseExceptionEntity;
using PerchAppLibrary::Dictionary;
using PerchAppLibrary::toValue;
using PerchAppLibrary::Value;

struct ErrorOptions {
    std::string code;
    std::string language;
    bool asJSON = false;
};

void printText(const BaseExceptionEntity& error, const std::string& language) {
    std::string text = language.empty() ? bold(error.code()) + "\n" : "";
    for (const auto& [each, message] : error.msgDict())
        if (language.empty())
            text += fmt::format("  {}  {}\n", each, message);
        else if (language == each)
            text += message + "\n";
    print(text);
}

ExitStatus showError(const ErrorOptions& options) {
    const VelmoCloudEntity::ExceptionItem errors;
    const auto found = errors.Dict().find(options.code);
    if (found == errors.Dict().end()) {
        if (options.asJSON)
            printJSON(nullptr);
        const bool hasDigits = options.code.size() == 6 &&
                               options.code.find_first_not_of("0123456789") == std::string::npos;
        warn(fmt::format("the code \"{}\" is not in the table{}", options.code,
                         hasDigits ? "" : "; a code has six digits, as in 002004"));
        return ExitStatus::nothingFound;
    }
    const BaseExceptionEntity& error = *found->second;
    if (!options.asJSON) {
        printText(error, options.language);
        return ExitStatus::success;
    }
    Dictionary described{{"code", toValue(error.code())}};
    for (const auto& [language, message] : error.msgDict())
        described[language] = toValue(message);
    printJSON(described);
    return ExitStatus::success;
}

} // namespace

void addError(CLI::App& application, Action& selected) {
    auto [command, options] =
        addCommand(application, selected,
                   {.name = "error",
                    .description = "Show the messages of an error code of the service",
                    .example = "velmo error 002004 --lang En",
                    .statusOne = "the code is not in the table",
                    .statusTwo = "wrong usage"},
                   &showError);
    command.add_option("CODE", options.code, "Error code, six digits")->required();
    addChoice(command, "--lang", options.language, {"Ch", "En"},
              "Show only the message in this language");
}

} // namespace velmo
