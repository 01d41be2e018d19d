#pragma once
#ifndef PERCH_DEVELOPER
#pragma GCC system_header
#endif

#include <PerchAppLibrary/record/PropertyDeclaration.hpp>

// The macros that the macros of Record.hpp use. Their prefix PERCH_DETAIL_ says that records do
// not.

#define PERCH_DETAIL_CREATE(Labels)                                             \
    template <class R = Self>                                                   \
        requires std::derived_from<R, Self>                                     \
    static std::shared_ptr<R> create(Labels labels) {                           \
        return PerchAppLibrary::BaseEntity::makeLabelled<R>(std::move(labels)); \
    }

#define PERCH_DETAIL_DECLARE_LABEL(label, Name) \
    decltype(PerchAppLibrary::labelOf(&Self::set##Name)) label;
#define PERCH_DETAIL_SET_LABELLED(label, Name) record.set##Name(std::move(this->label.value));

// Deletes a flag's setter for a text in quotes, which would convert to true. The type of a flag is
// `bool` or `Near<bool>`, so its first word is known.
#define PERCH_DETAIL_SECOND_OF(...) PERCH_DETAIL_SECOND(__VA_ARGS__)
#define PERCH_DETAIL_SECOND(first, second, ...) second
#define PERCH_DETAIL_REFUSES_bool , PERCH_DETAIL_REFUSE_TEXT
#define PERCH_DETAIL_REFUSES_Near , PERCH_DETAIL_REFUSE_TEXT,
#define PERCH_DETAIL_REFUSE_TEXT(Setter) PerchAppLibrary::IsNoFlag Setter(const char(&)[]) = delete;
#define PERCH_DETAIL_REFUSE_NOTHING(Setter)

// Declares a function that returns which accessors of this line a subclass keeps. The schema
// instantiates it, where all classes are complete.
#define PERCH_DETAIL_CHECKED_IN_SCHEMA(Type, Name, Setter)                            \
    template <class Record>                                                           \
    static consteval PerchAppLibrary::Kept keptAt(PerchAppLibrary::At<__LINE__>) {    \
        static_assert(!PerchAppLibrary::isPropertyType<Type> ||                       \
                          PerchAppLibrary::ValueTypes::contains<Type> ||              \
                          PerchAppLibrary::isRecords<Type>,                           \
                      #Name " has shared objects that are no records");               \
        constexpr bool getter = requires {                                            \
            requires std::same_as<decltype(&Record::Name),                            \
                                  PerchAppLibrary::ReadType<Type> (Self::*)() const>; \
        };                                                                            \
        constexpr bool setter =                                                       \
            requires(void (*take)(void(Self::*)(Type))) { take(&Record::Setter); };   \
        return {getter, setter};                                                      \
    }

// A type with a comma comes as two arguments, so the second one is no name.
#define PERCH_DETAIL_ASSERT_NAME(Name)            \
    static_assert(PerchAppLibrary::isName(#Name), \
                  #Name " is no name. A type with a comma needs an alias: using Alias = ...");

// For the body of a member function, where the class is complete.
#define PERCH_DETAIL_ASSERT_IN_LIST(Name)                                  \
    static_assert(PerchAppLibrary::RecordAccess::isInList<Self, __LINE__>, \
                  #Name " does not stand between PERCH_RECORD and PERCH_RECORD_END");

#define PERCH_DETAIL_ASSERT_OWN(Name)                                \
    static_assert(PerchAppLibrary::isOwnProperty<Self>(&Self::Name), \
                  "PERCH_ON_CHANGE names a property of another class: " #Name);
#define PERCH_DETAIL_OR_IS(Name) || name == #Name

// PERCH_DETAIL_FOR_EACH(MACRO, (a, b), (c, d)) gives MACRO(a, b) MACRO(c, d),
// PERCH_DETAIL_FOR_EACH_NAME(MACRO, a, b) gives MACRO(a) MACRO(b). A macro does not expand within
// itself, so each step leaves the next one unexpanded. PERCH_DETAIL_EXPAND scans the result again
// and expands it, at least 64 times.
#define PERCH_DETAIL_FOR_EACH(MACRO, ...) \
    __VA_OPT__(PERCH_DETAIL_EXPAND(PERCH_DETAIL_FOR_FIRST(MACRO, __VA_ARGS__)))
#define PERCH_DETAIL_FOR_FIRST(MACRO, first, ...) \
    MACRO first __VA_OPT__(PERCH_DETAIL_FOR_REST PERCH_DETAIL_PARENTHESES(MACRO, __VA_ARGS__))
#define PERCH_DETAIL_FOR_REST() PERCH_DETAIL_FOR_FIRST
#define PERCH_DETAIL_FOR_EACH_NAME(MACRO, ...) \
    __VA_OPT__(PERCH_DETAIL_EXPAND(PERCH_DETAIL_FOR_FIRST_NAME(MACRO, __VA_ARGS__)))
#define PERCH_DETAIL_FOR_FIRST_NAME(MACRO, first, ...) \
    MACRO(first) __VA_OPT__(PERCH_DETAIL_FOR_REST_NAME PERCH_DETAIL_PARENTHESES(MACRO, __VA_ARGS__))
#define PERCH_DETAIL_FOR_REST_NAME() PERCH_DETAIL_FOR_FIRST_NAME
#define PERCH_DETAIL_PARENTHESES ()
#define PERCH_DETAIL_EXPAND(...) \
    PERCH_DETAIL_EXPAND16(       \
        PERCH_DETAIL_EXPAND16(PERCH_DETAIL_EXPAND16(PERCH_DETAIL_EXPAND16(__VA_ARGS__))))
#define PERCH_DETAIL_EXPAND16(...) \
    PERCH_DETAIL_EXPAND4(          \
        PERCH_DETAIL_EXPAND4(PERCH_DETAIL_EXPAND4(PERCH_DETAIL_EXPAND4(__VA_ARGS__))))
#define PERCH_DETAIL_EXPAND4(...) \
    PERCH_DETAIL_EXPAND1(         \
        PERCH_DETAIL_EXPAND1(PERCH_DETAIL_EXPAND1(PERCH_DETAIL_EXPAND1(__VA_ARGS__))))
#define PERCH_DETAIL_EXPAND1(...) __VA_ARGS__
