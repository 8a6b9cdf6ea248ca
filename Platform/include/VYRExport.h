#pragma once

// Symbols marked VYR_EXPORT form the library's boundary; everything else stays hidden.
#if defined(VYR_BUILDING_LIBRARY)
#define VYR_EXPORT __attribute__((visibility("default")))
#else
#define VYR_EXPORT
#endif

// For the few small operations on the hottest paths that the compiler would
// otherwise leave as calls.
#if defined(__GNUC__)
#define VYR_ALWAYS_INLINE inline __attribute__((always_inline))
#else
#define VYR_ALWAYS_INLINE inline
#endif
