#pragma once

#include <PerchAppLibrary/record/RecordSchema.hpp>
#include <PerchAppLibrary/record/detail/FillPlan.hpp>
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

/// Fills one record, in one pass over the members of an object, for a RecordFiller.
template <class Filler, class Source>
class FillPass {
public:
    using Element = typename Source::Element;

    struct ArrayToFill {
        const RecordsAccess* access;
        std::optional<Element> element;
        bool isOverridden;
    };

    /// The arrays of one record that are left to fill. Few classes have more than one.
    using Arrays = boost::container::small_vector<ArrayToFill, 1>;

    FillPass(Filler& filler, BaseEntity& record, std::size_t arrayDepth)
        : m_filler(filler),
          m_record(record),
          m_arrayDepth(arrayDepth),
          m_schema(record.schema()),
          m_plan(m_schema.fillPlan()),
          m_isExact(isExactly(record, m_schema.type())),
          m_isOverridden(!m_isExact || m_schema.overrides().setters ||
                         m_schema.overrides().getters),
          m_actions(m_isExact ? m_plan.directActions().data() : m_plan.setterActions().data()),
          m_states(m_schema.properties().size()) {}

    FillPass(const FillPass&) = delete;
    FillPass& operator=(const FillPass&) = delete;

    /// Not for a source that reads in order, since fillArray() fills excluded arrays as well.
    void exclude(const Excluded& excluded)
        requires(!Source::readsInOrder)
    {
        for (const std::string& key : excluded.keys())
            if (const std::size_t index = m_schema.find(key); index != RecordSchema::notFound) {
                m_states[index] = FillState::excluded;
                if (m_actions[index].ignoresState())
                    m_actions = m_plan.setterActions().data();
            }
    }

    /// Like exclude().
    void excludeArrays()
        requires(!Source::readsInOrder)
    {
        for (const std::size_t index : m_plan.arrays())
            m_states[index] = FillState::excluded;
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
        Arrays left;
        for (const std::size_t index : m_plan.arrays()) {
            if (m_states[index] == FillState::excluded || m_states[index] == FillState::filled)
                continue;
            const auto& access = *std::get_if<RecordsAccess>(&m_schema.properties()[index].access);
            const auto found = std::ranges::find(m_deferred, index, &Deferred::index);
            if (found != m_deferred.end())
                left.push_back({&access, found->element, m_isOverridden});
            else if (m_isOverridden)
                left.push_back({&access, std::nullopt, true});
            else
                access.set(m_record, nullptr, false);
        }
        return left;
    }

private:
    /// The last value under the key of a property that is not yet set.
    struct Deferred {
        std::size_t index;
        Element element;
    };

    enum class FillState : std::uint8_t { untouched, excluded, deferred, filled };

    /// Calls the effects of the class, also after an exception. A setter calls them itself.
    struct Effects {
        FillPass& pass;
        ~Effects() {
            for (const EffectOfChange call : pass.m_schema.effects())
                call(pass.m_record);
        }
    };

    void fillPlaces(Element element, KeyOrder* order) {
        const Effects effects{*this};
        if (order != nullptr && order->start(m_plan.names()))
            visitMembersInOrder(element, *order);
        else
            visitMembers(element, [&](std::string_view key) {
                const std::uint32_t index = m_plan.names().findReadable(key);
                return index == m_plan.unknownKey() ? findUnescaped(key) : index;
            });
    }

    template <class Find>
    void visitMembers(Element element, Find find) {
        m_filler.source().forEachMember(element, [&](std::string_view key, Element member) {
            const std::uint32_t index = find(key);
            handlers[m_actions[index].kind](*this, m_actions[index], index, member);
        });
    }

    /// Looks up a key that is no name as it is spelled. An escape is longer than what it stands
    /// for.
    std::uint32_t findUnescaped(std::string_view spelled) {
        const std::string_view key = m_filler.source().unescapedKey(spelled);
        return key.size() == spelled.size() ? m_plan.unknownKey()
                                            : m_plan.names().findReadable(key);
    }

    void visitMembersInOrder(Element element, KeyOrder& order) {
        const NameIndex& names = m_plan.names();
        std::size_t wrongGuesses = 0;
        std::uint32_t* guess = &order.first();
        visitMembers(element, [&](std::string_view key) {
            if (!names.isAt(*guess, key)) [[unlikely]] {
                const std::uint32_t slot = names.slotOf(key);
                if (names.indexAt(slot) == m_plan.unknownKey())
                    return findUnescaped(key); // the next key may still be the guessed one
                *guess = slot;
                ++wrongGuesses;
            }
            const std::uint32_t slot = *guess;
            guess = &order.after(slot);
            return names.indexAt(slot);
        });
        order.end(wrongGuesses);
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
        if (access.set != nullptr && m_filler.source().convert(element, value))
            (m_record.*access.set)(std::move(value));
    }
    void set(const RecordsAccess&, Element) {}
    void set(const ComputedAccess&, Element) {}

    using Handler = void (*)(FillPass& pass, const FillAction& action, std::size_t index,
                             Element element);

    static void ignore(FillPass& /*pass*/, const FillAction& /*action*/, std::size_t /*index*/,
                       Element /*element*/) {}

    static void defer(FillPass& pass, const FillAction& /*action*/, std::size_t index,
                      Element element) {
        FillState& state = pass.m_states[index];
        if (state == FillState::deferred)
            std::ranges::find(pass.m_deferred, index, &Deferred::index)->element = element;
        else if (state == FillState::untouched)
            pass.m_deferred.push_back({index, element});
        if (state != FillState::excluded)
            state = FillState::deferred;
    }

    static void fillArray(FillPass& pass, const FillAction& action, std::size_t index,
                          Element element) {
        pass.m_states[index] = FillState::filled;
        pass.m_filler.fillArray(*static_cast<const RecordsAccess*>(action.access), pass.m_record,
                                element, pass.m_arrayDepth, pass.m_isOverridden);
    }

    template <class Access, class Place>
    static void fillPlace(FillPass& pass, const FillAction& action, std::size_t index,
                          Element element) {
        Place place(pass.m_record, *static_cast<const Access*>(action.access));
        if (place.isZero()) [[likely]] {
            pass.m_states[index] = FillState::filled;
            if (place.take(pass.m_filler.source(), element)) [[likely]]
                return;
        }
        fillPlaceSlowly(pass, action, index, element, place);
    }

    /// Like fillPlace(), for a value that is not zero or an element that needs conversion. Not
    /// inlined, so fillPlace(), which runs for nearly every member, needs few registers.
    template <class Place>
    [[gnu::noinline]] static void fillPlaceSlowly(FillPass& pass, const FillAction& action,
                                                  std::size_t index, Element element,
                                                  Place& place) {
        // An earlier value may have to stay, since a later member with this key may not convert.
        if (pass.m_states[index] != FillState::filled) {
            defer(pass, action, index, element);
            return;
        }
        // If it does not convert, the value is zero, as before the first member with this key.
        typename Place::Value value{};
        if (!pass.m_filler.source().convert(element, value))
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
        std::array<Handler, FillAction::fillFirstField + sizeof...(I)> by{};
        by[FillAction::ignore] = &ignore;
        by[FillAction::defer] = &defer;
        by[FillAction::fillNearFlag] = &fillPlace<FieldAccess<bool>, NumberedPlace<bool>>;
        by[FillAction::fillRareText] =
            &fillPlace<FieldAccess<std::string>, NumberedPlace<std::string>>;
        by[FillAction::fillArray] = Source::readsInOrder ? &fillArray : &defer;
        ((by[FillAction::fillFirstField + I] = fieldHandler<I>()), ...);
        return by;
    }(std::make_index_sequence<std::variant_size_v<decltype(Property::access)>>());

    /// Filling a record of up to this many properties does not allocate for the pass.
    static constexpr std::size_t inlineCount = 64;

    Filler& m_filler;
    BaseEntity& m_record;
    std::size_t m_arrayDepth;
    const RecordSchema& m_schema;
    const FillPlan& m_plan;
    bool m_isExact;
    bool m_isOverridden;
    const FillAction* m_actions;
    boost::container::small_vector<FillState, inlineCount> m_states;  // one for each property
    boost::container::small_vector<Deferred, inlineCount> m_deferred; // at most one a property
};

} // namespace PerchAppLibrary
