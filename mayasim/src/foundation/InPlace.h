#pragma once
// A value kept in bytes a maya header sets aside for it (as Maya's own
// headers keep theirs in opaque members), so the header needs no include
// for the value's type, such as <memory> for a std::shared_ptr, and offers
// no more than Maya's does. The header aligns the bytes as a pointer.
#include <cstddef>
#include <new>
#include <utility>

namespace mayasim {

template <typename T, std::size_t N>
constexpr void checkRoom()
{
    static_assert(sizeof(T) <= N, "the header sets aside too few bytes");
    static_assert(alignof(T) <= alignof(void*), "the header's bytes are aligned as a pointer only");
}

template <typename T, std::size_t N, typename... Args>
T& buildInPlace(unsigned char (&bytes)[N], Args&&... args)
{
    checkRoom<T, N>();
    return *new (bytes) T(std::forward<Args>(args)...);
}

template <typename T, std::size_t N>
T& inPlace(unsigned char (&bytes)[N])
{
    checkRoom<T, N>();
    return *std::launder(reinterpret_cast<T*>(bytes));
}

template <typename T, std::size_t N>
const T& inPlace(const unsigned char (&bytes)[N])
{
    checkRoom<T, N>();
    return *std::launder(reinterpret_cast<const T*>(bytes));
}

template <typename T, std::size_t N>
void destroyInPlace(unsigned char (&bytes)[N])
{
    inPlace<T>(bytes).~T();
}

} // namespace mayasim
