#pragma once
#ifndef PERCH_DEVELOPER
// Errors in a record then point to its own lines, not into the macros.
#pragma GCC system_header
#endif

#include <PerchAppLibrary/record/PropertyDeclaration.hpp>

/// How a record declares its properties.
///
/// A record is a class derived from BaseEntity whose body has one line per property:
///
///     class UrlItem : public PerchAppLibrary::BaseEntity {
///         PERCH_RECORD(UrlItem, PerchAppLibrary::BaseEntity);
///
///         /// Name of the address.
///         PERCH_PROPERTY(std::string, Name);
///         /// The address.
///         PERCH_PROPERTY(std::string, Url);
///
///         PERCH_RECORD_END;
///     };
///
/// and whose source file has one line, `PERCH_RECORD_SCHEMA(UrlItem)` (record/RecordSchema.hpp).
/// The accessors, the default, the JSON key, the place in the order, filling, reading and writing
/// by name and the export all follow from these lines. A client declares its own records, and
/// properties of its own in a subclass, in the same way.
///
/// Types of a property: std::int64_t, bool, float, std::string, std::optional<std::string>,
/// std::vector<std::int64_t>, std::vector<std::string>, JSON (any value, kept as it is) and
/// std::vector<std::shared_ptr<R>> for a record R. Rare<std::string> is a text that few records
/// have; Near<bool> is a flag that walks over trees read. Their accessors take and return
/// std::string and bool.

/// Opens a record, with its `create` functions.
///
/// `create()` makes a record with defaults; `create(json)` also fills it; `parse(text)` is
/// `create(JSON::parse(text))`; sets of labels (PERCH_LABELS) come from the class and its bases.
/// `create<R>(...)` makes an R, a subclass, whose overrides run while it is filled. A shared_ptr
/// owns the record. A subclass without a PERCH_RECORD of its own inherits these functions as they
/// are: its `R::create()` makes a `Class`. Takes exactly a JSON, since a text would become a JSON
/// string: call `parse(text)`. BaseClass is the direct base, written without a leading `::`.
#define PERCH_RECORD(Class, BaseClass)                                                            \
public:                                                                                           \
    using Self = Class;                                                                           \
    using Base = BaseClass;                                                                       \
    using Base::setValue;                                                                         \
    static constexpr int firstPropertyLine = __LINE__;                                            \
    [[maybe_unused]] static constexpr std::string_view recordName = #Class;                       \
    static void onePropertyPerLine(PerchAppLibrary::At<__LINE__>);                                \
    static void labelsAt(PerchAppLibrary::At<__LINE__>);                                          \
    const PerchAppLibrary::RecordSchema& schema() const override;                                 \
    template <class Derived>                                                                      \
        requires(!std::same_as<Derived, Class>)                                                   \
    friend std::type_identity<Class> nearestRecord(const Class*, std::type_identity<Derived>);    \
    template <class R = Class>                                                                    \
        requires std::derived_from<R, Class> && (!std::is_abstract_v<R>)                          \
    static std::shared_ptr<R> create() {                                                          \
        return PerchAppLibrary::BaseEntity::make<R>();                                            \
    }                                                                                             \
    template <class R = Class, std::same_as<PerchAppLibrary::JSON> J>                             \
        requires std::derived_from<R, Class> &&                                                   \
                 (R::jsonFilling != PerchAppLibrary::JSONFilling::none)                           \
    static std::shared_ptr<R> create(const J& json) {                                             \
        return PerchAppLibrary::BaseEntity::makeFilled<R, Class::jsonFilling>(json);              \
    }                                                                                             \
    template <class R = Class, class Text>                                                        \
        requires std::derived_from<R, Class> &&                                                   \
                 (R::jsonFilling != PerchAppLibrary::JSONFilling::none)                           \
    static std::shared_ptr<R> parse(Text&& text) {                                                \
        return Class::template create<R>(PerchAppLibrary::JSON::parse(std::forward<Text>(text))); \
    }                                                                                             \
    PERCH_INHERIT_LABELS(BaseClass)                                                               \
    static_assert(true)

/// Opens a record that is made from JSON alone, by `create(json)` or a subclass's: the class is
/// abstract for everything else. Not for a final class.
#define PERCH_RECORD_FROM_JSON(Class, BaseClass)     \
    PERCH_RECORD(Class, BaseClass);                  \
                                                     \
public:                                              \
    using MadeFromJSONAlone = void;                  \
                                                     \
private:                                             \
    virtual void isMadeByCreateFromJSON() const = 0; \
                                                     \
public:                                              \
    static_assert(true)

/// Closes the list of properties. A property after it is not in the list.
#define PERCH_RECORD_END \
public:                  \
    using Ended = Self;  \
    static constexpr int lastPropertyLine = __LINE__

/// A stored property with the virtual accessors `Name()` and `setName(value)`. What follows the
/// name is the default; without it, the zero of the type.
#define PERCH_PROPERTY(Type, Name, ...)                                \
    static_assert(#Name[0] < 'a' || #Name[0] > 'z',                    \
                  "PERCH_PROPERTY_SET_BY names the setter of " #Name); \
    PERCH_PROPERTY_SET_BY(Type, Name, set##Name __VA_OPT__(, ) __VA_ARGS__)

/// A stored property whose setter is named here: `setName` does not follow from a name that begins
/// with a small letter.
#define PERCH_PROPERTY_SET_BY(Type, Name, Setter, ...)                                             \
private:                                                                                           \
    [[no_unique_address]] PerchAppLibrary::FieldOf<Type, Self, __LINE__> m_##Name{__VA_ARGS__};    \
                                                                                                   \
public:                                                                                            \
    static_assert(PerchAppLibrary::isPropertyType<Type>,                                           \
                  #Name " has the type " #Type ", which no property can have. "                    \
                        "Use std::int64_t, bool, float, std::string, std::optional<std::string>, " \
                        "std::vector<std::int64_t>, std::vector<std::string>, JSON, "              \
                        "std::vector<std::shared_ptr<R>> of a record R, Rare<std::string> or "     \
                        "Near<bool>");                                                             \
    virtual PerchAppLibrary::ReadType<PerchAppLibrary::ValueOf<Type>> Name() const {               \
        return this->PerchAppLibrary::BaseEntity::stored(this->m_##Name);                          \
    }                                                                                              \
    virtual void Setter(PerchAppLibrary::ValueOf<Type> newValue) {                                 \
        this->PerchAppLibrary::BaseEntity::store(this->m_##Name, std::move(newValue));             \
        this->perchChanged(#Name);                                                                 \
    }                                                                                              \
    static constexpr PerchAppLibrary::StoredProperty<Self, PerchAppLibrary::ValueOf<Type>,         \
                                                     PerchAppLibrary::Declared<Type>::place>       \
    onePropertyPerLine(PerchAppLibrary::At<__LINE__>) {                                            \
        PERCH_ASSERT_IN_LIST(Name)                                                                 \
        return {#Name, &Self::Name, &Self::Setter,                                                 \
                PerchAppLibrary::fieldPointer<PerchAppLibrary::ValueOf<Type>>(&Self::m_##Name),    \
                Self::perchEffectOf(#Name)};                                                       \
    }                                                                                              \
    PERCH_CHECKED_IN_SCHEMA(PerchAppLibrary::ValueOf<Type>, Name, Setter)                          \
    static_assert(true)

/// A stored property with one value for all records: it has no setter and no memory, and no
/// document changes it.
#define PERCH_CONSTANT(Type, Name, Constant)                                                   \
public:                                                                                        \
    static_assert(PerchAppLibrary::isPropertyType<Type> &&                                     \
                      !PerchAppLibrary::isArrayOfShared<Type>,                                 \
                  #Name " has the type " #Type ", which no constant can have");                \
    virtual PerchAppLibrary::ReadType<Type> Name() const {                                     \
        static const Type constant{Constant};                                                  \
        return constant;                                                                       \
    }                                                                                          \
    static constexpr PerchAppLibrary::StoredProperty<Self, Type, PerchAppLibrary::Place::none> \
    onePropertyPerLine(PerchAppLibrary::At<__LINE__>) {                                        \
        PERCH_ASSERT_IN_LIST(Name)                                                             \
        return {#Name, &Self::Name, nullptr, nullptr, nullptr};                                \
    }                                                                                          \
    static_assert(true)

/// A computed property with the virtual getter `Name()`, which the class defines in its source.
#define PERCH_COMPUTED(Type, Name)                                                     \
public:                                                                                \
    virtual Type Name() const;                                                         \
    static constexpr PerchAppLibrary::ComputedProperty<Self, Type> onePropertyPerLine( \
        PerchAppLibrary::At<__LINE__>) {                                               \
        PERCH_ASSERT_IN_LIST(Name)                                                     \
        return {#Name, &Self::Name};                                                   \
    }                                                                                  \
    static_assert(true)

/// Says that `Effect()`, a noexcept member function, is called after these properties of the class
/// may have changed, whatever changed them: to drop a cached value. The last call comes after the
/// last change; there may be one call for several changes, and calls without one. Stands below the
/// properties, once in a class.
#define PERCH_ON_CHANGE(Effect, ...)                                                        \
protected:                                                                                  \
    PERCH_FOR_EACH_NAME(PERCH_ASSERT_OWN, __VA_ARGS__)                                      \
    static constexpr bool perchHasEffect(std::string_view name) {                           \
        return false PERCH_FOR_EACH_NAME(PERCH_OR_IS, __VA_ARGS__);                         \
    }                                                                                       \
    static void perchCallEffect(PerchAppLibrary::BaseEntity& record) {                      \
        static_assert(noexcept(static_cast<Self&>(record).Effect()),                        \
                      #Effect " of PERCH_ON_CHANGE must be noexcept");                      \
        static_cast<Self&>(record).Effect();                                                \
    }                                                                                       \
    static constexpr PerchAppLibrary::EffectOfChange perchEffectOf(std::string_view name) { \
        return perchHasEffect(name) ? &Self::perchCallEffect : nullptr;                     \
    }                                                                                       \
    void perchChanged(std::string_view name) {                                              \
        if (perchHasEffect(name))                                                           \
            this->Effect();                                                                 \
    }                                                                                       \
                                                                                            \
public:                                                                                     \
    static_assert(true)

/// One more `create`, with labels: PERCH_LABELS(PersonLabels, (name, Name), (age, Age)) gives
/// `create({.name = "A", .age = 7})`, which calls setName() and setAge(). Every label must be
/// given, by its name and in this order.
#define PERCH_LABELS(Labels, ...)                                                              \
public:                                                                                        \
    struct Labels {                                                                            \
        [[no_unique_address]] PerchAppLibrary::ByNameOnly byNameOnly =                         \
            PerchAppLibrary::ByNameOnly();                                                     \
        PERCH_FOR_EACH(PERCH_DECLARE_LABEL, __VA_ARGS__)                                       \
        void applyTo(Self& record) && { PERCH_FOR_EACH(PERCH_SET_LABELLED, __VA_ARGS__) }      \
    };                                                                                         \
    static_assert(__LINE__ - firstPropertyLine <= PerchAppLibrary::mostLinesToLabels,          \
                  "PERCH_LABELS stands too far below PERCH_RECORD for subclasses to find it"); \
    static std::type_identity<Labels> labelsAt(PerchAppLibrary::At<__LINE__>);                 \
    PERCH_CREATE(Labels)                                                                       \
    static_assert(true)

// The rest is used by the macros above.

#define PERCH_CREATE(Labels)                                                    \
    template <class R = Self>                                                   \
        requires std::derived_from<R, Self>                                     \
    static std::shared_ptr<R> create(Labels labels) {                           \
        return PerchAppLibrary::BaseEntity::makeLabelled<R>(std::move(labels)); \
    }

#define PERCH_DECLARE_LABEL(label, Name) \
    typename PerchAppLibrary::LabelOf<decltype(&Self::set##Name)>::Type label;
#define PERCH_SET_LABELLED(label, Name) record.set##Name(std::move(this->label.value));

// Instantiated by the schema, where all classes are complete. Tells whether a subclass uses the
// accessors that are declared at this line.
#define PERCH_CHECKED_IN_SCHEMA(Type, Name, Setter)                                   \
    template <class Record>                                                           \
    static constexpr bool keepsGetterAt(PerchAppLibrary::At<__LINE__>) {              \
        return requires {                                                             \
            requires std::same_as<decltype(&Record::Name),                            \
                                  PerchAppLibrary::ReadType<Type> (Self::*)() const>; \
        };                                                                            \
    }                                                                                 \
    template <class Record>                                                           \
    static constexpr bool keepsSetterAt(PerchAppLibrary::At<__LINE__>) {              \
        static_assert(!PerchAppLibrary::isArrayOfShared<Type> ||                      \
                          PerchAppLibrary::isArrayOfRecords<Type>,                    \
                      #Name " is an array of shared objects that are no records");    \
        return requires {                                                             \
            requires std::same_as<decltype(&Record::Setter), void (Self::*)(Type)>;   \
        };                                                                            \
    }

// In the body of a member function, where the class is complete.
#define PERCH_ASSERT_IN_LIST(Name)                                                               \
    static_assert(!PerchAppLibrary::isEnded<Self> ||                                             \
                      (Self::firstPropertyLine < __LINE__ && __LINE__ < Self::lastPropertyLine), \
                  #Name " does not stand between PERCH_RECORD and PERCH_RECORD_END");

#define PERCH_ASSERT_OWN(Name)                                       \
    static_assert(PerchAppLibrary::isOwnProperty<Self>(&Self::Name), \
                  "PERCH_ON_CHANGE names a property of another class: " #Name);
#define PERCH_OR_IS(Name) || name == #Name

// A base may have up to sixteen sets of labels; BaseEntity has none, and gives short messages. The
// first word of the base's name tells: PERCH_ROOT_BaseEntity is replaced by two arguments, which
// shifts the third.
#define PERCH_INHERIT_LABELS(BaseClass) \
    PERCH_THIRD(PERCH_ROOT_##BaseClass, PERCH_NO_LABELS, PERCH_SIXTEEN_LABELS, )()
#define PERCH_ROOT_PerchAppLibrary 1, 2
#define PERCH_ROOT_BaseEntity 1, 2
#define PERCH_THIRD(...) PERCH_THIRD_OF(__VA_ARGS__)
#define PERCH_THIRD_OF(first, second, third, ...) third
#define PERCH_NO_LABELS()
// clang-format off
#define PERCH_SIXTEEN_LABELS() \
    PERCH_CREATE_INHERITED(0) PERCH_CREATE_INHERITED(1) PERCH_CREATE_INHERITED(2) PERCH_CREATE_INHERITED(3) \
    PERCH_CREATE_INHERITED(4) PERCH_CREATE_INHERITED(5) PERCH_CREATE_INHERITED(6) PERCH_CREATE_INHERITED(7) \
    PERCH_CREATE_INHERITED(8) PERCH_CREATE_INHERITED(9) PERCH_CREATE_INHERITED(10) PERCH_CREATE_INHERITED(11) \
    PERCH_CREATE_INHERITED(12) PERCH_CREATE_INHERITED(13) PERCH_CREATE_INHERITED(14) PERCH_CREATE_INHERITED(15)
// clang-format on
#define PERCH_CREATE_INHERITED(N) PERCH_CREATE(PERCH_INHERITED_LABELS(N))
#define PERCH_INHERITED_LABELS(N) PerchAppLibrary::InheritedLabels<Base, N>

// PERCH_FOR_EACH(MACRO, (a, b), (c, d)) gives MACRO(a, b) MACRO(c, d), PERCH_FOR_EACH_NAME(MACRO,
// a, b) gives MACRO(a) MACRO(b). A macro does not expand within itself, so each step leaves the
// next one spelled out behind it, for PERCH_EXPAND to find when it scans the result again: up to 64
// times.
#define PERCH_FOR_EACH(MACRO, ...) __VA_OPT__(PERCH_EXPAND(PERCH_FOR_FIRST(MACRO, __VA_ARGS__)))
#define PERCH_FOR_FIRST(MACRO, first, ...) \
    MACRO first __VA_OPT__(PERCH_FOR_REST PERCH_PARENTHESES(MACRO, __VA_ARGS__))
#define PERCH_FOR_REST() PERCH_FOR_FIRST
#define PERCH_FOR_EACH_NAME(MACRO, ...) \
    __VA_OPT__(PERCH_EXPAND(PERCH_FOR_FIRST_NAME(MACRO, __VA_ARGS__)))
#define PERCH_FOR_FIRST_NAME(MACRO, first, ...) \
    MACRO(first) __VA_OPT__(PERCH_FOR_REST_NAME PERCH_PARENTHESES(MACRO, __VA_ARGS__))
#define PERCH_FOR_REST_NAME() PERCH_FOR_FIRST_NAME
#define PERCH_PARENTHESES ()
#define PERCH_EXPAND(...) \
    PERCH_EXPAND16(PERCH_EXPAND16(PERCH_EXPAND16(PERCH_EXPAND16(__VA_ARGS__))))
#define PERCH_EXPAND16(...) PERCH_EXPAND4(PERCH_EXPAND4(PERCH_EXPAND4(PERCH_EXPAND4(__VA_ARGS__))))
#define PERCH_EXPAND4(...) PERCH_EXPAND1(PERCH_EXPAND1(PERCH_EXPAND1(PERCH_EXPAND1(__VA_ARGS__))))
#define PERCH_EXPAND1(...) __VA_ARGS__
