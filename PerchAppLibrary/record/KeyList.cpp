#include <PerchAppLibrary/record/KeyList.hpp>

#include <PerchAppLibrary/container/NoDestructor.hpp>

#include <utility>

namespace PerchAppLibrary {

KeyList::KeyList(std::initializer_list<const char*> keys)
    : KeyList(std::vector<std::string>(keys.begin(), keys.end())) {}

KeyList::KeyList(std::vector<std::string> keys)
    : m_keys(std::make_shared<const std::vector<std::string>>(std::move(keys))) {}

const std::vector<std::string>& KeyList::keys() const noexcept {
    static const NoDestructor<std::vector<std::string>> none;
    return m_keys ? *m_keys : *none;
}

} // namespace PerchAppLibrary
