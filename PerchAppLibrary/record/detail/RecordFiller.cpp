#include <PerchAppLibrary/record/detail/RecordFiller.hpp>

#include <PerchAppLibrary/json/detail/Conversion.hpp>
#include <PerchAppLibrary/json/detail/JSONElement.hpp>

namespace PerchAppLibrary {

namespace {

/// The members of a parsed document, as a RecordFiller takes them.
class DocumentSource {
public:
    using Element = simdjson::dom::element;

    explicit DocumentSource(JSON json) noexcept : m_json(std::move(json)) {}

    /// Returns the JSON itself, or nullopt for JSON::null, which belongs to no document.
    std::optional<Element> root() const noexcept { return JSONElement::of(m_json); }

    template <class Visitor>
    bool forEachMember(Element element, Visitor visit) const {
        // The text of a key lies in the document, followed by other texts and the reader's padding.
        static_assert(NameIndex::headSize <= simdjson::SIMDJSON_PADDING);
        simdjson::dom::object members;
        if (element.get(members) != simdjson::SUCCESS)
            return false;
        const auto end = members.end();
        for (auto member = members.begin(); member != end; ++member)
            visit(member.key(), member.value());
        return true;
    }

    template <class Visitor>
    void forEachElement(Element element, Visitor visit) const {
        simdjson::dom::array elements;
        if (element.get(elements) == simdjson::SUCCESS)
            for (const Element each : elements)
                visit(each);
    }

    /// Returns the number of elements, at least so many if there are millions.
    static std::optional<std::size_t> elementCount(Element element) noexcept {
        simdjson::dom::array elements;
        return element.get(elements) == simdjson::SUCCESS ? std::optional(elements.size())
                                                          : std::nullopt;
    }

    static bool isObject(Element element) noexcept { return element.is_object(); }

    template <class T>
    bool get(Element element, T& value) const noexcept {
        return element.get(value) == simdjson::SUCCESS;
    }

    template <class T>
    bool convert(Element element, T& value) const {
        return convertElement(element, value);
    }

    JSON toJSON(Element element) const noexcept {
        return JSONElement::inDocumentOf(m_json, element);
    }

private:
    JSON m_json; // a copy: the record may hold the other, and set it meanwhile
};

std::vector<std::string_view> namesOf(std::span<const Property> properties) {
    std::vector<std::string_view> names;
    names.reserve(properties.size());
    for (const Property& property : properties)
        names.push_back(property.name);
    return names;
}

/// Returns the action that puts a value in its place.
FillAction directActionOf(const Property& property) {
    return std::visit(
        [&]<class Access>(const Access& access) -> FillAction {
            if constexpr (requires { access.place; })
                switch (access.place) {
                case Place::field:
                    return {static_cast<std::uint8_t>(FillAction::fillFirstField +
                                                      property.access.index()),
                            &access};
                case Place::flag:
                    return {FillAction::fillFlag, &access};
                case Place::sparse:
                    return {FillAction::fillSparseText, &access};
                case Place::none:
                    break;
                }
            return {FillAction::defer, nullptr};
        },
        property.access);
}

EffectOfChange effectOf(const Property& property) {
    return std::visit(
        []<class Access>(const Access& access) -> EffectOfChange {
            if constexpr (requires { access.effect; })
                return access.effect;
            else
                return nullptr; // the setter of an array calls it
        },
        property.access);
}

} // namespace

FillPlan::FillPlan(std::span<const Property> properties, bool overridesSetters)
    : m_names(namesOf(properties)),
      m_setterActions(properties.size(), FillAction{FillAction::defer, nullptr}) {
    m_setterActions.push_back({FillAction::ignore, nullptr});
    m_directActions = m_setterActions;
    for (std::size_t index = 0; index < properties.size(); ++index) {
        const Property& property = properties[index];
        if (std::holds_alternative<RecordsAccess>(property.access))
            m_arrays.push_back(index);
        if (overridesSetters) // they may read other properties, so all wait for their turns
            continue;
        m_directActions[index] = directActionOf(property);
        if (const EffectOfChange call = effectOf(property); call != nullptr) {
            auto known = std::ranges::find(m_effects, call, &Effect::call);
            if (known == m_effects.end())
                known = m_effects.insert(known, Effect{call, {}});
            known->properties.push_back(index);
        }
    }
}

void readRecords(const JSON& json, bool onlyObjects, RecordSink& sink) {
    const DocumentSource source(json);
    if (const auto root = source.root())
        RecordFiller(source).readInto(sink, *root, onlyObjects);
}

void mapRecord(BaseEntity& record, const JSON& json, const Excluded& excluded) {
    const DocumentSource source(json);
    if (const auto root = source.root())
        RecordFiller(source).map(record, *root, excluded);
}

void fillRecord(BaseEntity& record, const JSON& json, const Excluded& excluded) {
    const DocumentSource source(json);
    RecordFiller(source).fill(record, source.root(), excluded);
}

void fillArray(const RecordsAccess& access, BaseEntity& record, const JSON& json) {
    const DocumentSource source(json);
    RecordFiller(source).fillArray(access, record, source.root());
}

} // namespace PerchAppLibrary
