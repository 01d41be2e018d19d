#pragma once

#include <PerchAppLibrary/record/RecordSchema.hpp>
#include <PerchAppLibrary/record/detail/KeyOrder.hpp>
#include <PerchAppLibrary/record/detail/NameIndex.hpp>
#include <PerchAppLibrary/record/detail/PlaceAccess.hpp>

#include <boost/container/small_vector.hpp>

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace PerchAppLibrary {

/// What is done with the value under a property's key.
struct FillAction {
    /// The value is ignored, deferred until its turn in the order of the properties, or put in its
    /// place at once. Fields have a kind for each type of Property::access, in their order.
    enum Kind : std::uint8_t { ignore, defer, fillFlag, fillSparseText, fillFirstField };

    std::uint8_t kind;
    const void* access; // FieldAccess<T> of a value that is put in its place, or null
};

/// How the properties of a class are filled. Immutable.
class FillPlan {
public:
    /// Requires that the properties outlive the plan.
    FillPlan(std::span<const Property> properties, bool overridesSetters);

    /// A function to call after the values of some properties have changed.
    struct Effect {
        EffectOfChange call;
        std::vector<std::size_t> properties;
    };

    const NameIndex& names() const noexcept { return m_names; }

    /// The actions for each property and, last, for an unknown key: of a record that only the
    /// filling sees while it runs, and of one whose setters are overridden.
    std::span<const FillAction> directActions() const noexcept { return m_directActions; }
    std::span<const FillAction> setterActions() const noexcept { return m_setterActions; }

    std::span<const Effect> effects() const noexcept { return m_effects; }

    /// Indexes of the arrays of records.
    std::span<const std::size_t> arrays() const noexcept { return m_arrays; }

private:
    NameIndex m_names;
    std::vector<FillAction> m_setterActions;
    std::vector<FillAction> m_directActions;
    std::vector<Effect> m_effects;
    std::vector<std::size_t> m_arrays;
};

/// Fills a record, and the arrays of records below it, in one pass over the members of each object.
///
/// A value goes to its place at once where only the filling sees the record meanwhile. The other
/// properties wait and are set in their order, each to the last value under its key. Arrays of
/// records come after all others.
///
/// Source finds members and elements, and reads their values. It has a type Element and:
///     bool forEachMember(Element, visit) const: visit(key, element) for each member, false if the
///         element is no object; NameIndex::headSize bytes can be read from the begin of a key
///     bool get(Element, T&) const, for integers, Booleans and texts: no conversion
///     bool convert(Element, T&) const: by the table of JSON::as; false leaves the value as it is
///     std::optional<std::size_t> elementCount(Element) const: nullopt if it is no array
///     void forEachElement(Element, visit) const, isObject(Element), toJSON(Element)
template <class Source>
class RecordFiller {
public:
    using Element = typename Source::Element;

    explicit RecordFiller(const Source& source) : m_source(source) {}

    /// Runs the mapping alone: BaseEntity::setValue(json, excluded).
    void map(BaseEntity& record, Element element, const Excluded& excluded) {
        Pass pass(*this, record);
        pass.exclude(excluded);
        pass.run(element);
    }

    /// Runs the mapping and fills the arrays of records: BaseEntity::fillByBase(). Without an
    /// element, as for one that is no object.
    void fill(BaseEntity& record, std::optional<Element> element, const Excluded& excluded) {
        fillArrays(record, runPass(record, element, excluded), 0);
    }

    /// Sets an array of records, through its virtual setter, to one record for each element; to
    /// none if there is no element, or one that is no array.
    void fillArray(const RecordsAccess& access, BaseEntity& record, std::optional<Element> element,
                   std::size_t depth = 0, bool isOverridden = true) {
        if (element && m_source.elementCount(*element)) {
            Reader reader(*this, *element, depth, false);
            access.fill(record, &reader, isOverridden);
        } else {
            access.fill(record, nullptr, isOverridden);
        }
    }

    /// Reads one record for each element of an array, or for each object in it, into the sink.
    void readInto(RecordSink& sink, Element element, bool onlyObjects) {
        if (m_source.elementCount(element))
            Reader(*this, element, 0, onlyObjects).readInto(sink);
    }

private:
    struct Deferred {
        std::size_t index;
        Element element;
    };

    struct ArrayToFill {
        const RecordsAccess* access;
        std::optional<Element> element;
        bool isOverridden;
    };

    /// The arrays of records of one record. Few classes have more than one.
    using Arrays = boost::container::small_vector<ArrayToFill, 1>;

    /// Runs the mapping and returns the arrays that are left to fill. Apart from fillArrays(), so
    /// that nested records do not keep the large frame of a pass on the stack.
    [[gnu::noinline]] Arrays runPass(BaseEntity& record, std::optional<Element> element,
                                     const Excluded& excluded) {
        Pass pass(*this, record);
        pass.exclude(excluded);
        if (element)
            pass.run(*element);
        return pass.arrays();
    }

    /// Like runPass(), for one of many objects. The objects of groups and of their members take
    /// turns from depth to depth.
    [[gnu::noinline]] Arrays runPass(BaseEntity& record, Element element, std::size_t depth) {
        Pass pass(*this, record);
        pass.run(element, &m_orders[depth % m_orders.size()]);
        return pass.arrays();
    }

    void fillArrays(BaseEntity& record, const Arrays& arrays, std::size_t depth) {
        for (const ArrayToFill& each : arrays)
            fillArray(*each.access, record, each.element, depth, each.isOverridden);
    }

    /// Reads the elements of an array into a sink.
    class Reader final : public RecordReader {
    public:
        Reader(RecordFiller& filler, Element array, std::size_t depth, bool onlyObjects)
            : m_filler(filler), m_array(array), m_depth(depth), m_onlyObjects(onlyObjects) {}

        void readInto(RecordSink& sink) override {
            const Source& source = m_filler.m_source;
            sink.reserve(source.elementCount(m_array).value_or(0));
            source.forEachElement(m_array, [&](Element element) {
                if (m_onlyObjects && !source.isObject(element))
                    return;
                if (BaseEntity* const record = sink.add())
                    fill(*record, element);
                else
                    sink.addFrom(source.toJSON(element));
            });
        }

    private:
        void fill(BaseEntity& record, Element element) {
            m_filler.fillArrays(record, m_filler.runPass(record, element, m_depth), m_depth + 1);
        }

        RecordFiller& m_filler;
        Element m_array;
        std::size_t m_depth;
        bool m_onlyObjects;
    };

    enum class FillState : std::uint8_t { untouched, excluded, deferred, filled };

    /// The filling of one record.
    class Pass {
    public:
        Pass(RecordFiller& filler, BaseEntity& record)
            : m_filler(filler),
              m_record(record),
              m_schema(record.schema()),
              m_plan(m_schema.fillPlan()),
              m_isExact(isExactly(record, m_schema.type())),
              m_actions(m_isExact ? m_plan.directActions().data() : m_plan.setterActions().data()),
              m_states(m_usualStates.data()) {
            if (const std::size_t count = m_schema.properties().size(); count > usualCount) {
                m_manyStates.resize(count);
                m_states = m_manyStates.data();
            }
        }

        Pass(const Pass&) = delete;
        Pass& operator=(const Pass&) = delete;

        void exclude(const Excluded& excluded) {
            for (const std::string& key : excluded.keys())
                if (const std::size_t index = m_schema.find(key); index != RecordSchema::notFound) {
                    m_states[index] = FillState::excluded;
                    if (m_actions[index].access != nullptr) // which does not ask for the state
                        m_actions = m_plan.setterActions().data();
                }
        }

        /// Runs the mapping. With an order, for one of many objects.
        void run(Element element, KeyOrder* order = nullptr) {
            fillPlaces(element, order);
            if (!m_deferred.empty())
                setDeferred();
        }

        /// Returns the arrays of records that are left to fill. Empties those without an element,
        /// unless a subclass can see when that happens.
        Arrays arrays() const {
            const bool isOverridden =
                !m_isExact || m_schema.overrides().setters || m_schema.overrides().getters;
            Arrays left;
            for (const std::size_t index : m_plan.arrays()) {
                if (m_states[index] == FillState::excluded)
                    continue;
                const auto& access =
                    *std::get_if<RecordsAccess>(&m_schema.properties()[index].access);
                const auto found = std::ranges::find(m_deferred, index, &Deferred::index);
                if (found != m_deferred.end())
                    left.push_back({&access, found->element, isOverridden});
                else if (isOverridden)
                    left.push_back({&access, std::nullopt, true});
                else
                    access.fill(m_record, nullptr, false);
            }
            return left;
        }

    private:
        friend class RecordFiller;

        /// Calls the effects of what has been filled, also when an exception interrupts the
        /// filling.
        struct Effects {
            Pass& pass;
            ~Effects() { pass.callEffects(); }
        };

        void fillPlaces(Element element, KeyOrder* order) {
            const Effects effects{*this};
            if (order == nullptr)
                takeMembers(element, [&names = m_plan.names()](std::string_view key) {
                    return names.findReadable(key);
                });
            else
                takeMembersInOrder(element, *order);
        }

        template <class Find>
        void takeMembers(Element element, Find find) {
            m_filler.m_source.forEachMember(element, [&](std::string_view key, Element member) {
                const std::uint32_t index = find(key);
                handlers[m_actions[index].kind](*this, m_actions[index], index, member);
            });
        }

        void takeMembersInOrder(Element element, KeyOrder& order) {
            order.startRecord(m_plan.names());
            std::uint32_t* guess = &order.first();
            takeMembers(element, [&](std::string_view key) {
                const std::uint32_t index = m_plan.names().findReadable(key, *guess);
                guess = &order.after(*guess);
                return index;
            });
        }

        void callEffects() {
            const auto isFilled = [this](std::size_t index) {
                return m_states[index] == FillState::filled;
            };
            for (const FillPlan::Effect& effect : m_plan.effects())
                if (std::ranges::any_of(effect.properties, isFilled))
                    effect.call(m_record);
        }

        void setDeferred() {
            std::ranges::sort(m_deferred, {}, &Deferred::index);
            for (const Deferred& each : m_deferred)
                std::visit([&](const auto& access) { set(access, each.element); },
                           m_schema.properties()[each.index].access);
        }

        template <class T>
        void set(const FieldAccess<T>& access, Element element) {
            T value{};
            if (access.set != nullptr && m_filler.m_source.convert(element, value))
                (m_record.*access.set)(std::move(value));
        }
        void set(const RecordsAccess&, Element) {}
        void set(const ComputedAccess&, Element) {}

        /// Records of up to this many properties are filled without an allocation.
        static constexpr std::size_t usualCount = 64;

        RecordFiller& m_filler;
        BaseEntity& m_record;
        const RecordSchema& m_schema;
        const FillPlan& m_plan;
        bool m_isExact;
        const FillAction* m_actions;
        std::array<FillState, usualCount> m_usualStates{};
        std::vector<FillState> m_manyStates;
        FillState* m_states;                                             // of all properties
        boost::container::small_vector<Deferred, usualCount> m_deferred; // one for a property
    };

    using Handler = void (*)(Pass& pass, const FillAction& action, std::size_t index,
                             Element element);

    static void ignore(Pass& /*pass*/, const FillAction& /*action*/, std::size_t /*index*/,
                       Element /*element*/) {}

    static void defer(Pass& pass, const FillAction& /*action*/, std::size_t index,
                      Element element) {
        FillState& state = pass.m_states[index];
        if (state == FillState::deferred)
            std::ranges::find(pass.m_deferred, index, &Deferred::index)->element = element;
        else if (state == FillState::untouched)
            pass.m_deferred.push_back({index, element});
        if (state != FillState::excluded)
            state = FillState::deferred;
    }

    template <class Access, class Place>
    static void fillPlace(Pass& pass, const FillAction& action, std::size_t index,
                          Element element) {
        Place place(pass.m_record, *static_cast<const Access*>(action.access));
        if (place.isZero()) [[likely]] {
            pass.m_states[index] = FillState::filled;
            if (place.take(pass.m_filler.m_source, element)) [[likely]]
                return;
        }
        fillOtherPlace(pass, action, index, element, place);
    }

    /// For a value that is not zero, or an element that needs conversion. Apart from fillPlace(),
    /// which runs for each member, so that it needs few registers.
    template <class Place>
    [[gnu::noinline]] static void fillOtherPlace(Pass& pass, const FillAction& action,
                                                 std::size_t index, Element element, Place& place) {
        // An earlier value may have to stay: a later member with this key may not convert.
        if (pass.m_states[index] != FillState::filled) {
            defer(pass, action, index, element);
            return;
        }
        // Without a conversion, the value is zero, as it was before the first member with this key.
        typename Place::Value value{};
        if (!pass.m_filler.m_source.convert(element, value))
            value = {};
        place.set(std::move(value));
    }

    template <std::size_t Index>
    static constexpr Handler fieldHandler() {
        using Access = std::variant_alternative_t<Index, decltype(Property::access)>;
        if constexpr (requires { typename Access::Value; })
            return &fillPlace<Access, FieldPlace<typename Access::Value>>;
        else
            return &ignore;
    }

    /// By FillAction::Kind.
    static constexpr auto handlers = []<std::size_t... Index>(std::index_sequence<Index...>) {
        return std::array<Handler, FillAction::fillFirstField + sizeof...(Index)>{
            &ignore, &defer, &fillPlace<FieldAccess<bool>, FlagPlace>,
            &fillPlace<FieldAccess<std::string>, SparsePlace>, fieldHandler<Index>()...};
    }(std::make_index_sequence<std::variant_size_v<decltype(Property::access)>>());

    const Source& m_source;
    std::array<KeyOrder, 2> m_orders;
};

/// What RecordFiller does, from a parsed document: RecordFiller::map(), fill() and fillArray().
void mapRecord(BaseEntity& record, const JSON& json, const Excluded& excluded);
void fillRecord(BaseEntity& record, const JSON& json, const Excluded& excluded);
void fillArray(const RecordsAccess& access, BaseEntity& record, const JSON& json);

} // namespace PerchAppLibrary
