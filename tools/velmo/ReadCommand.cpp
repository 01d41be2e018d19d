#include "Commands.hpp"
#include "Document.hpp"
#include "FontView.hpp"
#include "Terminal.hpp"

#include <VelmoCloudEntity/account/UserFontActivateMapItem.hpp>
#include <VelmoCloudEntity/catalogue/FontTagList.hpp>
#include <VelmoCloudEntity/entity/UrlList.hpp>

#include <CLI/App.hpp>

#include <algorithm>
#include <map>

namespace velmo {
namespace {

using PerchAppLibrary::Dictionary;
using PerchAppLibrary::JSON;
using PerchAppLibrary::toText;
using PerchAppLibrary::Value;
using PerchAppLibrary::ValueArray;
using namespace VelmoCloudEntity;

struct ReadOptions {
    std::string type;
    std::string file;
    bool asJSON = false;
};

template <class Record>
Value readRecord(const JSON& json) {
    return Record::create(json)->properties();
}

template <class Record>
Value propertiesOf(const Records<Record>& records) {
    ValueArray array;
    for (const auto& record : records)
        array.push_back(record->properties());
    return array;
}

using Reader = Value (*)(const JSON&);

/// The types that can be read, by name.
const std::map<std::string, Reader>& readers() {
    static const std::map<std::string, Reader> byType{
        {"FontItem", &readRecord<FontItem>},
        {"FontList", [](const JSON& json) { return propertiesOf(FontList(json).List()); }},
        {"FontTagItem", &readRecord<FontTagItem>},
        {"FontTagList", [](const JSON& json) { return propertiesOf(FontTagList(json).List()); }},
        {"UrlItem", &readRecord<UrlItem>},
        {"UrlList", [](const JSON& json) { return propertiesOf(UrlList(json).list()); }},
        {"UserFontActivateMapItem", &readRecord<UserFontActivateMapItem>},
    };
    return byType;
}

bool holdsRecords(const Value& value) {
    return value.is_array() && !value.get_array().empty() && value.get_array().front().is_object();
}

void show(std::string& text, const Value& value, std::size_t depth);

void showRecord(std::string& text, const Dictionary& record, std::size_t depth) {
    std::size_t width = 0;
    for (const auto& [name, value] : record)
        width = std::max(width, name.size());
    for (const auto& [name, value] : record) {
        text.append(indent(depth)).append(name);
        if (holdsRecords(value)) {
            text += '\n';
            show(text, value, depth + 1);
            continue;
        }
        text.append(width - name.size() + 2, ' ');
        text += value.is_string() ? printable(value.get_string()) : toText(value);
        text += '\n';
    }
}

void show(std::string& text, const Value& value, std::size_t depth) {
    if (value.is_object()) {
        showRecord(text, value.get_object(), depth);
        return;
    }
    std::size_t number = 0;
    for (const Value& item : value.get_array()) {
        text.append(indent(depth)).append(bold("[" + std::to_string(number++) + "]")) += '\n';
        show(text, item, depth + 1);
    }
}

ExitStatus read(const ReadOptions& options) {
    const Value value = readers().at(options.type)(readDocument(options.file));
    if (options.asJSON) {
        printJSON(value);
        return ExitStatus::done;
    }
    std::string text;
    show(text, value, 0);
    print(text.empty() ? "an empty " + options.type + "\n" : text);
    return ExitStatus::done;
}

std::string typeNames() {
    std::string names;
    for (const auto& [name, reader] : readers())
        names.append(names.empty() ? "" : ", ").append(name);
    return names;
}

} // namespace

void addRead(CLI::App& application, Work& work) {
    auto [command, options] =
        addCommand(application, work, "read", "Show a record or a list, property by property", &read);
    command.add_option("TYPE", options.type, typeNames())->required()->check(CLI::IsMember(readers()));
    command.add_option("FILE", options.file, "Document of that type")->required();
}

} // namespace velmo
