#pragma once

#include <PerchAppLibrary/record/PropertyType.hpp>
#include <PerchAppLibrary/record/Required.hpp>

#include <array>
#include <concepts>
#include <cstddef>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

/// The declarations that the macros of record/Record.hpp make, and computations on them at compile
/// time.
namespace PerchAppLibrary {

class BaseEntity;
class RecordSchema;

/// Returns whether the text of a macro's argument is an identifier. A loop, since compilers take
/// long for the functions of a string_view, and each property is checked.
consteval bool isName(const char* text) {
    for (char each = *text; each != 0; each = *++text)
        if (each == '<' || each == '>' || each == ',' || each == ' ' || each == ':')
            return false;
    return true;
}

/// The line of a declaration in its class. Overloads that take it are collected by line number.
template <int Line>
struct At {};

/// Called after a change of properties.
using EffectOfChange = void (*)(BaseEntity& record);

/// A stored property: its name, its virtual accessors, and its field if the value is in one. A
/// constant has its value in place of a setter.
template <class Record, class T, Place itsPlace>
struct StoredProperty {
    static constexpr Place place = itsPlace;
    std::string_view name;
    ReadType<T> (Record::*get)() const;
    void (Record::*set)(T);
    T Record::* field;
    const T& (*constant)() = nullptr;
};

/// A property that its getter computes.
template <class Record, class T>
struct ComputedProperty {
    static constexpr Place place = Place::none;
    std::string_view name;
    T (Record::*get)() const;
};

/// An inherited array of records whose elements have a class of their own in this one.
template <class Record, class Item>
struct ElementsOfArray {
    static constexpr Place place = Place::none;
    std::string_view name;
};

/// True if this getter returns an array of records of a base of Item.
template <class Getter, class Item>
inline constexpr bool returnsBasesOf = false;
template <class Record, class Base, class Item>
inline constexpr bool
    returnsBasesOf<const std::vector<std::shared_ptr<Base>>& (Record::*)() const, Item> =
        std::derived_from<Item, Base>;

/// The empty member of a property whose value is not in a field.
template <Place place, class Record, int Line>
struct Slot {};

/// The member that a property's line declares: a value, or a Slot.
template <class T, class Record, int Line>
using FieldOf = std::conditional_t<Declared<T>::place == Place::field, ValueOf<T>,
                                   Slot<Declared<T>::place, Record, Line>>;

/// The default of a property, from what follows its name. As a member, a braced list initialises
/// the value itself: `{"en", "de"}` is two texts, where T{{"en", "de"}} would be one from two
/// pointers.
template <class T>
struct Default {
    T value;
};

/// Returns whether a default is no mistake that would compile. Null is no text, and a text is no
/// flag.
template <class T>
consteval bool isDefault(std::string_view code) {
    const bool hasText = code.find('"') != std::string_view::npos;
    if constexpr (std::same_as<T, bool>)
        return !hasText;
    else if constexpr (std::same_as<T, std::string> || isArray<T>)
        return hasText || (code != "0" && code.find("NULL") == std::string_view::npos &&
                           code.find("nullptr") == std::string_view::npos);
    else
        return true;
}

/// Returns the value for the member of a property. A Slot has none.
template <class Field, class T>
constexpr Field initial(Default<T>&& given) {
    if constexpr (std::same_as<Field, T>)
        return std::move(given.value);
    else
        return Field();
}

template <class T, class Record>
consteval T Record::* fieldPointer(T Record::* field) {
    return field;
}
template <class T, class Record, Place place, int Line>
consteval T Record::* fieldPointer(Slot<place, Record, Line> Record::* /*slot*/) {
    return nullptr;
}

/// Whether a class keeps the accessors of a property as a base declares them. What a property does
/// not have is kept.
struct Kept {
    bool getter;
    bool setter;
};

/// Reads what the macros declare, which is private. The friend of each record.
struct RecordAccess {
    /// Returns the schema of the class, or of its nearest base with a PERCH_RECORD.
    template <class Record>
    static const RecordSchema& schema() {
        return Record::perchSchema();
    }

    /// True if a class has a PERCH_RECORD_END of its own.
    template <class Record>
    static constexpr bool isEnded = std::same_as<typename Record::Ended, Record>;

    /// The lines of PERCH_RECORD and PERCH_RECORD_END.
    template <class Record>
    static constexpr int firstLine = Record::firstPropertyLine;
    template <class Record>
    static constexpr int lastLine = Record::lastPropertyLine;

    template <class Record, int Line>
    static constexpr bool isInList =
        !isEnded<Record> || (firstLine<Record> < Line && Line < lastLine<Record>);

    template <class Record, int Line>
    static constexpr bool hasProperty = requires { Record::propertyAt(At<Line>()).name; };

    /// Returns what a line of a class declares. Requires hasProperty<Record, Line>.
    template <class Record, int Line>
    static consteval auto property() {
        return Record::propertyAt(At<Line>());
    }

    /// Returns what a subclass keeps of a property.
    template <class Record, int Line, class Subclass>
    static consteval Kept kept() {
        if constexpr (requires { Record::template keptAt<Subclass>(At<Line>()); })
            return Record::template keptAt<Subclass>(At<Line>());
        else
            return {true, true};
    }

    /// Returns the getter and the setter of the array whose elements a line of PERCH_ELEMENTS
    /// declares.
    template <class Record, int Line>
    static consteval auto arrayAt() {
        return Record::template perchArrayAt<Record>(At<Line>());
    }

    /// Returns whether a class keeps the functions that a base names in perchKeepsWalks().
    template <class Record>
    static consteval bool keepsWalks() {
        if constexpr (requires { Record::template perchKeepsWalks<Record>(); })
            return Record::template perchKeepsWalks<Record>();
        else
            return true;
    }
};

/// The lines from the first to the last of a class's properties, as offsets.
template <class Record>
using PropertyLines = std::make_integer_sequence<int, RecordAccess::lastLine<Record> -
                                                          RecordAccess::firstLine<Record>>;

template <class Record, int Line>
consteval Place placeAt() {
    if constexpr (RecordAccess::hasProperty<Record, Line>)
        return decltype(RecordAccess::property<Record, Line>())::place;
    else
        return Place::none;
}

template <class Record>
inline constexpr auto placesOf =
    []<int... Offsets>(std::integer_sequence<int, Offsets...>) consteval {
        return std::array<Place, sizeof...(Offsets)>{
            placeAt<Record, RecordAccess::firstLine<Record> + 1 + Offsets>()...};
    }(PropertyLines<Record>());

/// Returns the number of properties at the place in the bases of a class, and in its lines before
/// `line`.
template <class Record, Place place>
consteval unsigned countBefore(int line) {
    unsigned count = 0;
    if constexpr (requires { typename Record::Base; })
        count = countBefore<typename Record::Base, place>(
            RecordAccess::lastLine<typename Record::Base>);
    int each = RecordAccess::firstLine<Record>;
    for (const Place found : placesOf<Record>)
        count += ++each < line && found == place ? 1U : 0U;
    return count;
}

/// The number of a flag or of a rare text: unique in a class and its bases, and equal in all
/// shared libraries.
template <Place place, class Record, int Line>
// NOLINTNEXTLINE(google-readability-casting): a call, which clang-tidy takes for a cast
inline constexpr unsigned slotNumber = countBefore<Record, place>(Line);

/// The bit of a flag in the header of a record.
template <class Record, int Line>
inline constexpr std::uint32_t flagMask = [] {
    constexpr unsigned number = slotNumber<Place::near, Record, Line>;
    static_assert(number < 32, "Too many properties of type Near<bool>: use bool");
    return std::uint32_t{1} << number;
}();

/// Returns whether the class itself, not a base, declares a getter.
template <class Self, class Record, class T>
consteval bool isOwnProperty(T (Record::* /*getter*/)() const) {
    return std::same_as<Self, Record>;
}

/// Has the type of a label whose value this setter takes.
template <class Record, class T>
Required<T> labelOf(void (Record::*setter)(T));

/// The function that the create(json) of a class calls on a record with its defaults.
enum class JSONFilling : unsigned char {
    setValue,    ///< the virtual setValue(json)
    mapping,     ///< the virtual mapping, setValue(json, excluded), and then arrays of records
    baseMapping, ///< like `mapping`, but BaseEntity's, even if a subclass overrides it
    none,        ///< the class has no create(json)
};

namespace detail {

/// Makes a class of PERCH_RECORD_FROM_JSON concrete, for its create(json).
template <class Record>
struct MadeFromJSON final : Record {
private:
    void isMadeByCreateFromJSON() const override {}
};

template <class Record>
struct ConcreteOf {
    using Type = Record;
};
template <class Record>
    requires requires { typename Record::MadeFromJSONAlone; } && std::is_abstract_v<Record>
struct ConcreteOf<Record> {
    using Type = MadeFromJSON<Record>;
};

} // namespace detail

/// The class of the objects that the create() functions of a record make.
template <class Record>
using Concrete = typename detail::ConcreteOf<Record>::Type;

} // namespace PerchAppLibrary
