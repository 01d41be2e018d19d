#pragma once

#include <PerchAppLibrary/json/DictionaryFwd.hpp>
#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/platform/URLFwd.hpp>

#include <concepts>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace PerchAppLibrary {

class PlatformFont; // completed by PerchAppLibrary/platform/PlatformFont.hpp

/// The type of a text that few records have. It takes no memory in a record while it is empty.
template <class T>
struct Rare {};

/// The type of a flag that every walk over a tree reads. The record's header holds it.
template <class T>
struct Near {};

/// Where a record keeps the value of a property: nowhere (a constant or computed one), in a field
/// of its own, among the flags of the header, or in the list of rare texts.
enum class Place : std::uint8_t { none, field, near, rare };

/// The type of the value and its place, for the type on a property's line.
template <class T>
struct Declared {
    using Value = T;
    static constexpr Place place = Place::field;
};
template <class T>
struct Declared<Rare<T>> {
    using Value = std::string;
    static constexpr Place place = Place::rare;
};
template <class T>
struct Declared<Near<T>> {
    using Value = bool;
    static constexpr Place place = Place::near;
};

/// The type of a property's accessors, for the type on its line.
template <class T>
using ValueOf = typename Declared<T>::Value;

/// The type that a getter of a property of type T returns: a scalar by value, any other by
/// reference to the record's value, which lives until the property is set or the record is
/// destroyed.
template <class T>
using ReadType = std::conditional_t<std::is_scalar_v<T>, T, const T&>;

/// Returned by the deleted overload of a flag's setter. A setter returns void.
struct IsNoFlag {};

template <class T>
inline constexpr bool isArray = false;
template <class T>
inline constexpr bool isArray<std::vector<T>> = true;

template <class T>
inline constexpr bool isShared = false;
template <class R>
inline constexpr bool isShared<std::shared_ptr<R>> = true;

template <class T>
inline constexpr bool isArrayOfShared = false;
template <class R>
inline constexpr bool isArrayOfShared<std::vector<std::shared_ptr<R>>> = true;

/// A list of types. `Apply<Template>` is Template<Types...>.
template <class... Types>
struct TypeList {
    template <template <class...> class Template>
    using Apply = Template<Types...>;

    template <class T>
    static constexpr bool contains = (std::same_as<T, Types> || ...);
};

/// The types of values. A further type needs a word here, a conversion (json/detail/Conversion.hpp)
/// and a PropertyKind (record/detail/PropertyKind.hpp). Arrays and optionals of other types have
/// both.
using ValueTypes =
    TypeList<std::int64_t, bool, float, double, std::string, std::optional<std::int64_t>,
             std::optional<bool>, std::optional<double>, std::optional<std::string>,
             std::vector<std::int64_t>, std::vector<std::string>, JSON>;

/// True if a property's line can have this type. isRecords checks the class of shared objects,
/// which may be incomplete here.
template <class T>
inline constexpr bool isPropertyType = ValueTypes::contains<T> || isArrayOfShared<T> || isShared<T>;

template <class T>
inline constexpr bool isPropertyType<Rare<T>> = std::same_as<T, std::string>;
template <class T>
inline constexpr bool isPropertyType<Near<T>> = std::same_as<T, bool>;

class BaseEntity;

/// True if T is a shared record, or an array of them. Requires that their class is complete.
template <class T>
inline constexpr bool isRecords = false;
template <class R>
inline constexpr bool isRecords<std::shared_ptr<R>> = std::derived_from<R, BaseEntity>;
template <class R>
inline constexpr bool isRecords<std::vector<std::shared_ptr<R>>> = isRecords<std::shared_ptr<R>>;

/// True if a computed property can have this type. Requires that classes of records are complete.
template <class T>
inline constexpr bool isComputedType =
    (std::is_arithmetic_v<T> && !CharacterType<T>) || ValueTypes::contains<T> || isRecords<T> ||
    std::same_as<T, URL> || std::same_as<T, Dictionary> || std::same_as<T, PlatformFont>;
template <class T>
inline constexpr bool isComputedType<std::optional<T>> = isComputedType<T>;
template <class T>
inline constexpr bool isComputedType<std::vector<T>> = isComputedType<T>;
/// The class of a shared record, or of the records of an array.
template <class T>
struct ItemOfType;
template <class R>
struct ItemOfType<std::shared_ptr<R>> : std::type_identity<R> {};
template <class R>
struct ItemOfType<std::vector<std::shared_ptr<R>>> : std::type_identity<R> {};
template <class T>
using ItemOf = typename ItemOfType<T>::type;

} // namespace PerchAppLibrary
