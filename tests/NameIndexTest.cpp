#include <PerchAppLibrary/record/detail/NameIndex.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace std::string_view_literals;
using PerchAppLibrary::NameIndex;

/// All ways of looking a name up: on memory that ends with it, without a guess, from the last
/// guess, whatever it was, and from where that ended.
std::size_t find(const NameIndex& index, std::string_view name, std::uint32_t& guess) {
    const std::unique_ptr<char[]> alone(new char[name.size()]);
    name.copy(alone.get(), name.size());
    const std::size_t found = index.find({alone.get(), name.size()});

    const std::size_t readableSize = std::max(name.size(), NameIndex::headSize);
    const std::unique_ptr<char[]> readable(new char[readableSize]);
    std::fill_n(readable.get(), readableSize, 'x'); // what follows must not matter
    name.copy(readable.get(), name.size());
    EXPECT_EQ(index.findReadable({readable.get(), name.size()}), found) << name;
    for (int look = 0; look < 2; ++look)
        EXPECT_EQ(index.findReadable({readable.get(), name.size()}, guess), found) << name;
    return found;
}

TEST(NameIndex, TellsNamesOfAllLengthsApart) {
    const std::vector names = {""sv,
                               "I"sv,
                               "Id"sv,
                               "IdA"sv,
                               "IsGroup"sv,
                               "GroupTag"sv,
                               "TagGroup"sv,
                               "ExceptionMessag"sv,
                               "ExceptionMessage"sv,
                               "GroupCollectionId"sv,
                               "GroupCollectionIdentifier"sv,
                               "Id\0"sv};
    const NameIndex index(names);
    std::uint32_t guess = 0;
    for (std::size_t place = 0; place < names.size(); ++place)
        EXPECT_EQ(find(index, names[place], guess), place) << names[place];
    for (const std::string_view other :
         {"i"sv, "ID"sv, "Idx"sv, "\0"sv, "Id\0\0"sv, "ExceptionMessageA"sv, "GroupCollectionI"sv,
          "GroupCollectionIx"sv})
        EXPECT_EQ(find(index, other, guess), names.size()) << other;
}

TEST(NameIndex, TakesManyNamesThatBeginAlike) {
    std::vector<std::string> owned;
    for (std::size_t number = 0; number < 300; ++number)
        owned.push_back((number % 2 == 0 ? "PropertyOfARecord" : "P") + std::to_string(number));
    const NameIndex index(std::vector<std::string_view>(owned.begin(), owned.end()));
    std::uint32_t guess = 0;
    for (std::size_t place = 0; place < owned.size(); ++place)
        EXPECT_EQ(find(index, owned[place], guess), place);
    EXPECT_EQ(find(index, "PropertyOfARecord301", guess), owned.size());
}

TEST(NameIndex, FindsNothingAmongNone) {
    std::uint32_t guess = 0;
    EXPECT_EQ(find(NameIndex({}), "", guess), 0U);
    EXPECT_EQ(find(NameIndex({}), "Id", guess), 0U);
}

} // namespace
