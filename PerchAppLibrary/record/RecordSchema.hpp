#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>
#include <PerchAppLibrary/Dictionary.hpp>
#include <PerchAppLibrary/record/KeyList.hpp>
#include <PerchAppLibrary/record/Record.hpp>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <typeinfo>
#include <variant>
#include <vector>

/// What the library knows of a class of records: its properties by name and in order. Included by the sources
/// of records and by code that treats all records alike; a user of a record does not need it.
namespace PerchAppLibrary {

/// A stored property of type T, reached through any record of the class: by its virtual accessors, or, where no subclass can
/// have overridden them, by its field, if there is one, and the effect of a change, if there is one.
template <class T>
struct FieldAccess {
    ReadType<T> (BaseEntity::*get)() const;
    void (BaseEntity::*set)(T);
    T BaseEntity::* field;
    void (BaseEntity::*effect)();
};

/// A stored array of records of one class. The pointers live as long as the records that the property holds.
struct RecordsAccess {
    std::string_view className;
    std::vector<const BaseEntity*> (*get)(const BaseEntity&);
};

/// A property that is worked out.
struct ComputedAccess {
    Value (*get)(const BaseEntity&);
};

struct Property {
    std::string_view name;
    std::variant<FieldAccess<std::int64_t>, FieldAccess<bool>, FieldAccess<float>, FieldAccess<std::string>,
                 FieldAccess<std::optional<std::string>>, FieldAccess<std::vector<std::int64_t>>,
                 FieldAccess<std::vector<std::string>>, FieldAccess<JSON>, RecordsAccess, ComputedAccess>
        access;

    bool isStored() const noexcept { return !std::holds_alternative<ComputedAccess>(access); }

    /// The kind of values, as in "Int", "optional String", "array of FontItem"; "any" for JSON and for what is worked out.
    std::string kind() const;

    /// The property's value in a record of the class, read through the virtual accessor; nested records as
    /// dictionaries of all their stored properties.
    Value value(const BaseEntity& record) const;

    /// Puts it in its place in a Dictionary, in the Dictionary's storage.
    void read(const BaseEntity& record, Value& place) const;

    /// Puts it under the property's name in a Dictionary that has no such key.
    void addTo(Dictionary& dictionary, const BaseEntity& record) const;
};

class FillPlan;

/// The properties of one class of records. Immutable; there is one for each class, made at the first use of it.
class RecordSchema {
public:
    /// The class's own properties in declaration order, behind those of the base, if there is one. A property that the
    /// class declares again takes the place of the base's. Says as well whether the class overrides a setter that it inherits.
    RecordSchema(std::string_view className, const std::type_info& type, const RecordSchema* base,
                 std::vector<Property> own, bool overridesSetters);
    RecordSchema(const RecordSchema&) = delete;
    RecordSchema& operator=(const RecordSchema&) = delete;
    ~RecordSchema();

    std::string_view className() const noexcept { return m_className; }

    /// The class that declares the last of the properties.
    const std::type_info& type() const noexcept { return *m_type; }

    /// All properties, base first, then in declaration order.
    std::span<const Property> properties() const noexcept { return m_properties; }

    /// The properties that the class itself declares.
    std::span<const Property> ownProperties() const noexcept { return properties().last(m_ownCount); }

    /// The stored properties without the excluded ones, in their order. Ends the process (fatalError) when an excluded name is
    /// not that of a stored property.
    std::vector<const Property*> storedWithout(const Excluded& excluded) const;

    /// What find() answers for a name that no property has.
    static constexpr std::size_t notFound = static_cast<std::size_t>(-1);

    /// Index of the property with this name in properties(), or notFound. Constant time.
    std::size_t find(std::string_view name) const noexcept;

    /// For who fills records.
    const FillPlan& fillPlan() const noexcept { return *m_fillPlan; }

private:
    std::string_view m_className;
    const std::type_info* m_type;
    std::size_t m_ownCount;
    std::vector<Property> m_properties;
    std::unique_ptr<const FillPlan> m_fillPlan;
};

/// Collects the properties of the class Record from its declarations, one line after the other.
template <class Record>
class PropertyCollector {
public:
    static std::vector<Property> collect() {
        std::vector<Property> properties;
        collectFrom(properties,
                    std::make_integer_sequence<int, Record::lastPropertyLine - Record::firstPropertyLine>());
        return properties;
    }

    /// Whether the class overrides the setter of a property that the ancestor, its base to begin with, or one before declares.
    template <class Ancestor>
    static constexpr bool overridesSettersOf() {
        if (overridesSettersFrom<Ancestor>(
                std::make_integer_sequence<int, Ancestor::lastPropertyLine - Ancestor::firstPropertyLine>()))
            return true;
        if constexpr (requires { typename Ancestor::Base; })
            return overridesSettersOf<typename Ancestor::Base>();
        else
            return false;
    }

private:
    template <class Ancestor, int... Offsets>
    static constexpr bool overridesSettersFrom(std::integer_sequence<int, Offsets...>) {
        return (overridesSetterAt<Ancestor, Ancestor::firstPropertyLine + 1 + Offsets>() || ...);
    }

    template <class Ancestor, int Line>
    static constexpr bool overridesSetterAt() {
        if constexpr (requires { Ancestor::template keepsSetterAt<Record>(At<Line>()); })
            return !Ancestor::template keepsSetterAt<Record>(At<Line>());
        else
            return false;
    }

    template <int... Offsets>
    static void collectFrom(std::vector<Property>& properties, std::integer_sequence<int, Offsets...>) {
        (collectLine<Record::firstPropertyLine + 1 + Offsets>(properties), ...);
    }

    template <int Line>
    static void collectLine(std::vector<Property>& properties) {
        if constexpr (requires { Record::propertyAt(At<Line>()); }) {
            constexpr auto declared = Record::propertyAt(At<Line>());
            properties.push_back({declared.name, access<Line>(declared)});
        }
    }

    template <int Line, class T>
    static auto access(StoredProperty<Record, T> property) {
        return FieldAccess<T>{static_cast<ReadType<T> (BaseEntity::*)() const>(property.get),
                              static_cast<void (BaseEntity::*)(T)>(property.set),
                              static_cast<T BaseEntity::*>(property.field),
                              static_cast<void (BaseEntity::*)()>(property.effect)};
    }

    template <int Line, class Item>
    static auto access(StoredProperty<Record, std::vector<std::shared_ptr<Item>>>) {
        return RecordsAccess{Item::recordName, [](const BaseEntity& record) {
                                 constexpr auto declared = Record::propertyAt(At<Line>());
                                 std::vector<const BaseEntity*> items;
                                 for (const std::shared_ptr<Item>& item :
                                      (static_cast<const Record&>(record).*declared.get)())
                                     items.push_back(item.get());
                                 return items;
                             }};
    }

    template <int Line, class T>
    static auto access(ComputedProperty<Record, T>) {
        return ComputedAccess{[](const BaseEntity& record) {
            constexpr auto declared = Record::propertyAt(At<Line>());
            return toValue((static_cast<const Record&>(record).*declared.get)());
        }};
    }
};

} // namespace PerchAppLibrary

/// Defines what PERCH_RECORD(Class, ...) declares. Stands once, in the record's source file, in its namespace.
#define PERCH_RECORD_SCHEMA(Class)                                                                        \
    const PerchAppLibrary::RecordSchema& Class::schema() const {                                          \
        static const PerchAppLibrary::RecordSchema schema(                                                \
            #Class, typeid(Class), &Base::schema(), PerchAppLibrary::PropertyCollector<Class>::collect(), \
            PerchAppLibrary::PropertyCollector<Class>::overridesSettersOf<Base>());                       \
        return schema;                                                                                    \
    }                                                                                                     \
    static_assert(true)
