#pragma once

#include <PerchAppLibrary/json/DictionaryFwd.hpp>
#include <PerchAppLibrary/json/JSON.hpp>
#include <PerchAppLibrary/record/KeyList.hpp>
#include <PerchAppLibrary/record/RareTexts.hpp>
#include <PerchAppLibrary/record/Record.hpp>
#include <PerchAppLibrary/record/UndefinedKeyError.hpp>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

namespace PerchAppLibrary {

class RecordSchema; // completed by PerchAppLibrary/record/RecordSchema.hpp

/// The base class of all records.
///
/// A record's properties are filled from JSON and read by name, always as if through the virtual
/// accessors, so overrides take effect. Create records with the `create` of their class and share
/// them by std::shared_ptr; they are not copied. A plain record may also live on the stack. A
/// record owns its texts and arrays and shares its nested records.
///
/// Any number of threads may read a record while none changes it.
class BaseEntity {
protected:
    // For the lines of properties and labels, in any namespace.
    template <class T>
    using Near = PerchAppLibrary::Near<T>;
    template <class T>
    using Rare = PerchAppLibrary::Rare<T>;
    template <class T>
    using Required = PerchAppLibrary::Required<T>;
    using ByNameOnly = PerchAppLibrary::ByNameOnly;

private:
    // Holds the properties of type Near<bool>. Beside the virtual table pointer, so both share a
    // cache line.
    std::uint32_t m_flags = 0;
    RareTexts m_rareTexts; // holds the properties of type Rare<std::string>

public:
    BaseEntity() = default;
    BaseEntity(const BaseEntity&) = delete;
    BaseEntity& operator=(const BaseEntity&) = delete;
    virtual ~BaseEntity() = default;

    using Self = BaseEntity;

private:
    friend struct RecordAccess;
    static const RecordSchema& perchSchema();
    static constexpr int firstPropertyLine = __LINE__;
    static void propertyAt(At<__LINE__>);

public:
    template <class Derived>
    friend std::type_identity<BaseEntity> nearestRecord(const BaseEntity*,
                                                        std::type_identity<Derived>) {
        return {};
    }

    /// Global identifier.
    PERCH_PROPERTY(Rare<std::string>, Guid);
    /// Identifier of the record.
    PERCH_PROPERTY(std::int64_t, Id);
    /// Whether the record is out of use.
    PERCH_PROPERTY(Near<bool>, IsDisabled);
    /// Number of the error that the service reports with the record.
    PERCH_PROPERTY(std::int64_t, ErrorCode);
    /// Whether the service reports an error with the record.
    PERCH_PROPERTY(Near<bool>, Exception);
    /// Code of that error.
    PERCH_PROPERTY(Rare<std::string>, ExceptionCode);
    /// Message of that error.
    PERCH_PROPERTY(Rare<std::string>, ExceptionMessage);
    /// Time of the record, as sent.
    PERCH_PROPERTY(Rare<std::string>, TimeStamp);
    /// Date of the record, as sent.
    PERCH_PROPERTY(Rare<std::string>, DateStamp);
    /// Token of the request that the record belongs to.
    PERCH_PROPERTY(Rare<std::string>, Token);

    PERCH_RECORD_END;

    /// Fills the record from a JSON object. First calls the virtual setValue(json, excluded) for
    /// all properties but the class's arrays of records. Then sets each of these arrays, in
    /// declaration order, through its virtual setter: to one record for each element of the array
    /// under its key, or to none if there is no array. A value that is not an object empties the
    /// arrays and changes nothing else.
    virtual void setValue(const JSON& json);

    /// The mapping from keys to properties. Sets each stored property whose name is a key of the
    /// JSON object, through its virtual setter, if the value converts to its type (the table of
    /// JSON::as). Excluded properties, constants, arrays of records and all others keep their
    /// values. Properties are set in declaration order, the base's first, each once: only the last
    /// value of a repeated key counts, even if it does not convert. Unknown keys are ignored. One
    /// pass over the members.
    virtual void setValue(const JSON& json, Excluded excluded);

    /// Deleted, since a text would become a JSON string, which fills nothing. Use
    /// JSON::parse(text).
    template <JSONScalar T>
    void setValue(const T& value) = delete;

    /// Resets Exception, ErrorCode, ExceptionCode and ExceptionMessage to their defaults.
    virtual void clearException();

    /// Returns the stored or computed property of this name, read through its virtual accessor.
    /// Throws UndefinedKeyError if there is none. An accessor that ends the process, such as
    /// FontItem::LocalPreviewFile(), does so here too.
    Value value(std::string_view name) const;

    /// Returns all stored properties in declaration order, the base's first. Nested records are
    /// dictionaries of their own properties().
    Dictionary properties() const;

    /// Like properties(), in the storage of a larger dictionary.
    Dictionary properties(const Storage& storage) const;

    /// Returns the schema of the most derived class that declares properties.
    virtual const RecordSchema& schema() const;

    /// The function that create(json) calls. A class may redeclare it.
    static constexpr JSONFilling jsonFilling = JSONFilling::setValue;

protected:
    /// Like BaseEntity::setValue(json), but also excludes the properties in `further`. For
    /// overrides of setValue(json).
    void fill(const JSON& json, const Excluded& further = {});

    /// @cond what the macros use
    /// Like fill(), but runs BaseEntity's mapping even if a subclass overrides it.
    void fillByBase(const JSON& json, const Excluded& further = {});

    /// Creates a record with defaults.
    template <class R>
    static std::shared_ptr<R> make() {
        return std::make_shared<Concrete<R>>();
    }

    /// Creates a record and fills it from JSON.
    template <class R, JSONFilling filling>
    static std::shared_ptr<R> makeFilled(const JSON& json) {
        std::shared_ptr<R> record = make<R>();
        BaseEntity& base = *record;
        if constexpr (filling == JSONFilling::baseMapping)
            base.fillByBase(json);
        else if constexpr (filling == JSONFilling::mapping)
            base.fill(json);
        else
            base.setValue(json);
        return record;
    }

    /// Creates a record with defaults and applies labelled arguments.
    template <class R, class Labels>
    static std::shared_ptr<R> makeLabelled(Labels labels) {
        std::shared_ptr<R> record = make<R>();
        std::move(labels).applyTo(*record);
        return record;
    }

    /// Return the value of a property from the field, flag or rare text that stores it.
    template <class T>
    static const T& stored(const T& field) noexcept {
        return field; // NOLINT(bugprone-return-const-ref-from-parameter): a field of the record
    }
    template <class Record, int Line>
    const std::string& stored(Slot<Place::rare, Record, Line> /*slot*/) const noexcept {
        return m_rareTexts[slotNumber<Place::rare, Record, Line>];
    }
    template <class Record, int Line>
    bool stored(Slot<Place::near, Record, Line> /*slot*/) const noexcept {
        return (m_flags & flagMask<Record, Line>) != 0;
    }
    /// Set the value of a property in the field, flag or rare text that stores it.
    template <class T>
    static void store(T& field, std::type_identity_t<T>&& value) {
        field = std::move(value);
    }
    template <class Record, int Line>
    void store(Slot<Place::rare, Record, Line> /*slot*/, std::string&& value) {
        m_rareTexts.set(slotNumber<Place::rare, Record, Line>, std::move(value));
    }
    template <class Record, int Line>
    void store(Slot<Place::near, Record, Line> /*slot*/, bool value) noexcept {
        m_flags = value ? m_flags | flagMask<Record, Line> : m_flags & ~flagMask<Record, Line>;
    }

    /// The defaults for a class without PERCH_ON_CHANGE.
    static constexpr EffectOfChange perchEffect = nullptr;
    static void perchChanged(std::string_view /*name*/) noexcept {}
    /// @endcond

    /// Returns all stored properties but the excluded ones. The `Dict` of a class starts from this.
    /// Ends the process (fatalError) if an excluded name is not the name of a stored property.
    Dictionary reflect(const Excluded& excluded) const;

    /// Like reflect(excluded), in the storage of a larger dictionary.
    Dictionary reflect(const Excluded& excluded, const Storage& storage) const;

    /// @cond what Dict() of FontItem uses
    /// Returns storage for a dictionary of the record and of this many members of its class.
    DictionaryArena arenaForDict(std::size_t members = 0) const;
    /// @endcond

    /// Returns the stored and computed properties with these names, in the order of `names`, each
    /// once, for a record's `Dict` of certain keys. Throws UndefinedKeyError for an unknown name.
    Dictionary select(const std::vector<std::string>& names) const;

private:
    friend struct PlaceAccess; // fills and writes without accessors
};

/// @cond what walks over trees use
/// Returns whether the record is of exactly this class, not of a subclass. If so, no subclass
/// overrides an accessor.
inline bool isExactly(const BaseEntity& record, const std::type_info& type) noexcept {
    return typeid(record) == type;
}

/// Like isExactly(record, typeid(Record)).
template <class Record>
bool isExactly(const Record& record) noexcept {
    return isExactly(record, typeid(Record));
}
/// @endcond

} // namespace PerchAppLibrary
