#pragma once

#include <PerchAppLibrary/record/RecordSchema.hpp>
#include <PerchAppLibrary/record/detail/FillPlan.hpp>
#include <PerchAppLibrary/record/detail/KeyOrder.hpp>
#include <PerchAppLibrary/record/detail/PlaceAccess.hpp>

#include <boost/container/small_vector.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace PerchAppLibrary {

/// Fills a record, and the arrays of records below it, in one pass over the members of each object.
///
/// Stores a value in its place at once if no other code can read the record meanwhile. Defers the
/// other values and sets their properties in declaration order, each to the last value under its
/// key. Sets arrays of records after all others.
///
/// A Source reads a document. It has a type Element and these functions:
///
///     bool forEachMember(Element, visit) const; // visit(key, element); false if not an object
///     bool get(Element, T&) const;              // an integer, Boolean or text; no conversion
///     bool convert(Element, T&) const;          // like JSON::as; false leaves the T unchanged
///     std::optional<std::size_t> elementCount(Element) const; // nullopt if not an array
///     void forEachElement(Element, visit) const;
///     bool isObject(Element) const;
///     JSON toJSON(Element) const;
/// NameIndex::headSize bytes must be readable from the begin of a key.
template <class Source>
class RecordFiller {
public:
    using Element = typename Source::Element;

    explicit RecordFiller(const Source& source) : m_source(source) {}

    /// Runs the mapping, as BaseEntity::setValue(json, excluded) does.
    void map(BaseEntity& record, Element element, const Excluded& excluded) {
        Pass pass(*this, record);
        pass.exclude(excluded);
        pass.run(element);
    }

    /// Runs the mapping and fills the arrays of records, as BaseEntity::fillByBase() does. Treats a
    /// missing element like one that is not an object.
    void fill(BaseEntity& record, std::optional<Element> element, const Excluded& excluded) {
        fillArrays(record, runPass(record, element, excluded), 0);
    }

    /// Sets an array of records, through its virtual setter, to one record for each element, or to
    /// none if `element` is missing or not an array.
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
    /// The last value under the key of a property that is not yet set.
    struct Deferred {
        std::size_t index;
        Element element;
    };

    struct ArrayToFill {
        const RecordsAccess* access;
        std::optional<Element> element;
        bool isOverridden;
    };

    /// The arrays of one record that are left to fill. Few classes have more than one.
    using Arrays = boost::container::small_vector<ArrayToFill, 1>;

    /// Runs the mapping and returns the arrays that are left to fill. Not inlined, so the large
    /// frame of a pass is not on the stack while nested records are filled.
    [[gnu::noinline]] Arrays runPass(BaseEntity& record, std::optional<Element> element,
                                     const Excluded& excluded) {
        Pass pass(*this, record);
        pass.exclude(excluded);
        if (element)
            pass.run(*element);
        return pass.arrays();
    }

    /// Like runPass(), but for one of many objects. Keeps one order of keys for even depths and one
    /// for odd, since groups and their members alternate.
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

    /// Fills one record, in one pass over the members of an object.
    class Pass {
    public:
        Pass(RecordFiller& filler, BaseEntity& record)
            : m_filler(filler),
              m_record(record),
              m_schema(record.schema()),
              m_plan(m_schema.fillPlan()),
              m_isExact(isExactly(record, m_schema.type())),
              m_actions(m_isExact ? m_plan.directActions().data() : m_plan.setterActions().data()),
              m_states(m_inlineStates.data()) {
            if (const std::size_t count = m_schema.properties().size(); count > inlineCount) {
                m_heapStates.resize(count);
                m_states = m_heapStates.data();
            }
        }

        Pass(const Pass&) = delete;
        Pass& operator=(const Pass&) = delete;

        void exclude(const Excluded& excluded) {
            for (const std::string& key : excluded.keys())
                if (const std::size_t index = m_schema.find(key); index != RecordSchema::notFound) {
                    m_states[index] = FillState::excluded;
                    if (m_actions[index].access != nullptr) // a direct action ignores the state
                        m_actions = m_plan.setterActions().data();
                }
        }

        /// Runs the mapping. For one of many objects, takes the order of their keys.
        void run(Element element, KeyOrder* order = nullptr) {
            fillPlaces(element, order);
            if (!m_deferred.empty())
                setDeferred();
        }

        /// Returns the arrays of records that are left to fill. Empties those without an element at
        /// once, unless an override could observe the order.
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

        /// Calls the effects of the properties that were filled, even after an exception.
        struct Effects {
            Pass& pass;
            ~Effects() { pass.callEffects(); }
        };

        void fillPlaces(Element element, KeyOrder* order) {
            const Effects effects{*this};
            if (order == nullptr)
                visitMembers(element, [&names = m_plan.names()](std::string_view key) {
                    return names.findReadable(key);
                });
            else
                visitMembersInOrder(element, *order);
        }

        template <class Find>
        void visitMembers(Element element, Find find) {
            m_filler.m_source.forEachMember(element, [&](std::string_view key, Element member) {
                const std::uint32_t index = find(key);
                handlers[m_actions[index].kind](*this, m_actions[index], index, member);
            });
        }

        void visitMembersInOrder(Element element, KeyOrder& order) {
            order.startRecord(m_plan.names());
            std::uint32_t* guess = &order.first();
            visitMembers(element, [&](std::string_view key) {
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

        /// Filling a record of up to this many properties does not allocate for the pass.
        static constexpr std::size_t inlineCount = 64;

        RecordFiller& m_filler;
        BaseEntity& m_record;
        const RecordSchema& m_schema;
        const FillPlan& m_plan;
        bool m_isExact;
        const FillAction* m_actions;
        std::array<FillState, inlineCount> m_inlineStates{};
        std::vector<FillState> m_heapStates;
        FillState* m_states; // one for each property, in one of the two above
        boost::container::small_vector<Deferred, inlineCount> m_deferred; // at most one a property
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
        fillPlaceSlowly(pass, action, index, element, place);
    }

    /// Like fillPlace(), for a value that is not zero or an element that needs conversion. Not
    /// inlined, so fillPlace(), which runs for nearly every member, needs few registers.
    template <class Place>
    [[gnu::noinline]] static void fillPlaceSlowly(Pass& pass, const FillAction& action,
                                                  std::size_t index, Element element,
                                                  Place& place) {
        // An earlier value may have to stay, since a later member with this key may not convert.
        if (pass.m_states[index] != FillState::filled) {
            defer(pass, action, index, element);
            return;
        }
        // If it does not convert, the value is zero, as before the first member with this key.
        typename Place::Value value{};
        if (!pass.m_filler.m_source.convert(element, value))
            value = {};
        place.set(std::move(value));
    }

    template <std::size_t Index>
    static consteval Handler fieldHandler() {
        using Access = std::variant_alternative_t<Index, decltype(Property::access)>;
        if constexpr (requires { typename Access::Value; })
            return &fillPlace<Access, FieldPlace<typename Access::Value>>;
        else
            return &ignore;
    }

    /// The handlers, indexed by FillAction::Kind.
    static constexpr auto handlers = []<std::size_t... I>(std::index_sequence<I...>) consteval {
        return std::array<Handler, FillAction::fillFirstField + sizeof...(I)>{
            &ignore, &defer, &fillPlace<FieldAccess<bool>, FlagPlace>,
            &fillPlace<FieldAccess<std::string>, SparsePlace>, fieldHandler<I>()...};
    }(std::make_index_sequence<std::variant_size_v<decltype(Property::access)>>());

    const Source& m_source;
    std::array<KeyOrder, 2> m_orders;
};

} // namespace PerchAppLibrary
