#pragma once

#include <cstddef>
#if defined(_MSC_VER)
#include <intrin.h>
#endif

/// Begins to fetch the memory of an object that is read soon, without a wait for it. The address need not be valid.
#if defined(_MSC_VER)
inline void ap_prefetch_line(const void* address)
{
    _mm_prefetch(static_cast<const char*>(address), _MM_HINT_T0);
}
#else
inline void ap_prefetch_line(const void* address)
{
    __builtin_prefetch(address);
}
#endif

inline void ap_prefetch(const void* object, std::size_t bytes)
{
    constexpr std::size_t line = 64;
    for (std::size_t i = 0; i < bytes; i += line)
        ap_prefetch_line(static_cast<const char*>(object) + i);
}
