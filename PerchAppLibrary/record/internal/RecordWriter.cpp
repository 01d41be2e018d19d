#include <PerchAppLibrary/record/internal/RecordWriter.hpp>

#include <PerchAppLibrary/fatalError.hpp>
#include <PerchAppLibrary/json/detail/Memory.hpp>
#include <PerchAppLibrary/record/detail/PlaceAccess.hpp>

#include <algorithm>
#include <concepts>
#include <type_traits>
#include <utility>
#include <variant>

namespace PerchAppLibrary {
namespace {

using RecordPointers = std::vector<const BaseEntity*>;

/// Adds members to a Dictionary. Requires that it has none of their names.
struct DictionarySink {
    Dictionary& dictionary;

    template <class T>
    void add(const Property& property, const T& value) {
        PropertyKind<T>::write(dictionary, property.name, value);
    }

    void add(const Property& property, const RecordPointers& records, bool isSingle) {
        Value& value = dictionary[property.name];
        if (isSingle) {
            write(value, records.front());
            return;
        }
        ValueArray& values = value.emplace_array();
        for (const BaseEntity* const record : records)
            write(values.emplace_back(nullptr), record);
    }

private:
    static void write(Value& value, const BaseEntity* record) {
        if (record != nullptr)
            assign(value, record->properties(value.storage()));
    }
};

/// Appends members to JSON text.
struct TextSink {
    std::string& text;
    std::size_t skipped = 1; // characters of the next textKey to skip: the first member's comma

    template <class T>
    void add(const Property& property, const T& value) {
        addKey(property);
        write(value);
    }

    void add(const Property& property, const RecordPointers& records, bool isSingle) {
        addKey(property);
        isSingle ? write(records.front()) : write(records);
    }

private:
    void addKey(const Property& property) {
        text.append(property.textKey.data() + skipped, property.textKey.size() - skipped);
        skipped = 0;
    }

    template <class T>
    void write(const T& value) {
        PropertyKind<T>::write(text, value);
    }

    void write(const BaseEntity* record) {
        if (record == nullptr) {
            text += "null";
            return;
        }
        text += '{';
        record->schema().writer().write(*record, text);
        text += '}';
    }

    void write(const RecordPointers& records) {
        char before = '[';
        for (const BaseEntity* const record : records) {
            text += before;
            before = ',';
            write(record);
        }
        text += records.empty() ? "[]" : "]";
    }
};

} // namespace

RecordWriter::RecordWriter(const RecordSchema& schema, const Excluded& excluded)
    : m_schema(schema) {
    std::vector<bool> isExcluded(schema.properties().size());
    for (const std::string& key : excluded.keys()) {
        const std::size_t index = schema.find(key);
        if (index == RecordSchema::notFound || !schema.properties()[index].isStored() ||
            isExcluded[index])
            fatalError(std::string(schema.className()) + " has no stored property \"" + key +
                       "\" to exclude");
        isExcluded[index] = true;
    }
    for (std::size_t index = 0; index < isExcluded.size(); ++index)
        if (const Property& property = schema.properties()[index];
            property.isStored() && !isExcluded[index])
            m_members.push_back(&property);
}

Dictionary RecordWriter::dictionary(const BaseEntity& record, const Storage& storage) const {
    Dictionary dictionary(storage);
    dictionary.reserve(m_members.size() + 1);
    writeTo(record, DictionarySink{dictionary});
    return dictionary;
}

void reserveForList(std::string& text, std::size_t written, std::size_t count) {
    constexpr std::size_t most = 9;
    if (written == count) {
        if (text.capacity() / 2 > text.size())
            text.shrink_to_fit();
        return;
    }
    if (written != std::max<std::size_t>(count / 64, 1) && written != count / 8)
        return;
    const std::size_t perRecord = text.size() / written + 1;
    const std::size_t whole = perRecord * count + perRecord * count / 32;
    text.reserve(std::min(whole, text.size() * most));
    memory::preferLargePages(text.data(), text.capacity());
}

void RecordWriter::write(const BaseEntity& record, std::string& text) const {
    writeTo(record, TextSink{text});
}

template <class Sink>
void RecordWriter::writeTo(const BaseEntity& record, Sink sink) const {
    const bool readsPlaces = isExactly(record, m_schema.type()) && !m_schema.overrides().getters;
    const auto add = [&]<class Access>(const Property& property, const Access& access) {
        if constexpr (requires { typename Access::Value; })
            sink.add(property,
                     readsPlaces ? PlaceAccess::read(record, access) : (record.*access.get)());
        else if constexpr (std::same_as<Access, RecordsAccess>)
            sink.add(property, access.get(record), access.isSingle);
    };
    // Most properties are of three types. They are added in line, which std::visit never does if
    // there are over eleven alternatives.
    const auto addIf = [&]<class T>(const Property& property, std::type_identity<T>) {
        const auto* const access = std::get_if<FieldAccess<T>>(&property.access);
        if (access != nullptr)
            add(property, *access);
        return access != nullptr;
    };
    for (const Property* const property : m_members)
        if (!addIf(*property, std::type_identity<std::string>()) &&
            !addIf(*property, std::type_identity<bool>()) &&
            !addIf(*property, std::type_identity<std::int64_t>()))
            std::visit([&](const auto& access) { add(*property, access); }, property->access);
}

} // namespace PerchAppLibrary
