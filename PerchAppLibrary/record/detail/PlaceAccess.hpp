#pragma once

#include <PerchAppLibrary/record/RecordSchema.hpp>
#include <PerchAppLibrary/record/detail/PropertyKind.hpp>

#include <concepts>
#include <string>
#include <string_view>
#include <utility>

namespace PerchAppLibrary {

/// Reads and writes the values of records at their places, without accessors. Requires that no
/// subclass overrides the accessors.
struct PlaceAccess {
    static bool flag(const BaseEntity& record, unsigned slot) noexcept {
        return (record.m_flags >> slot & 1U) != 0;
    }
    static void setFlag(BaseEntity& record, unsigned slot, bool value) noexcept {
        const std::uint32_t mask = std::uint32_t{1} << slot;
        record.m_flags = value ? record.m_flags | mask : record.m_flags & ~mask;
    }
    static const std::string& text(const BaseEntity& record, unsigned slot) noexcept {
        return record.m_sparseTexts[slot];
    }
    static void setText(BaseEntity& record, unsigned slot, std::string&& text) {
        record.m_sparseTexts.set(slot, std::move(text));
    }

    /// Returns the value of a property, by its getter if it has no place.
    template <class T>
    static ReadType<T> read(const BaseEntity& record, const FieldAccess<T>& access) {
        if (access.place == Place::field)
            return record.*access.field;
        if constexpr (std::same_as<T, bool>)
            if (access.place == Place::flag)
                return flag(record, access.slot);
        if constexpr (std::same_as<T, std::string>)
            if (access.place == Place::sparse)
                return text(record, access.slot);
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

/// The place of a flag in the header of a record, for filling.
struct FlagPlace {
    using Value = bool;

    BaseEntity& record;
    unsigned slot;

    FlagPlace(BaseEntity& filled, const FieldAccess<bool>& access)
        : record(filled), slot(access.slot) {}

    bool isZero() const noexcept { return !PlaceAccess::flag(record, slot); }
    void set(bool value) noexcept { PlaceAccess::setFlag(record, slot, value); }

    template <class Source, class Element>
    bool take(Source& source, Element element) {
        bool value = false;
        if (!source.get(element, value))
            return false;
        set(value);
        return true;
    }
};

/// The place of a sparse text, for filling.
struct SparsePlace {
    using Value = std::string;

    BaseEntity& record;
    unsigned slot;

    SparsePlace(BaseEntity& filled, const FieldAccess<std::string>& access)
        : record(filled), slot(access.slot) {}

    bool isZero() const noexcept { return PlaceAccess::text(record, slot).empty(); }
    void set(std::string&& text) { PlaceAccess::setText(record, slot, std::move(text)); }

    template <class Source, class Element>
    bool take(Source& source, Element element) {
        std::string_view text;
        if (!source.get(element, text))
            return false;
        if (!text.empty())
            set(std::string(text));
        return true;
    }
};

} // namespace PerchAppLibrary
