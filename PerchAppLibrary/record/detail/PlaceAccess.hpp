#pragma once

#include <PerchAppLibrary/record/RecordSchema.hpp>
#include <PerchAppLibrary/record/detail/PropertyKind.hpp>

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace PerchAppLibrary {

/// Reads and writes the values of records at their places, without accessors. Requires that no
/// subclass overrides the accessors.
struct PlaceAccess {
    /// Returns the flag or the rare text of this number.
    template <class T>
    static ReadType<T> read(const BaseEntity& record, unsigned slot) noexcept {
        if constexpr (std::same_as<T, bool>)
            return (record.m_flags >> slot & 1U) != 0;
        else
            return record.m_rareTexts[slot];
    }
    static void write(BaseEntity& record, unsigned slot, bool value) noexcept {
        const std::uint32_t mask = std::uint32_t{1} << slot;
        record.m_flags = value ? record.m_flags | mask : record.m_flags & ~mask;
    }
    static void write(BaseEntity& record, unsigned slot, std::string&& text) {
        record.m_rareTexts.set(slot, std::move(text));
    }

    /// Returns the value of a property, by its getter if it has no place.
    template <class T>
    static ReadType<T> read(const BaseEntity& record, const FieldAccess<T>& access) {
        if (access.place == Place::field)
            return record.*access.field;
        if constexpr (std::same_as<T, bool> || std::same_as<T, std::string>)
            if (access.place != Place::none)
                return read<T>(record, access.slot);
        return (record.*access.get)();
    }
};

/// The place of a value in a field, for filling.
///
/// Each kind of place has isZero(), which returns whether the value is the zero of its type, set(),
/// and take(), which stores a value that needs no conversion in a zero place, or returns false.
template <class T>
struct FieldPlace {
    using Value = T;

    T& field;

    FieldPlace(BaseEntity& record, const FieldAccess<T>& access) : field(record.*access.field) {}

    bool isZero() const noexcept { return PropertyKind<T>::isZero(field); }
    void set(T&& value) { field = std::move(value); }

    template <class Source, class Element>
    bool take(Source& source, Element element) {
        if constexpr (std::same_as<T, std::string>) {
            std::string_view text;
            if (!source.get(element, text))
                return false;
            if (text.size() <= field.capacity())
                field.append(text);
            else
                field = std::string(text); // append() would allocate more than it needs
            return true;
        } else {
            return source.get(element, field);
        }
    }
};

/// The place of a flag or of a rare text, which has a number, for filling.
template <class T>
struct NumberedPlace {
    using Value = T;

    BaseEntity& record;
    unsigned slot;

    NumberedPlace(BaseEntity& filled, const FieldAccess<T>& access)
        : record(filled), slot(access.slot) {}

    bool isZero() const noexcept {
        return PropertyKind<T>::isZero(PlaceAccess::read<T>(record, slot));
    }
    void set(T&& value) { PlaceAccess::write(record, slot, std::move(value)); }

    template <class Source, class Element>
    bool take(Source& source, Element element) {
        std::conditional_t<std::same_as<T, bool>, bool, std::string_view> value{};
        if (!source.get(element, value))
            return false;
        if constexpr (std::same_as<T, bool>)
            set(std::move(value));
        else if (!value.empty())
            set(std::string(value));
        return true;
    }
};

} // namespace PerchAppLibrary
