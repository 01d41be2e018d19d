#include <PerchAppLibrary/record/RecordSchema.hpp>

#include <PerchAppLibrary/fatalError.hpp>

#include <boost/unordered/unordered_flat_map.hpp>

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace PerchAppLibrary {

namespace {

/// Enough to tell names apart: the length and three letters. Equal hashes cost a comparison more.
struct NameHash {
    using is_avalanching = void;

    std::size_t operator()(std::string_view name) const noexcept {
        if (name.empty())
            return 0;
        const auto letter = [name](std::size_t at) {
            return std::uint64_t{static_cast<unsigned char>(name[at])};
        };
        const std::uint64_t letters =
            letter(0) | letter(name.size() / 2) << 8U | letter(name.size() - 1) << 16U | name.size() << 24U;
        constexpr std::uint64_t goldenRatio =
            0x9E3779B97F4A7C15U; // 2^64 divided by it: spreads close numbers
        const std::uint64_t product = letters * goldenRatio;
        return product ^ product >> 32U;
    }
};

} // namespace

struct RecordSchema::NameIndex {
    boost::unordered_flat_map<std::string_view, std::size_t, NameHash> indices;
};

RecordSchema::RecordSchema(std::string_view className, const std::type_info& type, const RecordSchema* base,
                           std::vector<Property> own)
    : m_className(className), m_type(&type) {
    if (base != nullptr)
        std::ranges::copy_if(base->m_properties, std::back_inserter(m_properties),
                             [&own](const Property& inherited) {
                                 return std::ranges::find(own, inherited.name, &Property::name) == own.end();
                             });
    m_firstOwn = m_properties.size();
    std::ranges::copy(own, std::back_inserter(m_properties));
    auto byName = std::make_unique<NameIndex>();
    for (const Property& property : m_properties) {
        byName->indices.emplace(property.name, m_names.size());
        m_names.push_back(property.name);
    }
    m_byName = std::move(byName);
}

RecordSchema::~RecordSchema() = default;

std::size_t RecordSchema::find(std::string_view name) const noexcept {
    const auto found = m_byName->indices.find(name);
    return found == m_byName->indices.end() ? notFound : found->second;
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
    const Storage& storage;

    template <class T>
    Value operator()(const FieldAccess<T>& access) const {
        if constexpr (requires(const T& value) { toValue(value, storage); })
            return toValue((record.*access.get)(), storage);
        else
            return toValue((record.*access.get)());
    }

    Value operator()(const RecordsAccess& access) const {
        ValueArray values(storage);
        for (const BaseEntity* const item : access.get(record))
            values.push_back(item == nullptr ? Value(nullptr) : toValue(item->properties(storage)));
        return values;
    }

    Value operator()(const ComputedAccess& access) const { return access.get(record); }
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

Value Property::value(const BaseEntity& record, const Storage& storage) const {
    return std::visit(ValueReader{record, storage}, access);
}

} // namespace PerchAppLibrary
