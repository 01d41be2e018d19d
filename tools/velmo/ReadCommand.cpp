#include "Commands.hpp"
#include "Document.hpp"
#include "RecordTypes.hpp"
#include "Terminal.hpp"

#include <CLI/App.hpp>

#include <algorithm>

namespace velmo {
namespace {

using PerchAppLibrary::Dictionary;
using PerchAppLibrary::toText;
using PerchAppLibrary::Value;

struct ReadOptions {
    std::string type;
    std::string file;
    bool listsTypes = false;
    bool isForced = false;
    bool asJSON = false;
};

bool isArrayOfRecords(const Value& value) {
    return value.is_array() && !value.get_array().empty() && value.get_array().front().is_object();
}

void show(std::string& text, const Value& value, std::size_t depth);

void showRecord(std::string& text, const Dictionary& record, std::size_t depth) {
    std::size_t width = 0;
    for (const auto& [name, value] : record)
        width = std::max(width, printable(name).size());
    for (const auto& [key, value] : record) {
        std::string line = indent(depth) + printable(key);
        if (isArrayOfRecords(value)) {
            text.append(line) += '\n';
            show(text, value, depth + 1);
            continue;
        }
        line.resize(indent(depth).size() + width + 2, ' ');
        const std::size_t begin = line.size(); // of the value
        line += printable(value.is_string() ? std::string(value.get_string()) : toText(value));
        line.erase(line.find_last_not_of(' ') + 1);
        text.append(wrapped(line, terminalWidth(), begin)) += '\n';
    }
}

void show(std::string& text, const Value& value, std::size_t depth) {
    if (value.is_object()) {
        showRecord(text, value.get_object(), depth);
        return;
    }
    if (!value.is_array()) { // beside records in an array of any values
        text.append(indent(depth)).append(printable(toText(value))) += '\n';
        return;
    }
    std::size_t number = 0;
    for (const Value& item : value.get_array()) {
        text.append(indent(depth)).append(bold("[" + std::to_string(number++) + "]")) += '\n';
        show(text, item, depth + 1);
    }
}

ExitStatus showTypes(bool asJSON) {
    Dictionary byName;
    std::string names;
    for (const RecordType& type : recordTypes()) {
        byName.emplace(type.name, type.properties());
        names.append(type.name) += '\n';
    }
    if (asJSON)
        printJSON(byName);
    else
        print(names);
    return ExitStatus::success;
}

ExitStatus read(const ReadOptions& options) {
    if (options.listsTypes)
        return showTypes(options.asJSON);
    if (options.file.empty())
        throw Failure("read: TYPE and FILE are required (velmo read --types lists the types)");
    const RecordType& type = recordType(options.type);
    const Value value = readAs(options.file, type, options.isForced, type.read);
    if (options.asJSON) {
        printJSON(value);
        return ExitStatus::success;
    }
    std::string text;
    show(text, value, 0);
    print(text.empty() ? "an empty " + type.name + "\n" : text);
    return ExitStatus::success;
}

} // namespace

void addRead(CLI::App& application, Action& selected) {
    auto [command, options] =
        addCommand(application, selected,
                   {.name = "read",
                    .description = "Show a record or a list, property by property",
                    .example = "velmo read FontTagList font-tags.json",
                    .statusOne = ""},
                   &read);
    command
        .add_option("TYPE", options.type,
                    "Type of the record or list; the beginning of its name is enough")
        ->type_name(choiceType(namesOfTypes()));
    addFileName(command, "FILE", options.file, "Saved reply with a document of this type");
    addForce(command, options.isForced);
    command.add_flag("--types", options.listsTypes,
                     "List the types; with --json also their properties");
}

} // namespace velmo
