// Fuzzes filling: a record that is filled through its fields equals one that is filled through its
// setters, and one that is filled as an element of an array.
#include "Document.hpp"

#include <tests/Sample.hpp>

#include <VelmoCloudEntity/account/UserFontGroupMapItem.hpp>
#include <VelmoCloudEntity/account/UserItem.hpp>
#include <VelmoCloudEntity/catalogue/FontTagItem.hpp>
#include <VelmoCloudEntity/catalogue/FontUploadItem.hpp>
#include <VelmoCloudEntity/font/FontItem.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

using namespace PerchAppLibrary;
using namespace VelmoCloudEntity;

namespace {

template <class Record>
struct BySetters : Record {
    void setId(std::int64_t id) override { Record::setId(id); }
};

template <class Record>
std::string content(const Record& record) {
    if constexpr (requires { record.Dict(); })
        return toText(record.properties()) + toText(record.Dict());
    else
        return toText(record.properties());
}

template <class Record>
void check(Input& input) {
    const std::shared_ptr<Record> byFields = Record::create();
    const std::shared_ptr<Record> bySetters = Record::template create<BySetters<Record>>();
    std::vector<std::string_view> keys;
    for (const auto& property : byFields->schema().properties())
        keys.push_back(property.name);
    std::string all;
    for (int filling = 0; filling < 3; ++filling) {
        const std::string object = makeObject(input, keys);
        const JSON json = JSON::parse(object);
        const Excluded excluded(std::vector<std::string>{std::string(input.pick(keys))});
        for (const auto& record : {byFields, bySetters})
            input.isAtEnd() ? record->setValue(json) : record->setValue(json, excluded);
        all += (filling == 0 ? "[" : ",") + object;
        requireEqual(content(*bySetters), content(*byFields), all);
    }
    const JSON json = JSON::parse(all + "]");
    const auto records = makeRecords<Record>(json);
    require(records.size() == json.count(), all);
    for (std::size_t index = 0; index < records.size(); ++index)
        requireEqual(content(*records[index]), content(*Record::create(json[index])), all);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    constexpr std::array checks{check<Sample>,         check<FontItem>,
                                check<FontTagItem>,    check<UserItem>,
                                check<FontUploadItem>, check<UserFontGroupMapItem>};
    input.pick(checks)(input);
    return 0;
}
