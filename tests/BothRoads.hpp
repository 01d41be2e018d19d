#pragma once

#include <VelmoCloudEntity/entity/Records.hpp>

#include <PerchAppLibrary/json/Dictionary.hpp>
#include <PerchAppLibrary/json/JSON.hpp>

#include <string>

/// The two ways of reading a list wrapper: each returns the properties of its records as text, or
/// the message of the ParseError.
template <class List>
struct BothRoads {
    static std::string directly(const std::string& text) {
        return outcome([&text] { return List::parse(text); });
    }
    static std::string byDocument(const std::string& text) {
        return outcome([&text] { return List(PerchAppLibrary::JSON::parse(text)); });
    }

private:
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
