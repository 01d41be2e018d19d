#pragma once

#include <PerchAppLibrary/DictionaryFwd.hpp>
#include <PerchAppLibrary/JSON.hpp>
#include <PerchAppLibrary/UndefinedKeyError.hpp>
#include <PerchAppLibrary/record/KeyList.hpp>
#include <PerchAppLibrary/record/RareTexts.hpp>
#include <PerchAppLibrary/record/Record.hpp>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <typeinfo>

namespace PerchAppLibrary {

class MemberOrder;
struct Property;

/// The base of every record.
///
/// A record is filled from JSON by the names of its properties and read by them. All of this goes through the
/// virtual accessors, so a subclass that overrides one is honoured. Records are shared objects: made by the
/// `create` of their class, held by std::shared_ptr, not copied; a record owns its texts and arrays, and
/// shares its nested records. A record is not synchronised: whoever uses it on several threads keeps them apart.
class BaseEntity {
public:
    BaseEntity();
    BaseEntity(const BaseEntity&) = delete;
    BaseEntity& operator=(const BaseEntity&) = delete;
    virtual ~BaseEntity();

    PERCH_PROPERTIES(BaseEntity);

    /// Global identifier.
    PERCH_PROPERTY_RARE_TEXT(Guid);
    /// Identifier of the record.
    PERCH_PROPERTY(std::int64_t, Id);
    /// The record is out of use.
    PERCH_PROPERTY_IN_FIELD(bool, IsDisabled, setIsDisabled);
    /// Number of an error that the service reports with the record.
    PERCH_PROPERTY(std::int64_t, ErrorCode);
    /// The service reports an error with the record.
    PERCH_PROPERTY_IN_FIELD(bool, Exception, setException);
    /// Code of that error.
    PERCH_PROPERTY_RARE_TEXT(ExceptionCode);
    /// Message of that error.
    PERCH_PROPERTY_RARE_TEXT(ExceptionMessage);
    /// Time of the record, as sent.
    PERCH_PROPERTY_RARE_TEXT(TimeStamp);
    /// Date of the record, as sent.
    PERCH_PROPERTY_RARE_TEXT(DateStamp);
    /// Token of the request that the record belongs to.
    PERCH_PROPERTY_RARE_TEXT(Token);

    PERCH_RECORD_END;

    /// Fills the record from a JSON object: setValue(json, {}), unless the class fills some properties
    /// itself. A value that is no object changes nothing that the mapping fills.
    virtual void setValue(const JSON& json);

    /// The mapping. Each stored property whose name is a key of the JSON object and is not excluded is set
    /// through its virtual setter to the value under that key, where that converts to the property's type
    /// (the table of record/Mapping.hpp); every other property keeps its value. Properties are set in their
    /// order, the base's first, each once: of a repeated key the last one holds, even where its value does
    /// not convert. Keys without a property are ignored. One pass over the members.
    virtual void setValue(const JSON& json, Excluded excluded);

    /// Takes back the error that the service reported: Exception, ErrorCode, ExceptionCode and
    /// ExceptionMessage get their defaults.
    virtual void clearException();

    /// The value of the stored or computed property with this name, read through its virtual accessor.
    /// Throws UndefinedKeyError when the record has none of this name; ends the process where the accessor does.
    Value value(std::string_view name) const;

    /// All stored properties in their order, the base's first; nested records as dictionaries of the same kind.
    Dictionary properties() const;

    /// The same in the storage of a larger dictionary.
    Dictionary properties(const Storage& storage) const;

    /// The record's class as the library sees it: the most derived one that declares properties.
    virtual const RecordSchema& schema() const;

protected:
    /// What the public constructor of a record that is made from JSON alone takes, so that its `create` alone can call it.
    struct FromJSON {
        explicit FromJSON() = default;
    };

    /// What `create(json)` does once the record has its defaults. A class whose contract bypasses its
    /// subclasses hides this function with its own.
    void initFromJSON(const JSON& json) { setValue(json); }

    /// What this class's own setValue(json, {key}) does, and then the value under the key, if there is one: in one pass over
    /// the members. The key is that of the property with this index in the schema. For a record of which no subclass can
    /// have overridden that mapping. The order is kept from one record to the next.
    std::optional<JSON> mapAround(std::size_t index, const JSON& json, MemberOrder& order);

    /// The stored properties without the excluded ones: what a record's reflective `Dict` begins with. Ends
    /// the process (fatalError) when an excluded name is not that of a stored property.
    Dictionary reflect(const Excluded& excluded) const;

    /// The same in the storage of a larger dictionary.
    Dictionary reflect(const Excluded& excluded, const Storage& storage) const;

    /// The same of a list that was made once: of properties of the record's schema.
    Dictionary reflect(std::span<const Property* const> properties, const Storage& storage) const;

    /// Storage for a dictionary of the record's properties and for those of this many members of its class.
    CommonStorage storageForDict(std::size_t members = 0) const;

    /// The stored and computed properties with these names, in their order, each once: what a record's `Dict` of certain
    /// keys holds. Throws UndefinedKeyError for a name that the record has not.
    Dictionary select(std::span<const std::string> names) const;

private:
    RareTexts m_rareTexts;
    bool m_IsDisabled = false; // at the end, where the fields of a subclass that are small follow closely
    bool m_Exception = false;
};

/// Returns whether the record's class is the given one, not a subclass of it. No accessor is overridden
/// then, so fields can be read and written in place of accessors.
inline bool isExactly(const BaseEntity& record, const std::type_info& type) noexcept {
    return typeid(record) == type;
}

/// Like isExactly(record, typeid(Record)).
template <class Record>
bool isExactly(const Record& record) noexcept {
    return isExactly(record, typeid(Record));
}

} // namespace PerchAppLibrary
