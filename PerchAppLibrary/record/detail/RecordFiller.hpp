#pragma once

#include <PerchAppLibrary/record/RecordSchema.hpp>
#include <PerchAppLibrary/record/detail/FillPass.hpp>

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace PerchAppLibrary {

/// Fills a record, and the arrays of records below it, in one pass over the members of each object.
///
/// Stores a value in its place at once if no other code can read the record meanwhile. Defers the
/// other values and sets their properties in declaration order, each to the last value under its
/// key. Sets arrays of records after all others, unless no other code can notice.
///
/// A Source reads a document. It has a type Element and these members:
///
///     bool forEachMember(Element, visit); // visit(key, element); false if not an object
///     std::string_view unescapedKey(std::string_view key); // if forEachMember() does not unescape
///     void forEachElement(Element, visit);
///     bool isArray(Element);
///     bool isObject(Element);
///     std::size_t sizeHint(Element); // about how many elements the array has
///     bool get(Element, T&);         // a value that needs no conversion; may return false
///     bool convert(Element, T&);     // like JSON::as; false leaves the T unchanged
///     JSON toJSON(Element);
///     static constexpr bool readsInOrder; // prefers that a visitor reads the value at once
/// NameIndex::headSize bytes must be readable from the begin of a key.
template <class Source>
class RecordFiller {
public:
    using Element = typename Source::Element;

    explicit RecordFiller(Source& source) : m_source(source) {}

    /// Runs the mapping, as BaseEntity::setValue(json, excluded) does.
    void map(BaseEntity& record, Element element, const Excluded& excluded) {
        Pass pass(*this, record, 0);
        pass.excludeArrays();
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
        if (element &&
            (access.isSingle ? m_source.isObject(*element) : m_source.isArray(*element))) {
            Reader reader(*this, *element, depth, false, access.isSingle);
            access.set(record, &reader, isOverridden);
        } else {
            access.set(record, nullptr, isOverridden);
        }
    }

    /// Reads one record for each element of an array, or for each object in it, into the sink.
    void readInto(detail::RecordSink& sink, Element element, bool onlyObjects) {
        if (m_source.isArray(element))
            Reader(*this, element, 0, onlyObjects).readInto(sink);
    }

    Source& source() noexcept { return m_source; }

private:
    using Pass = FillPass<RecordFiller, Source>;
    using Arrays = typename Pass::Arrays;

    /// Runs the mapping and returns the arrays that are left to fill. Not inlined, so the large
    /// frame of a pass is not on the stack while these arrays are filled.
    [[gnu::noinline]] Arrays runPass(BaseEntity& record, std::optional<Element> element,
                                     const Excluded& excluded) {
        Pass pass(*this, record, 0);
        pass.exclude(excluded);
        if (element)
            pass.run(*element);
        return pass.arrays();
    }

    /// Returns the order of keys in the objects at this depth. An array may be filled in the middle
    /// of the pass over the object that has it, so no two depths share an order.
    KeyOrder& orderAt(std::size_t depth) {
        while (m_orders.size() <= depth)
            m_orders.push_back(std::make_unique<KeyOrder>());
        return *m_orders[depth];
    }

    /// Like runPass(), but for one of many objects.
    [[gnu::noinline]] Arrays runPass(BaseEntity& record, Element element, std::size_t depth) {
        Pass pass(*this, record, depth + 1);
        pass.run(element, &orderAt(depth));
        return pass.arrays();
    }

    void fillArrays(BaseEntity& record, const Arrays& arrays, std::size_t depth) {
        for (const typename Pass::ArrayToFill& each : arrays)
            fillArray(*each.access, record, each.element, depth, each.isOverridden);
    }

    /// Reads the elements of an array into a sink.
    class Reader final : public detail::RecordReader {
    public:
        Reader(RecordFiller& filler, Element array, std::size_t depth, bool onlyObjects,
               bool isSingle = false)
            : m_filler(filler),
              m_array(array),
              m_depth(depth),
              m_onlyObjects(onlyObjects),
              m_isSingle(isSingle) {}

        void readInto(detail::RecordSink& sink) override {
            if (m_isSingle) {
                add(sink, m_array);
                return;
            }
            Source& source = m_filler.m_source;
            sink.reserve(source.sizeHint(m_array));
            source.forEachElement(m_array, [&](Element element) {
                if (!m_onlyObjects || source.isObject(element))
                    add(sink, element);
            });
            sink.shrinkToFit();
        }

    private:
        void add(detail::RecordSink& sink, Element element) {
            if (BaseEntity* const record = sink.add())
                fill(*record, element);
            else
                sink.addFrom(m_filler.m_source.toJSON(element));
        }

        void fill(BaseEntity& record, Element element) {
            m_filler.fillArrays(record, m_filler.runPass(record, element, m_depth), m_depth + 1);
        }

        RecordFiller& m_filler;
        Element m_array;
        std::size_t m_depth;
        bool m_onlyObjects;
        bool m_isSingle; // the element is the record, not an array of records
    };

    Source& m_source;
    std::vector<std::unique_ptr<KeyOrder>> m_orders; // by depth
};

} // namespace PerchAppLibrary
