#pragma once

#include <VelmoCloudEntity/entity/RecordList.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/json/JSON.hpp>
#ifdef PERCH_DIRECT_READING
#include <PerchAppLibrary/record/detail/RecordFiller.hpp>
#include <PerchAppLibrary/record/detail/TokenSource.hpp>
#endif

#include <optional>
#include <string>
#include <utility>

/// The ways of reading a list wrapper: each returns the properties of its records as text, or the
/// message of the ParseError.
template <class List>
struct BothPaths {
    using JSON = PerchAppLibrary::JSON;
    using Elements = VelmoCloudEntity::Elements;
    template <class Item, Elements which>
    using Range = VelmoCloudEntity::RecordRange<List, Item, which>;

    static std::string directly(const std::string& text, const JSON::Limits& limits = {}) {
        return outcome([&] { return List::parse(text, limits); });
    }
    /// Like directly(), but in windows of few bytes, and without a document: returns nullopt
    /// instead.
    static std::optional<std::string> inWindows([[maybe_unused]] const std::string& text) {
#ifdef PERCH_DIRECT_READING
        try {
            return outcome([&text] { return recordsInWindows(text, List()); });
        } catch (const PerchAppLibrary::TokenSource::Fault&) {
        }
#endif
        return std::nullopt;
    }
    static std::string byDocument(const std::string& text, const JSON::Limits& limits = {}) {
        return outcome([&] { return List(JSON::parse(text, limits)); });
    }
    /// Like byDocument(), but the records are of a subclass, so each property is set in its turn.
    static std::string bySetters(const std::string& text) {
        return outcome([&text] { return recordsBySetters(text, List()); });
    }

private:
    template <class Item, Elements which>
    static auto recordsBySetters(const std::string& text, const Range<Item, which>&) {
        struct Overriding : Item {
            void setId(std::int64_t id) override { Item::setId(id); }
        };
        return VelmoCloudEntity::makeRecords<Overriding>(JSON::parse(text), which);
    }

#ifdef PERCH_DIRECT_READING
    template <class Item, Elements which>
    static auto recordsInWindows(std::string text, const Range<Item, which>&) {
        const std::size_t size = text.size();
        text.append(simdjson::SIMDJSON_PADDING, ' ');
        PerchAppLibrary::TokenSource source(std::string_view(text).substr(0, size), {}, 32);
        const auto root = source.root();
        PerchAppLibrary::detail::RecordsSink<Item> sink;
        PerchAppLibrary::RecordFiller(source).readInto(sink, root, which == Elements::objects);
        source.finish(root);
        return std::move(sink.records);
    }
#endif

    template <class Read>
    static std::string outcome(Read read) {
        std::string outcome;
        try {
            for (const auto& record : read())
                outcome += PerchAppLibrary::toText(record->properties()) + "\n";
        } catch (const PerchAppLibrary::JSON::ParseError& error) {
            outcome = error.what();
        }
        return outcome;
    }
};
