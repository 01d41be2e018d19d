// Fuzzes the list wrappers: one that is read straight from a text equals one that is read from the
// document, and one that is filled through its setters. A text that is no document gives an equal
// error.
#include "Document.hpp"

#include <tests/BothPaths.hpp>
#include <tests/Sample.hpp>

#include <tools/velmo/AllRecords.hpp>

#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <array>

using namespace VelmoCloudEntity;

namespace {

template <class List, class Item>
void check(Input& input) {
    std::vector<std::string_view> keys;
    for (const auto& property : Item().schema().properties())
        keys.push_back(property.name);
    const std::string text = makeDocument(input, keys);
    const std::string expected = BothPaths<List>::byDocument(text);
    requireEqual(BothPaths<List>::directly(text), expected, text);
    requireEqual(BothPaths<List>::bySetters(text), expected, text);
    requireEqual(BothPaths<List>::inWindows(text).value_or(expected), expected, text);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    constexpr std::array checks{check<FontList, FontItem>,
                                check<FontTagList, FontTagItem>,
                                check<FontCollectionList, FontCollectionItem>,
                                check<FontSearchList, FontSearchItem>,
                                check<PhoneNumberPrefixList, PhoneNumberPrefixItem>,
                                check<UrlList, UrlItem>,
                                check<SampleList, Sample>};
    input.pick(checks)(input);
    return 0;
}
