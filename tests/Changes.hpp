#pragma once

#include <PerchAppLibrary/BaseEntity.hpp>
#include <PerchAppLibrary/json/Dictionary.hpp>

/// The stored properties in which a record differs from another of its class, mostly a fresh one.
inline PerchAppLibrary::Dictionary changes(const PerchAppLibrary::BaseEntity& record,
                                           const PerchAppLibrary::BaseEntity& fresh) {
    const PerchAppLibrary::Dictionary before = fresh.properties();
    PerchAppLibrary::Dictionary changed;
    for (const auto& [name, value] : record.properties())
        if (value != before.at(name))
            changed[name] = value;
    return changed;
}
