#pragma once
#ifndef PERCH_DEVELOPER
// Makes errors in a record point to its own lines, not into the macros.
#pragma GCC system_header
#endif

#include <PerchAppLibrary/container/NoDestructor.hpp>
#include <PerchAppLibrary/record/MacroHelpers.hpp>
#include <PerchAppLibrary/record/PropertyDeclaration.hpp>

/// The macros with which a record declares its properties.
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
/// These lines define the accessors, the defaults, the JSON keys, the order, and how filling,
/// access by name and export work. An application declares its own records, and properties of its
/// own in a subclass, in this way.
///
/// The types of a property: std::int64_t, bool, float, double, std::string, a std::optional of
/// these but float, std::vector<std::int64_t>, std::vector<std::string>, JSON (any value, kept as
/// it is), std::shared_ptr<R> (null without an object) and std::vector<std::shared_ptr<R>> for a
/// record R. Rare<std::string> is a text that few records have. Near<bool> is a flag in the
/// record's header, for flags that queries read in every record. Their accessors take and return
/// std::string and bool.

/// Begins a record and declares its `create` functions.
///
/// `create()` makes a record with defaults. `create(json)` also fills it. `parse(text)` is
/// `create(JSON::parse(text))`. Each PERCH_LABELS adds a `create`.
/// `create<R>(...)` makes an R, a subclass, whose overrides run while it is filled. A shared_ptr
/// owns the record. A subclass without a PERCH_RECORD of its own inherits these functions
/// unchanged, so its `R::create()` makes a `Class`. `create(json)` takes only a JSON, since a text
/// would become a JSON string. BaseClass is the direct base, without a leading `::`.
#define PERCH_RECORD(Class, BaseClass)                                                          \
private:                                                                                        \
    friend struct PerchAppLibrary::RecordAccess;                                                \
    static const PerchAppLibrary::RecordSchema& perchSchema();                                  \
    static constexpr int firstPropertyLine = __LINE__;                                          \
    static void propertyAt(PerchAppLibrary::At<__LINE__>);                                      \
                                                                                                \
public:                                                                                         \
    [[maybe_unused]] static constexpr std::string_view recordName = #Class;                     \
    using Self = Class;                                                                         \
    using Base = BaseClass;                                                                     \
    using Base::setValue;                                                                       \
    const PerchAppLibrary::RecordSchema& schema() const override;                               \
    template <class Derived>                                                                    \
        requires(!std::same_as<Derived, Class>)                                                 \
    friend std::type_identity<Class> nearestRecord(const Class*, std::type_identity<Derived>) { \
        return {};                                                                              \
    }                                                                                           \
    template <class R = Class>                                                                  \
        requires std::derived_from<R, Class> && (!std::is_abstract_v<R>)                        \
    static std::shared_ptr<R> create() {                                                        \
        return PerchAppLibrary::BaseEntity::make<R>();                                          \
    }                                                                                           \
    template <class R = Class, std::same_as<PerchAppLibrary::JSON> J>                           \
        requires std::derived_from<R, Class> &&                                                 \
                 (R::jsonFilling != PerchAppLibrary::JSONFilling::none)                         \
    static std::shared_ptr<R> create(const J& json) {                                           \
        return PerchAppLibrary::BaseEntity::makeFilled<R, Class::jsonFilling>(json);            \
    }                                                                                           \
    template <class R = Class, class Text>                                                      \
        requires std::derived_from<R, Class> &&                                                 \
                 (R::jsonFilling != PerchAppLibrary::JSONFilling::none)                         \
    static std::shared_ptr<R> parse(Text&& text,                                                \
                                    const PerchAppLibrary::JSON::Limits& limits = {}) {         \
        return Class::template create<R>(                                                       \
            PerchAppLibrary::JSON::parse(std::forward<Text>(text), limits));                    \
    }                                                                                           \
    static_assert(true)

/// Begins a record that only its `create(json)`, or that of a subclass, can make. The class is
/// abstract. Requires that it is not final.
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

/// Ends the list of properties. A property after it does not compile.
#define PERCH_RECORD_END                              \
private:                                              \
    using Ended = Self;                               \
    static constexpr int lastPropertyLine = __LINE__; \
                                                      \
public:                                               \
    static_assert(true)

/// Declares a stored property with the virtual accessors `Name()` and `setName(value)`. The default
/// follows the name, a list in braces: `{"en", "de"}`; without it, the default is the zero of the
/// type.
#define PERCH_PROPERTY(Type, Name, ...)                                \
    PERCH_DETAIL_ASSERT_NAME(Name)                                     \
    static_assert(#Name[0] < 'a' || #Name[0] > 'z',                    \
                  "PERCH_PROPERTY_SET_BY names the setter of " #Name); \
    PERCH_PROPERTY_SET_BY(Type, Name, set##Name __VA_OPT__(, ) __VA_ARGS__)

/// Like PERCH_PROPERTY, but names the setter, for a property whose name begins with a small letter.
#define PERCH_PROPERTY_SET_BY(Type, Name, Setter, ...)                                             \
    PERCH_DETAIL_ASSERT_NAME(Name)                                                                 \
private:                                                                                           \
    [[no_unique_address]] PerchAppLibrary::FieldOf<Type, Self, __LINE__> m_##Name{                 \
        __VA_OPT__(PerchAppLibrary::initial<PerchAppLibrary::FieldOf<Type, Self, __LINE__>>(       \
            PerchAppLibrary::Default<PerchAppLibrary::ValueOf<Type>>{__VA_ARGS__}))};              \
                                                                                                   \
public:                                                                                            \
    static_assert(PerchAppLibrary::isPropertyType<Type>,                                           \
                  #Name " has the type " #Type ", which no property can have. "                    \
                        "Use std::int64_t, bool, float, double, std::string, std::optional of "    \
                        "these but float, std::vector<std::int64_t>, std::vector<std::string>, "   \
                        "JSON, std::shared_ptr<R> or std::vector<std::shared_ptr<R>> of a record " \
                        "R, Rare<std::string> or Near<bool>");                                     \
    __VA_OPT__(                                                                                    \
        static_assert(PerchAppLibrary::Declared<Type>::place == PerchAppLibrary::Place::field,     \
                      #Name " has the type " #Type                                                 \
                            ", which takes no default: it begins empty or false");                 \
        static_assert(PerchAppLibrary::isDefault<PerchAppLibrary::ValueOf<Type>>(#__VA_ARGS__),    \
                      "The default of " #Name " is no " #Type ": " #__VA_ARGS__);)                 \
    virtual PerchAppLibrary::ReadType<PerchAppLibrary::ValueOf<Type>> Name() const {               \
        return this->PerchAppLibrary::BaseEntity::stored(this->m_##Name);                          \
    }                                                                                              \
    virtual void Setter(PerchAppLibrary::ValueOf<Type> newValue) {                                 \
        this->PerchAppLibrary::BaseEntity::store(this->m_##Name, std::move(newValue));             \
        this->perchChanged(#Name);                                                                 \
    }                                                                                              \
PERCH_DETAIL_SECOND_OF(PERCH_DETAIL_REFUSES_##Type, PERCH_DETAIL_REFUSE_NOTHING, )(Setter)         \
                                                                                                   \
    private                                                                                        \
    : static consteval PerchAppLibrary::StoredProperty<Self, PerchAppLibrary::ValueOf<Type>,       \
                                                       PerchAppLibrary::Declared<Type>::place>     \
      propertyAt(PerchAppLibrary::At<__LINE__>) {                                                  \
        PERCH_DETAIL_ASSERT_IN_LIST(Name)                                                          \
        return {#Name, &Self::Name, &Self::Setter,                                                 \
                PerchAppLibrary::fieldPointer<PerchAppLibrary::ValueOf<Type>>(&Self::m_##Name)};   \
    }                                                                                              \
    PERCH_DETAIL_CHECKED_IN_SCHEMA(PerchAppLibrary::ValueOf<Type>, Name, Setter)                   \
                                                                                                   \
public:                                                                                            \
    static_assert(true)

/// Declares a stored property with one value for all records. It has no setter and takes no memory,
/// and filling does not change it.
#define PERCH_CONSTANT(Type, Name, Constant)                                                   \
public:                                                                                        \
    static_assert(PerchAppLibrary::isPropertyType<Type> &&                                     \
                      PerchAppLibrary::ValueTypes::contains<Type>,                             \
                  #Name " has the type " #Type ", which no constant can have");                \
    static_assert(PerchAppLibrary::isDefault<Type>(#Constant),                                 \
                  "The value of " #Name " is no " #Type ": " #Constant);                       \
    virtual PerchAppLibrary::ReadType<Type> Name() const { return constant##Name(); }          \
                                                                                               \
private:                                                                                       \
    static const Type& constant##Name() {                                                      \
        static const PerchAppLibrary::NoDestructor<Type> constant(Type{Constant});             \
        return *constant;                                                                      \
    }                                                                                          \
    static consteval PerchAppLibrary::StoredProperty<Self, Type, PerchAppLibrary::Place::none> \
    propertyAt(PerchAppLibrary::At<__LINE__>) {                                                \
        PERCH_DETAIL_ASSERT_IN_LIST(Name)                                                      \
        return {#Name, &Self::Name, nullptr, nullptr, &Self::constant##Name};                  \
    }                                                                                          \
                                                                                               \
public:                                                                                        \
    static_assert(true)

/// Gives the elements of an inherited array of records another class when it is filled: Item, which
/// derives from theirs. `PERCH_ELEMENTS(Children, StarFont);` in a font class StarFont makes trees
/// of it. The accessors keep their types, so setChildren() still takes other fonts.
#define PERCH_ELEMENTS(Name, Item)                                                             \
private:                                                                                       \
    static consteval PerchAppLibrary::ElementsOfArray<Self, Item> propertyAt(                  \
        PerchAppLibrary::At<__LINE__>) {                                                       \
        PERCH_DETAIL_ASSERT_IN_LIST(Name)                                                      \
        return {#Name};                                                                        \
    }                                                                                          \
    template <class Record>                                                                    \
    static consteval auto perchArrayAt(PerchAppLibrary::At<__LINE__>) {                        \
        static_assert(                                                                         \
            requires {                                                                         \
                requires PerchAppLibrary::returnsBasesOf<decltype(&Record::Base::Name), Item>; \
                &Record::Base::set##Name;                                                      \
            }, "PERCH_ELEMENTS(" #Name ", " #Item "): a base has no property " #Name           \
               " with an array of records from which " #Item " derives");                      \
        return std::pair(&Record::Name, &Record::set##Name);                                   \
    }                                                                                          \
                                                                                               \
public:                                                                                        \
    static_assert(true)

/// Declares a computed property with the virtual getter `Name()`, which the class defines. Its type
/// is that of a property, any number, a URL, PlatformFont or Dictionary, or a vector or optional of
/// these.
#define PERCH_COMPUTED(Type, Name, ...)                                                            \
    PERCH_DETAIL_ASSERT_NAME(Name)                                                                 \
public:                                                                                            \
    virtual Type Name() const;                                                                     \
                                                                                                   \
private:                                                                                           \
    static consteval PerchAppLibrary::ComputedProperty<Self, Type> propertyAt(                     \
        PerchAppLibrary::At<__LINE__>) {                                                           \
        PERCH_DETAIL_ASSERT_IN_LIST(Name)                                                          \
        return {#Name, &Self::Name};                                                               \
    }                                                                                              \
    template <class Record>                                                                        \
    static consteval PerchAppLibrary::Kept keptAt(PerchAppLibrary::At<__LINE__>) {                 \
        static_assert(PerchAppLibrary::isComputedType<Type>,                                       \
                      #Name " has the type " #Type ", which no computed property can have. Use a " \
                            "number, bool, std::string, JSON, URL, Dictionary, PlatformFont, "     \
                            "std::vector<std::shared_ptr<R>> of a record R, or a std::vector or "  \
                            "std::optional of them");                                              \
        return {true, true};                                                                       \
    }                                                                                              \
                                                                                                   \
public:                                                                                            \
    static_assert(true)

/// Calls `Effect()`, a noexcept member function, after any change of these properties of the class,
/// to drop a cached value. One call may follow several changes, or none, but the last call comes
/// after the last change. Goes below the properties, once in a class.
#define PERCH_ON_CHANGE(Effect, ...)                                                       \
protected:                                                                                 \
    PERCH_DETAIL_FOR_EACH_NAME(PERCH_DETAIL_ASSERT_OWN, __VA_ARGS__)                       \
    static void perchCallEffect(PerchAppLibrary::BaseEntity& record) {                     \
        static_assert(noexcept(static_cast<Self&>(record).Effect()),                       \
                      #Effect " of PERCH_ON_CHANGE must be noexcept");                     \
        static_cast<Self&>(record).Effect();                                               \
    }                                                                                      \
    static constexpr PerchAppLibrary::EffectOfChange perchEffect = &Self::perchCallEffect; \
    void perchChanged(std::string_view name) {                                             \
        if (false PERCH_DETAIL_FOR_EACH_NAME(PERCH_DETAIL_OR_IS, __VA_ARGS__))             \
            this->Effect();                                                                \
        Base::perchChanged(name); /* which may name a property that Self declares again */ \
    }                                                                                      \
                                                                                           \
public:                                                                                    \
    static_assert(true)

/// Declares a `create` with labels: PERCH_LABELS(PersonLabels, (name, Name), (age, Age)) gives
/// `create({.name = "A", .age = 7})`, which calls setName() and setAge(). A call
/// must give every label, by its name and in this order.
#define PERCH_LABELS(Labels, ...)                                         \
public:                                                                   \
    struct Labels {                                                       \
        [[no_unique_address]] PerchAppLibrary::ByNameOnly byNameOnly =    \
            PerchAppLibrary::ByNameOnly();                                \
        PERCH_DETAIL_FOR_EACH(PERCH_DETAIL_DECLARE_LABEL, __VA_ARGS__)    \
        void applyTo(Self& record) && {                                   \
            PERCH_DETAIL_FOR_EACH(PERCH_DETAIL_SET_LABELLED, __VA_ARGS__) \
        }                                                                 \
    };                                                                    \
    PERCH_DETAIL_CREATE(Labels)                                           \
    static_assert(true)

/// Declares in a subclass the `create`s of these labels of its bases:
/// PERCH_INHERIT_LABELS(PersonLabels) gives `Pupil::create({.name = "A", .age = 7})`, a Pupil.
/// Without this line, `Person::create<Pupil>({.name = "A", .age = 7})` makes one.
#define PERCH_INHERIT_LABELS(...)                                \
public:                                                          \
    PERCH_DETAIL_FOR_EACH_NAME(PERCH_DETAIL_CREATE, __VA_ARGS__) \
    static_assert(true)

/// Defines the schema of a record. RecordSchema.hpp defines this macro again.
#define PERCH_RECORD_SCHEMA(Class, ...)                           \
    static_assert(false, "PERCH_RECORD_SCHEMA(" #Class ") needs " \
                         "#include <PerchAppLibrary/record/RecordSchema.hpp>")
