#pragma once

#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/record/KeyList.hpp>
#include <PerchAppLibrary/record/PropertyDeclaration.hpp>

#include <concepts>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace PerchAppLibrary {

/// Receives the records of one array, whose class it alone knows.
class RecordSink {
public:
    virtual void reserve(std::size_t count) = 0;

    /// Appends a new record for the caller to fill. Returns null, and appends nothing, if the class
    /// has a way of filling of its own.
    virtual BaseEntity* add() = 0;

    /// Appends the record that the class makes from the JSON.
    virtual void addFrom(const JSON& json) = 0;

protected:
    ~RecordSink() = default;
};

/// Reads the elements of one array into a sink.
class RecordReader {
public:
    virtual void readInto(RecordSink& sink) = 0;

protected:
    ~RecordReader() = default;
};

/// Whether R inherits BaseEntity's mapping, and its setValue(json): pointers to members of
/// BaseEntity do not fit overrides.
template <class R>
concept UsesBaseMapping =
    requires(void (*take)(void (BaseEntity::*)(const JSON&, Excluded))) { take(&R::setValue); };
template <class R>
concept UsesBaseSetValue =
    requires(void (*take)(void (BaseEntity::*)(const JSON&))) { take(&R::setValue); };

/// Whether R::create(json) is the one that PERCH_RECORD declares, not one of R's own.
template <class R>
concept UsesRecordCreate = requires(void (*take)(std::shared_ptr<R> (*)(const JSON&))) {
    take(&R::template create<R, JSON>);
};

/// Whether R::create(json) does no more than BaseEntity::setValue(json) of a record of exactly R.
template <class R>
inline constexpr bool isFilledByBase =
    (UsesRecordCreate<R> || R::jsonFilling == JSONFilling::none) &&
    (R::jsonFilling == JSONFilling::baseMapping ||
     (UsesBaseMapping<R> && (UsesBaseSetValue<R> || R::jsonFilling == JSONFilling::mapping)));

/// The records of one array of the class Item.
template <class Item>
class RecordsSink final : public RecordSink {
public:
    void reserve(std::size_t count) override { records.reserve(count); }

    BaseEntity* add() override {
        if constexpr (isFilledByBase<Item>)
            return records.emplace_back(std::make_shared<Concrete<Item>>()).get();
        else
            return nullptr;
    }

    void addFrom(const JSON& json) override {
        if constexpr (requires {
                          { Item::create(json) } -> std::same_as<std::shared_ptr<Item>>;
                      })
            records.push_back(Item::create(json));
        else if constexpr (Item::jsonFilling != JSONFilling::none)
            records.push_back(Item::template create<Item>(json));
    }

    std::vector<std::shared_ptr<Item>> records;
};

/// Reads one record for each element of the JSON array, or for each that is an object, into the
/// sink. Reads nothing from any other value.
void readRecords(const JSON& json, bool onlyObjects, RecordSink& sink);

} // namespace PerchAppLibrary
