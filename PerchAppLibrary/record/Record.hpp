#pragma once

#include <PerchAppLibrary/record/Required.hpp>

#include <concepts>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

/// How a record declares its properties.
///
/// A record is a class derived from BaseEntity whose body holds one line per property:
///
///     class UrlItem : public PerchAppLibrary::BaseEntity {
///         PERCH_RECORD(UrlItem, PerchAppLibrary::BaseEntity);
///
///         /// Name shown for the address.
///         PERCH_PROPERTY(std::string, Name);
///         /// The address itself.
///         PERCH_PROPERTY(std::string, Url);
///
///         PERCH_RECORD_END;
///     };
///
/// and whose source file holds one line, `PERCH_RECORD_SCHEMA(UrlItem)` (record/RecordSchema.hpp). The
/// accessors, the default, the JSON key, the place in the declaration order, reading and writing by name and
/// the export all follow from these lines. A subclass written by a client declares properties of its own in
/// the same way.
///
/// Types that a property can have: std::int64_t, bool, float, std::string, std::optional<std::string>,
/// std::vector<std::int64_t>, std::vector<std::string>, JSON (a value of any kind, kept as it is) and
/// std::vector<std::shared_ptr<R>> for a record R.
/// Each property stands on a line of its own: its line number is its place in the order.
namespace PerchAppLibrary {

class JSON;
class RecordSchema;

/// What a getter of a property of type T returns: scalars by value, everything else by reference to the
/// record's own value, which lives until the property is set or the record is destroyed.
template <class T>
using ReadType = std::conditional_t<std::is_scalar_v<T>, T, const T&>;

/// The line of a property in its class; the key by which RecordSchema collects the properties in their order.
template <int Line>
struct At {};

/// A property with a value of its own: its name, its virtual getter and setter, its field, and what the setter calls once the
/// value is stored. The setter of a constant is null, the field where the record keeps the value otherwise, the effect
/// where there is none.
template <class Record, class T>
struct StoredProperty {
    std::string_view name;
    ReadType<T> (Record::*get)() const;
    void (Record::*set)(T);
    T Record::* field;
    void (Record::*effect)() = nullptr;
};

template <class Getter>
struct LabelOf;
template <class Record, class T>
struct LabelOf<T (Record::*)() const> {
    using Type = Required<std::remove_cvref_t<T>>;
};

/// The argument of a constructor that sets the property with this getter.
template <class Getter>
using Label = typename LabelOf<Getter>::Type;

/// A property that is worked out at each reading.
template <class Record, class T>
struct ComputedProperty {
    std::string_view name;
    T (Record::*get)() const;
};

} // namespace PerchAppLibrary

/// Opens the list of properties of a class. The declaration at this line hides the base's properties, which
/// are collected from the base itself.
#define PERCH_PROPERTIES(Class)                        \
public:                                                \
    using Self = Class;                                \
    static constexpr int firstPropertyLine = __LINE__; \
    static void propertyAt(PerchAppLibrary::At<__LINE__>)

/// Opens a record: its list of properties and the ways every record has of being made.
///
/// `create()` makes a record with defaults; `create(json)` fills it as well; `create<R>(...)` makes an R, a subclass with
/// a default constructor, whose overrides run while it is filled. (A subclass without PERCH_RECORD of its own inherits
/// these: `R::create()` still makes a Class.) Every record is owned by the shared_ptr that is returned.
#define PERCH_RECORD(Class, BaseClass)                                    \
    PERCH_RECORD_OF_CLIENT(Class, BaseClass);                             \
    template <class R = Class>                                            \
        requires std::derived_from<R, Class>                              \
    static std::shared_ptr<R> create(const PerchAppLibrary::JSON& json) { \
        return filled<R>(std::make_shared<R>(), json);                    \
    }                                                                     \
    static_assert(true)

/// Opens a record that the client makes and no reply does: by `create()`.
#define PERCH_RECORD_OF_CLIENT(Class, BaseClass) \
    PERCH_RECORD_BASICS(Class, BaseClass);       \
    template <class R = Class>                   \
        requires std::derived_from<R, Class>     \
    static std::shared_ptr<R> create() {         \
        return std::make_shared<R>();            \
    }                                            \
    static_assert(true)

/// Opens a record that is made from JSON alone: by `create(json)`, or `create<R>(json)` for a subclass R. There is no other way to
/// make one.
#define PERCH_RECORD_FROM_JSON(Class, BaseClass)                          \
    PERCH_RECORD_BASICS(Class, BaseClass);                                \
    explicit Class(FromJSON /*passed by create() alone*/) {}              \
    template <class R = Class>                                            \
        requires std::derived_from<R, Class>                              \
    static std::shared_ptr<R> create(const PerchAppLibrary::JSON& json) { \
        if constexpr (std::same_as<R, Class>)                             \
            return filled<R>(std::make_shared<R>(FromJSON()), json);      \
        else                                                              \
            return filled<R>(std::make_shared<R>(), json);                \
    }                                                                     \
                                                                          \
protected:                                                                \
    Class() = default;                                                    \
                                                                          \
public:                                                                   \
    static_assert(true)

/// What the macros above have in common.
#define PERCH_RECORD_BASICS(Class, BaseClass)                                                        \
    PERCH_PROPERTIES(Class);                                                                         \
    using Base = BaseClass;                                                                          \
    using Base::setValue;                                                                            \
    [[maybe_unused]] static constexpr std::string_view recordName = #Class;                          \
    const PerchAppLibrary::RecordSchema& schema() const override;                                    \
                                                                                                     \
protected:                                                                                           \
    template <class R>                                                                               \
    static std::shared_ptr<R> filled(std::shared_ptr<R> record, const PerchAppLibrary::JSON& json) { \
        record->Class::initFromJSON(json);                                                           \
        return record;                                                                               \
    }                                                                                                \
                                                                                                     \
public:                                                                                              \
    static_assert(true)

/// Says that `create(json)` fills the record by the base's own mapping, whatever a subclass overrides.
#define PERCH_FILLED_BY_BASE                               \
protected:                                                 \
    void initFromJSON(const PerchAppLibrary::JSON& json) { \
        PerchAppLibrary::BaseEntity::setValue(json, {});   \
    }                                                      \
    static_assert(true)

/// One more way of making a record: `create({.label = value, ...})` for the aggregate Labels, whose members
/// are all Required. The class defines `void init(Labels)`, which runs after the defaults.
#define PERCH_CREATE(Labels)                          \
    template <class R = Self>                         \
        requires std::derived_from<R, Self>           \
    static std::shared_ptr<R> create(Labels labels) { \
        auto record = std::make_shared<R>();          \
        record->Self::init(std::move(labels));        \
        return record;                                \
    }                                                 \
    static_assert(true)

/// The usual one: `create({.label = value, ...})` sets one property by each label, in their order. A pair names a label and its
/// property: PERCH_LABELS(PersonLabels, (name, Name), (age, Age)).
#define PERCH_LABELS(Labels, ...)                                                \
public:                                                                          \
    struct Labels {                                                              \
        PERCH_FOR_EACH(PERCH_DECLARE_LABEL, __VA_ARGS__)                         \
    };                                                                           \
    PERCH_CREATE(Labels);                                                        \
                                                                                 \
protected:                                                                       \
    void init(Labels labels) { PERCH_FOR_EACH(PERCH_SET_LABELLED, __VA_ARGS__) } \
                                                                                 \
public:                                                                          \
    static_assert(true)
#define PERCH_DECLARE_LABEL(label, Name) PerchAppLibrary::Label<decltype(&Self::Name)> label;
#define PERCH_SET_LABELLED(label, Name) set##Name(std::move(labels.label.value));

// PERCH_FOR_EACH(MACRO, (a, b), (c, d)) gives MACRO(a, b) MACRO(c, d). A macro does not expand within itself, so each step leaves
// the next one spelled out behind it, for PERCH_EXPAND to find when it scans the result again: up to 64 times.
#define PERCH_FOR_EACH(MACRO, ...) __VA_OPT__(PERCH_EXPAND(PERCH_FOR_FIRST(MACRO, __VA_ARGS__)))
#define PERCH_FOR_FIRST(MACRO, first, ...) \
    MACRO first __VA_OPT__(PERCH_FOR_REST PERCH_PARENTHESES(MACRO, __VA_ARGS__))
#define PERCH_FOR_REST() PERCH_FOR_FIRST
#define PERCH_PARENTHESES ()
#define PERCH_EXPAND(...) PERCH_EXPAND16(PERCH_EXPAND16(PERCH_EXPAND16(PERCH_EXPAND16(__VA_ARGS__))))
#define PERCH_EXPAND16(...) PERCH_EXPAND4(PERCH_EXPAND4(PERCH_EXPAND4(PERCH_EXPAND4(__VA_ARGS__))))
#define PERCH_EXPAND4(...) PERCH_EXPAND1(PERCH_EXPAND1(PERCH_EXPAND1(PERCH_EXPAND1(__VA_ARGS__))))
#define PERCH_EXPAND1(...) __VA_ARGS__

/// Says of the property at this line whether a record uses the setter that is declared with it.
#define PERCH_SETTER_IS_KEPT(Type, Setter)                                                           \
    template <class Record>                                                                          \
    static constexpr bool keepsSetterAt(PerchAppLibrary::At<__LINE__>) {                             \
        return requires { requires std::same_as<decltype(&Record::Setter), void (Self::*)(Type)>; }; \
    }

/// A stored property whose field, `m_Name`, is declared elsewhere, by the class or by one between the record and its Base: for
/// a record of which some fields are to lie together, whatever the order of the properties.
#define PERCH_PROPERTY_IN_FIELD(Type, Name, Setter)                                                          \
public:                                                                                                      \
    virtual PerchAppLibrary::ReadType<Type> Name() const { return this->m_##Name; }                          \
    virtual void Setter(Type newValue) { this->m_##Name = std::move(newValue); }                             \
    PERCH_SETTER_IS_KEPT(Type, Setter)                                                                       \
    static constexpr PerchAppLibrary::StoredProperty<Self, Type> propertyAt(PerchAppLibrary::At<__LINE__>) { \
        return {#Name, &Self::Name, &Self::Setter, &Self::m_##Name};                                         \
    }                                                                                                        \
    static_assert(true)

/// The same for a property of which a change has an effect on the record: the member function that comes last, which is called
/// after a change by any road.
#define PERCH_PROPERTY_WITH_EFFECT(Type, Name, Setter, Effect)                                               \
public:                                                                                                      \
    virtual PerchAppLibrary::ReadType<Type> Name() const { return this->m_##Name; }                          \
    virtual void Setter(Type newValue) {                                                                     \
        this->m_##Name = std::move(newValue);                                                                \
        this->Effect();                                                                                      \
    }                                                                                                        \
    PERCH_SETTER_IS_KEPT(Type, Setter)                                                                       \
    static constexpr PerchAppLibrary::StoredProperty<Self, Type> propertyAt(PerchAppLibrary::At<__LINE__>) { \
        return {#Name, &Self::Name, &Self::Setter, &Self::m_##Name, &Self::Effect};                          \
    }                                                                                                        \
    static_assert(true)

/// A stored property whose setter has a name that does not follow from the property's.
/// What follows the names is the default; without it, the zero of the type.
#define PERCH_PROPERTY_SET_BY(Type, Name, Setter, ...) \
private:                                               \
    Type m_##Name{__VA_ARGS__};                        \
    PERCH_PROPERTY_IN_FIELD(Type, Name, Setter)

/// A stored property with the getter `Name()` and the setter `setName(value)`, both virtual.
/// A name that begins with a small letter needs PERCH_PROPERTY_SET_BY, since its setter has a capital one.
#define PERCH_PROPERTY(Type, Name, ...)                                                                  \
    static_assert(#Name[0] < 'a' || #Name[0] > 'z', "PERCH_PROPERTY_SET_BY names the setter of " #Name); \
    PERCH_PROPERTY_SET_BY(Type, Name, set##Name __VA_OPT__(, ) __VA_ARGS__)

/// A stored property that is the same for every record: it has no setter and no place in the record, and no document
/// changes it.
#define PERCH_CONSTANT(Type, Name, Constant)                                                                 \
public:                                                                                                      \
    virtual PerchAppLibrary::ReadType<Type> Name() const { return Constant; }                                \
    static constexpr PerchAppLibrary::StoredProperty<Self, Type> propertyAt(PerchAppLibrary::At<__LINE__>) { \
        return {#Name, &Self::Name, nullptr, nullptr};                                                       \
    }                                                                                                        \
    static_assert(true)

/// A stored text, empty by default, that few records have: kept in the RareTexts `m_rareTexts` of the class. The member function
/// that comes last, if there is one, is called after a change.
#define PERCH_PROPERTY_RARE_TEXT_SET_BY(Name, Setter, ...)                          \
public:                                                                             \
    virtual const std::string& Name() const { return this->m_rareTexts[__LINE__]; } \
    virtual void Setter(std::string newValue) {                                     \
        this->m_rareTexts.set(__LINE__, std::move(newValue));                       \
        __VA_OPT__(this->__VA_ARGS__();)                                            \
    }                                                                               \
    PERCH_SETTER_IS_KEPT(std::string, Setter)                                       \
    static constexpr PerchAppLibrary::StoredProperty<Self, std::string> propertyAt( \
        PerchAppLibrary::At<__LINE__>) {                                            \
        return {#Name, &Self::Name, &Self::Setter, nullptr};                        \
    }                                                                               \
    static_assert(true)
#define PERCH_PROPERTY_RARE_TEXT(Name) PERCH_PROPERTY_RARE_TEXT_SET_BY(Name, set##Name)

/// A computed property with the virtual getter `Name()`, which the class defines in its source file.
#define PERCH_COMPUTED(Type, Name)                                             \
public:                                                                        \
    virtual Type Name() const;                                                 \
    static constexpr PerchAppLibrary::ComputedProperty<Self, Type> propertyAt( \
        PerchAppLibrary::At<__LINE__>) {                                       \
        return {#Name, &Self::Name};                                           \
    }                                                                          \
    static_assert(true)

/// Closes a record's list of properties; one that stands behind it is not in the list.
#define PERCH_RECORD_END \
public:                  \
    static constexpr int lastPropertyLine = __LINE__
