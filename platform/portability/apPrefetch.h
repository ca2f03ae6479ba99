#pragma once

#include <cstddef>
#include <cstdint>
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
    constexpr std::uintptr_t line = 64;
    const auto* const start = static_cast<const char*>(object);
    // From the line that the object begins in, which it seldom begins with, to the one that it ends in.
    const std::size_t before = reinterpret_cast<std::uintptr_t>(object) % line;
    for (std::size_t i = 0; i < before + bytes; i += line)
        ap_prefetch_line(start - before + i);
}
