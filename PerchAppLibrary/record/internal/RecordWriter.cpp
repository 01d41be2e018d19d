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

/// Like std::visit, which calls by pointer, and inlines nothing, if there are over 11 alternatives.
template <class Visitor, class... Access>
void visitInline(Visitor visit, const std::variant<Access...>& access) {
    static_assert(sizeof...(Access) <= 16);
    const auto at = [&]<std::size_t I>(std::integral_constant<std::size_t, I>) {
        if constexpr (I < sizeof...(Access))
            visit(*std::get_if<I>(&access));
    };
#define VISIT_CASE(I) \
    case I:           \
        return at(std::integral_constant<std::size_t, I>())
    switch (access.index()) {
        VISIT_CASE(0);
        VISIT_CASE(1);
        VISIT_CASE(2);
        VISIT_CASE(3);
        VISIT_CASE(4);
        VISIT_CASE(5);
        VISIT_CASE(6);
        VISIT_CASE(7);
        VISIT_CASE(8);
        VISIT_CASE(9);
        VISIT_CASE(10);
        VISIT_CASE(11);
        VISIT_CASE(12);
        VISIT_CASE(13);
        VISIT_CASE(14);
        VISIT_CASE(15);
    }
#undef VISIT_CASE
}

/// Adds members to a Dictionary. Requires that it has none of their names.
struct DictionarySink {
    Dictionary& dictionary;

    template <class T>
    void add(const Property& property, const T& value) {
        PropertyKind<T>::write(dictionary, property.name, value);
    }

    void add(const Property& property, const RecordPointers& records) {
        ValueArray& values = dictionary[property.name].emplace_array();
        for (const BaseEntity* const record : records)
            write(values.emplace_back(nullptr), record);
    }

    void addSingle(const Property& property, const BaseEntity* record) {
        write(dictionary[property.name], record);
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
        text.append(property.textKey, skipped);
        skipped = 0;
        write(value);
    }

    void addSingle(const Property& property, const BaseEntity* record) {
        text.append(property.textKey, skipped);
        skipped = 0;
        write(record);
    }

private:
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

/// Most properties are of these types.
template <class Access>
constexpr bool isUsual =
    std::same_as<Access, FieldAccess<std::int64_t>> || std::same_as<Access, FieldAccess<bool>> ||
    std::same_as<Access, FieldAccess<std::string>>;

/// Not inlined, so that what is usual is.
template <class Sink, class Access>
[[gnu::noinline]] void addUnusual(Sink& sink, const Property& property, const BaseEntity& record,
                                  const Access& access, bool readsPlaces) {
    sink.add(property, readsPlaces ? PlaceAccess::read(record, access) : (record.*access.get)());
}

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
    for (const Property* const property : m_members)
        visitInline(
            [&]<class Access>(const Access& access) {
                if constexpr (requires { typename Access::Value; } && !isUsual<Access>)
                    addUnusual(sink, *property, record, access, readsPlaces);
                else if constexpr (requires { typename Access::Value; })
                    sink.add(*property, readsPlaces ? PlaceAccess::read(record, access)
                                                    : (record.*access.get)());
                else if constexpr (std::same_as<Access, RecordsAccess>)
                    access.isSingle ? sink.addSingle(*property, access.get(record).front())
                                    : sink.add(*property, access.get(record));
            },
            property->access);
}

} // namespace PerchAppLibrary
