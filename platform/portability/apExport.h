#pragma once

/// Marks symbols that a shared library offers or uses; each library has a macro of its own built on these two.
#if defined(_WIN32)
#define AP_SYMBOL_EXPORT __declspec(dllexport)
#define AP_SYMBOL_IMPORT __declspec(dllimport)
#else
#define AP_SYMBOL_EXPORT __attribute__((visibility("default")))
#define AP_SYMBOL_IMPORT __attribute__((visibility("default")))
#endif

#if defined(gr_display_EXPORTS)
#define AP_EXPORT AP_SYMBOL_EXPORT
#else
#define AP_EXPORT AP_SYMBOL_IMPORT
#endif
