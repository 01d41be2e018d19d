#pragma once

// What most tests of records need.
#include <PerchAppLibrary/BaseEntity.hpp>
#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <VelmoCloudEntity/font/FontList.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#ifdef __clang__ // which warns of a property that a subclass declares again
#pragma clang diagnostic ignored "-Winconsistent-missing-override"
#endif

/// Returns the text of a file in the folder of samples.
inline std::string sample(const std::string& name) {
    std::ifstream file(VELMO_SAMPLES "/" + name);
    EXPECT_TRUE(file) << "no sample " << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Returns the place where the texts of two records differ, from its key; empty if they are equal.
inline std::string difference(const std::string& text, const std::string& other) {
    const auto differ = std::ranges::mismatch(text, other).in1 - text.begin();
    const std::size_t begin = text.rfind(',', static_cast<std::size_t>(differ)) + 1;
    return text == other ? "" : text.substr(begin, 80) + " instead of " + other.substr(begin, 80);
}

/// Returns the stored properties in which a record differs from another of its class.
inline PerchAppLibrary::Dictionary changes(const PerchAppLibrary::BaseEntity& record,
                                           const PerchAppLibrary::BaseEntity& fresh) {
    const PerchAppLibrary::Dictionary before = fresh.properties();
    PerchAppLibrary::Dictionary changed;
    for (const auto& [name, value] : record.properties())
        if (value != before.at(name))
            changed[name] = value;
    return changed;
}

/// Returns, as text, the stored properties that do not have their defaults.
template <class Record>
std::string changed(const std::shared_ptr<Record>& record) {
    return PerchAppLibrary::toText(changes(*record, *Record::create()));
}

/// Adds groups around a tree, by turns of these classes.
template <class... Classes>
std::shared_ptr<VelmoCloudEntity::FontItem>
nested(int levels, std::shared_ptr<VelmoCloudEntity::FontItem> tree) {
    const auto wrap = [&tree](std::shared_ptr<VelmoCloudEntity::FontItem> group) {
        group->setGroup("g");
        group->setChildren({std::move(tree)});
        tree = std::move(group);
    };
    for (; levels > 0; levels -= static_cast<int>(sizeof...(Classes)))
        (wrap(std::make_shared<Classes>()), ...);
    return tree;
}
