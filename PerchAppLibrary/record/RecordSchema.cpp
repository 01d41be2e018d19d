#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <PerchAppLibrary/fatalError.hpp>
#include <PerchAppLibrary/platform/Text.hpp>
#include <PerchAppLibrary/record/FillPlan.hpp>

#include <algorithm>
#include <concepts>
#include <iterator>

namespace PerchAppLibrary {

namespace {

/// The properties of the base, but those that the class declares again, and then its own.
std::vector<Property> inheritedAndOwn(const RecordSchema* base, std::vector<Property> own) {
    std::vector<Property> properties;
    if (base != nullptr)
        std::ranges::copy_if(base->properties(), std::back_inserter(properties),
                             [&own](const Property& inherited) {
                                 return std::ranges::find(own, inherited.name, &Property::name) == own.end();
                             });
    std::ranges::move(own, std::back_inserter(properties));
    return properties;
}

} // namespace

RecordSchema::RecordSchema(std::string_view className, const std::type_info& type, const RecordSchema* base,
                           std::vector<Property> own, bool overridesSetters)
    : m_className(className),
      m_type(&type),
      m_ownCount(own.size()),
      m_properties(inheritedAndOwn(base, std::move(own))),
      m_fillPlan(std::make_unique<const FillPlan>(m_properties, overridesSetters)) {}

RecordSchema::~RecordSchema() = default;

std::size_t RecordSchema::find(std::string_view name) const noexcept {
    const std::size_t index = m_fillPlan->names().find(name);
    return index < m_properties.size() ? index : notFound;
}

std::vector<const Property*> RecordSchema::storedWithout(const Excluded& excluded) const {
    std::vector<const Property*> left;
    left.reserve(m_properties.size());
    for (const Property& property : m_properties)
        left.push_back(property.isStored() ? &property : nullptr);
    for (const std::string& key : excluded.keys()) {
        const std::size_t index = find(key);
        if (index == notFound || left[index] == nullptr)
            fatalError(std::string(m_className) + " has no stored property \"" + key + "\" to exclude");
        left[index] = nullptr;
    }
    std::erase(left, nullptr);
    return left;
}

namespace {

struct ValueReader {
    const BaseEntity& record;
    Value& place;

    template <class T>
    void operator()(const FieldAccess<T>& access) const {
        assign(place, (record.*access.get)());
    }

    void operator()(const RecordsAccess& access) const {
        ValueArray& values = place.emplace_array();
        for (const BaseEntity* const item : access.get(record)) {
            Value& itemPlace = values.emplace_back(nullptr);
            if (item != nullptr)
                assign(itemPlace, item->properties(itemPlace.storage()));
        }
    }

    void operator()(const ComputedAccess& access) const { place = access.get(record); }
};

/// Makes the values of the frequent kinds where they will lie.
struct Adder {
    Dictionary& dictionary;
    const BaseEntity& record;
    const Property& property;

    template <class T>
    void operator()(const FieldAccess<T>& access) const {
        if constexpr (std::integral<T>)
            dictionary.emplace(property.name, (record.*access.get)());
        else
            add((record.*access.get)());
    }

    template <class Access>
    void operator()(const Access&) const {
        property.read(record, dictionary[property.name]);
    }

private:
    void add(const std::string& text) const {
        if (text::isWellFormed(text))
            dictionary.emplace(property.name, std::string_view(text));
        else
            assign(dictionary[property.name], text);
    }

    template <class T>
    void add(const T& value) const {
        assign(dictionary[property.name], value);
    }
};

} // namespace

namespace {

struct KindName {
    std::string operator()(const FieldAccess<std::int64_t>&) const { return "Int"; }
    std::string operator()(const FieldAccess<bool>&) const { return "Bool"; }
    std::string operator()(const FieldAccess<float>&) const { return "Float"; }
    std::string operator()(const FieldAccess<std::string>&) const { return "String"; }
    std::string operator()(const FieldAccess<std::optional<std::string>>&) const { return "optional String"; }
    std::string operator()(const FieldAccess<std::vector<std::int64_t>>&) const { return "array of Int"; }
    std::string operator()(const FieldAccess<std::vector<std::string>>&) const { return "array of String"; }
    std::string operator()(const FieldAccess<JSON>&) const { return "any"; }
    std::string operator()(const RecordsAccess& access) const {
        return "array of " + std::string(access.className);
    }
    std::string operator()(const ComputedAccess&) const { return "any"; }
};

} // namespace

std::string Property::kind() const { return std::visit(KindName(), access); }

Value Property::value(const BaseEntity& record) const {
    Value value;
    read(record, value);
    return value;
}

void Property::read(const BaseEntity& record, Value& place) const {
    std::visit(ValueReader{record, place}, access);
}

void Property::addTo(Dictionary& dictionary, const BaseEntity& record) const {
    std::visit(Adder{dictionary, record, *this}, access);
}

} // namespace PerchAppLibrary
