#pragma once

#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/record/KeyList.hpp>
#include <PerchAppLibrary/record/PropertyDeclaration.hpp>

#include <concepts>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace PerchAppLibrary::detail {

/// Receives the records of one array. Hides their class from its users.
class RecordSink {
public:
    virtual void reserve(std::size_t count) = 0;

    /// Appends a new record for the caller to fill, and returns it. Returns null and appends
    /// nothing if the class overrides how it is filled.
    virtual BaseEntity* add() = 0;

    /// Appends the record that the create(json) of the class returns.
    virtual void addFrom(const JSON& json) = 0;

    virtual void shrinkToFit() = 0;
    virtual void clear() = 0;

protected:
    ~RecordSink() = default;
};

/// Reads records from the elements of one array.
class RecordReader {
public:
    /// Appends a record for each element to the sink.
    virtual void readInto(RecordSink& sink) = 0;

protected:
    ~RecordReader() = default;
};

/// Satisfied if R inherits BaseEntity's mapping. A pointer to an override does not convert to a
/// pointer to a member of BaseEntity.
template <class R>
concept UsesBaseMapping =
    requires(void (*take)(void (BaseEntity::*)(const JSON&, Excluded))) { take(&R::setValue); };

/// Satisfied if R inherits BaseEntity's setValue(json).
template <class R>
concept UsesBaseSetValue =
    requires(void (*take)(void (BaseEntity::*)(const JSON&))) { take(&R::setValue); };

/// Satisfied if PERCH_RECORD declares R::create(json), not R itself.
template <class R>
concept UsesRecordCreate = requires(void (*take)(std::shared_ptr<R> (*)(const JSON&))) {
    take(&R::template create<R, JSON>);
};

/// True if BaseEntity::setValue(json) does all that filling a record of exactly R takes.
template <class R>
inline constexpr bool isFilledByBase =
    (UsesRecordCreate<R> || R::jsonFilling == JSONFilling::none) &&
    (R::jsonFilling == JSONFilling::baseMapping ||
     (UsesBaseMapping<R> && (UsesBaseSetValue<R> || R::jsonFilling == JSONFilling::mapping)));

/// A sink for records of class Item.
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

    void shrinkToFit() override { records.shrink_to_fit(); }
    void clear() override { records.clear(); }

    std::vector<std::shared_ptr<Item>> records;
};

} // namespace PerchAppLibrary::detail
