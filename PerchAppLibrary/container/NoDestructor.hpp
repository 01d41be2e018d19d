#pragma once

#include <cstddef>
#include <new>
#include <utility>

namespace PerchAppLibrary {

/// A constant that is never destroyed, for static objects. A client's static object may hold
/// records, and its destructor may run after those of the library's static objects.
template <class T>
class NoDestructor {
public:
    /// Constructs the constant from the arguments.
    template <class... Arguments>
    explicit NoDestructor(Arguments&&... arguments) {
        ::new (static_cast<void*>(m_storage)) T(std::forward<Arguments>(arguments)...);
    }
    NoDestructor(const NoDestructor&) = delete;
    NoDestructor& operator=(const NoDestructor&) = delete;
    ~NoDestructor() = default;

    const T& operator*() const noexcept { return *operator->(); }
    const T* operator->() const noexcept {
        return std::launder(reinterpret_cast<const T*>(m_storage));
    }

private:
    alignas(T) std::byte m_storage[sizeof(T)];
};

} // namespace PerchAppLibrary
