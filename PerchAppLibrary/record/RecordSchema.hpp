#pragma once

#include <PerchAppLibrary/container/NoDestructor.hpp>
#include <PerchAppLibrary/json/DictionaryFwd.hpp>
#include <PerchAppLibrary/record/BaseEntity.hpp>
#include <PerchAppLibrary/record/RecordSink.hpp>

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <variant>
#include <vector>

/// The properties of a class of records, by name and in order. For the sources of records, and for
/// code that handles records of any class. Users of a record do not need it.
namespace PerchAppLibrary {

/// Access to a stored property of type T in the records of a class: by its virtual accessors or, if
/// no accessor is overridden, at its place.
template <class T>
struct FieldAccess {
    using Value = T;

    ReadType<T> (BaseEntity::*get)() const;
    void (BaseEntity::*set)(T); // null for a constant
    Place place;
    T BaseEntity::* field;  // null unless the place is Place::field
    unsigned slot;          // number of a flag or of a rare text, else 0
    const T& (*constant)(); // null unless the property is a constant
};

/// Access to a stored array of records of one class, or to a single one.
struct RecordsAccess {
    std::string_view className;
    bool isSingle;
    bool isNarrowed; // an inherited array with another class of elements

    /// Returns the schema of the records.
    const RecordSchema& (*schema)();

    /// Returns the records, which live as long as the property holds them. For a single record that
    /// is null, returns a null.
    std::vector<const BaseEntity*> (*get)(const BaseEntity& record);

    /// Sets the array, through its virtual setter, to the records that `reader` reads, or to none
    /// if it is null. Skips an empty array that stays empty, unless an accessor is overridden.
    void (*set)(BaseEntity& record, detail::RecordReader* reader, bool isOverridden);
};

/// Access to a computed property.
struct ComputedAccess {
    void (*read)(const BaseEntity& record, Value& place);
};

/// Access to a property of any type.
template <class... Values>
using AnyAccess = std::variant<FieldAccess<Values>..., RecordsAccess, ComputedAccess>;

/// One property of a class of records.
struct Property {
    std::string_view name;
    ValueTypes::Apply<AnyAccess> access;
    std::string textKey = {}; // begins a member of a JSON text, `,"name":`; set by the schema

    bool isStored() const noexcept { return !std::holds_alternative<ComputedAccess>(access); }

    /// Returns the kind of values: "Int", "optional String", "array of FontItem"; "any" for JSON
    /// and for computed properties.
    std::string kind() const;

    /// Returns the value in a record of the class, read through the virtual accessor. Nested
    /// records become dictionaries of their own properties().
    Value value(const BaseEntity& record) const;
};

class FillPlan;
class RecordWriter;

/// The functions of its bases that a class of records overrides.
struct Overrides {
    bool getters; // of at least one property
    bool setters; // of at least one property
    bool mapping; // setValue(json, excluded)
    bool walks;   // a function that a base names in perchKeepsWalks()
};

/// The properties of one class of records. Each class has one, which is created on first use and
/// never destroyed. Immutable, so any number of threads may read it.
class RecordSchema {
public:
    /// Stores the properties of the base, if it is not null, and then the class's own. An own
    /// property replaces one of the base with this name. Takes the nearest PERCH_ON_CHANGE of the
    /// class and its bases, or null. Requires that the base's schema outlives this one.
    RecordSchema(std::string_view className, const std::type_info& type, const RecordSchema* base,
                 std::vector<Property> own, Overrides overrides, EffectOfChange effect);
    RecordSchema(const RecordSchema&) = delete;
    RecordSchema& operator=(const RecordSchema&) = delete;
    ~RecordSchema();

    std::string_view className() const noexcept { return m_className; }

    /// Returns the exact class that overrides() describes. A subclass without a schema of its own
    /// may override more.
    const std::type_info& type() const noexcept { return *m_type; }

    /// Returns the overrides of records of exactly type().
    const Overrides& overrides() const noexcept { return m_overrides; }

    /// Returns all properties in declaration order, the base's first.
    const std::vector<Property>& properties() const noexcept { return m_properties; }

    /// Returns the names of the arrays of records, which setValue(json) excludes from the mapping.
    const Excluded& arrays() const noexcept { return m_arrays; }

    /// The result of find() for an unknown name.
    static constexpr std::size_t notFound = static_cast<std::size_t>(-1);

    /// Returns the index in properties() of the property with this name, or notFound. Constant
    /// time.
    std::size_t find(std::string_view name) const noexcept;

    /// Returns the functions to call after fields were filled: each PERCH_ON_CHANGE of the class
    /// and its bases.
    const std::vector<EffectOfChange>& effects() const noexcept { return m_effects; }

    /// Returns the plan by which records of the class are filled.
    const FillPlan& fillPlan() const noexcept { return *m_fillPlan; }

    /// Returns the writer of all stored properties.
    const RecordWriter& writer() const noexcept { return *m_writer; }

private:
    std::string_view m_className;
    const std::type_info* m_type;
    Overrides m_overrides;
    std::vector<Property> m_properties;
    Excluded m_arrays;
    std::vector<EffectOfChange> m_effects;
    std::unique_ptr<const FillPlan> m_fillPlan;
    std::unique_ptr<const RecordWriter> m_writer;
};

/// Adds a property. A function of its own, since each property of a class calls it.
void addProperty(std::vector<Property>& properties, std::string_view name,
                 const ValueTypes::Apply<AnyAccess>& access);

/// Sets a value to the properties() of a record, or to null.
void assignRecord(Value& place, const BaseEntity* record);

/// Sets a value that is null to that of a computed property.
template <class T>
void assignComputed(Value& place, T value) {
    if constexpr (std::same_as<T, bool>) {
        assign(place, value);
    } else if constexpr (std::same_as<T, long double>) {
        assign(place, static_cast<double>(value));
    } else if constexpr (std::integral<T>) {
        using Wide = std::conditional_t<std::signed_integral<T>, std::int64_t, std::uint64_t>;
        assign(place, static_cast<Wide>(value));
    } else if constexpr (requires { value.has_value(); }) {
        if (value.has_value())
            assignComputed(place, *std::move(value));
    } else if constexpr (isArray<T>) {
        assignArray(place, value.size());
        for (auto&& each : value)
            assignComputed(append(place), typename T::value_type(std::move(each)));
    } else if constexpr (isShared<T>) {
        assignRecord(place, value.get());
    } else {
        assign(place, std::move(value));
    }
}

/// The nearest base of a class that is a record.
template <class Record>
using NearestBase = typename decltype(nearestRecord(static_cast<const Record*>(nullptr),
                                                    std::type_identity<Record>()))::type;

/// Collects the properties of a class from its declarations, line by line.
template <class Record>
class PropertyCollector {
public:
    static std::vector<Property> collect() {
        std::vector<Property> properties;
        if constexpr (RecordAccess::isEnded<Record>)
            forEachLine<Record>([&]<int Line>(At<Line>) { collectLine<Line>(properties); });
        return properties;
    }

    static Overrides overrides() {
        Overrides found{false, false, !detail::UsesBaseMapping<Record>,
                        !RecordAccess::keepsWalks<Record>()};
        addOverridesOf<typename Record::Base>(found);
        return found;
    }

private:
    template <class Ancestor, class Visitor>
    static constexpr void forEachLine(Visitor visit) {
        [&]<int... Offsets>(std::integer_sequence<int, Offsets...>) {
            // Not a fold expression, since Clang limits these to 256 operands.
            (void)std::initializer_list<int>{
                (visit(At<RecordAccess::firstLine<Ancestor> + 1 + Offsets>()), 0)...};
        }(PropertyLines<Ancestor>());
    }

    template <class Ancestor>
    static constexpr void addOverridesOf(Overrides& found) {
        forEachLine<Ancestor>([&]<int Line>(At<Line>) {
            constexpr Kept kept = RecordAccess::kept<Ancestor, Line, Record>();
            found.getters = found.getters || !kept.getter;
            found.setters = found.setters || !kept.setter;
        });
        if constexpr (requires { typename Ancestor::Base; })
            addOverridesOf<typename Ancestor::Base>(found);
    }

    template <int Line>
    static void collectLine(std::vector<Property>& properties) {
        if constexpr (RecordAccess::hasProperty<Record, Line>) {
            constexpr auto declared = RecordAccess::property<Record, Line>();
            (void)RecordAccess::kept<Record, Line, Record>(); // checks its assertions
            if constexpr (requires { accessOf<Line>(declared); })
                addProperty(properties, declared.name, accessOf<Line>(declared));
        }
    }

    template <int Line, class T, Place place>
        requires(ValueTypes::contains<T>)
    static auto accessOf(StoredProperty<Record, T, place> property) {
        unsigned slot = 0;
        if constexpr (place == Place::near || place == Place::rare)
            slot = slotNumber<place, Record, Line>;
        return FieldAccess<T>{static_cast<ReadType<T> (BaseEntity::*)() const>(property.get),
                              static_cast<void (BaseEntity::*)(T)>(property.set),
                              place,
                              static_cast<T BaseEntity::*>(property.field),
                              slot,
                              property.constant};
    }

    template <int Line, class T, Place place>
        requires(isRecords<T>)
    static auto accessOf(StoredProperty<Record, T, place>) {
        constexpr auto declared = RecordAccess::property<Record, Line>();
        return recordsAccess<ItemOf<T>, declared.get, declared.set>(isShared<T>);
    }

    template <int Line, class Item>
    static auto accessOf(ElementsOfArray<Record, Item>) {
        constexpr auto array = RecordAccess::arrayAt<Record, Line>();
        RecordsAccess access = recordsAccess<Item, array.first, array.second>(false);
        access.isNarrowed = true;
        return access;
    }

    template <int Line, class T>
        requires isComputedType<T>
    static auto accessOf(ComputedProperty<Record, T>) {
        return ComputedAccess{[](const BaseEntity& record, Value& place) {
            constexpr auto declared = RecordAccess::property<Record, Line>();
            assignComputed(place, (static_cast<const Record&>(record).*declared.get)());
        }};
    }

    /// Returns the access by two accessors to records that filling makes of the class Item.
    template <class Item, auto get, auto set>
    static RecordsAccess recordsAccess(bool isSingle) {
        return {Item::recordName,
                isSingle,
                false,
                &RecordAccess::schema<Item>,
                [](const BaseEntity& record) {
                    const auto& value = (static_cast<const Record&>(record).*get)();
                    std::vector<const BaseEntity*> items;
                    if constexpr (isShared<std::remove_cvref_t<decltype(value)>>)
                        items.push_back(value.get());
                    else
                        for (const auto& item : value)
                            items.push_back(item.get());
                    return items;
                },
                &setRecords<Item, get, set>};
    }

    template <class Item, auto get, auto set>
    static void setRecords(BaseEntity& record, detail::RecordReader* reader, bool isOverridden) {
        auto& self = static_cast<Record&>(record);
        using Given = std::remove_cvref_t<decltype((self.*get)())>;
        if (reader == nullptr && !isOverridden && (self.*get)() == Given())
            return;
        detail::RecordsSink<Item> sink;
        if (reader != nullptr)
            reader->readInto(sink);
        if constexpr (isShared<Given>)
            (self.*set)(sink.records.empty() ? nullptr : std::move(sink.records.front()));
        else if constexpr (std::same_as<Given, std::vector<std::shared_ptr<Item>>>)
            (self.*set)(std::move(sink.records));
        else
            (self.*set)({std::make_move_iterator(sink.records.begin()),
                         std::make_move_iterator(sink.records.end())});
    }
};

} // namespace PerchAppLibrary

#undef PERCH_RECORD_SCHEMA
/// Defines the functions that PERCH_RECORD(Class, ...) declares. Goes once into the record's source
/// file, in its namespace. For a class template, the second argument is `template <class T>`.
#define PERCH_RECORD_SCHEMA(Class, ...)                                                         \
    __VA_ARGS__ const PerchAppLibrary::RecordSchema& Class::perchSchema() {                     \
        static_assert(PerchAppLibrary::RecordAccess::isEnded<Class>,                            \
                      #Class " needs PERCH_RECORD_END after its properties");                   \
        static_assert(std::is_same_v<PerchAppLibrary::NearestBase<Class>, typename Base::Self>, \
                      "PERCH_RECORD(" #Class ", ...) does not name the direct base");           \
        static const PerchAppLibrary::NoDestructor<PerchAppLibrary::RecordSchema> schema(       \
            #Class, typeid(PerchAppLibrary::Concrete<Class>),                                   \
            &PerchAppLibrary::RecordAccess::schema<Base>(),                                     \
            PerchAppLibrary::PropertyCollector<Class>::collect(),                               \
            PerchAppLibrary::PropertyCollector<Class>::overrides(), Class::perchEffect);        \
        return *schema;                                                                         \
    }                                                                                           \
    __VA_ARGS__ const PerchAppLibrary::RecordSchema& Class::schema() const {                    \
        return perchSchema();                                                                   \
    }                                                                                           \
    static_assert(true)
