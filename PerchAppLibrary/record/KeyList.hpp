#pragma once

#include <PerchAppLibrary/needsCxx20.hpp>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace PerchAppLibrary {

/// An immutable list of property names. Copies share the names, so pass it by value.
class KeyList {
public:
    KeyList() = default;
    KeyList(std::initializer_list<const char*> keys);
    explicit KeyList(std::vector<std::string> keys);

    /// Returns the names, which live as long as any copy of the list.
    const std::vector<std::string>& keys() const noexcept;

private:
    std::shared_ptr<const std::vector<std::string>> m_keys;
};

/// The keys of properties that a mapping does not set.
struct Excluded : KeyList {
    using KeyList::KeyList;
};

/// The keys that the mapping of a specialised user record receives.
struct Included : KeyList {
    using KeyList::KeyList;
};

} // namespace PerchAppLibrary
