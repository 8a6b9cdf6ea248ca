#pragma once

// Symbols marked VYR_EXPORT form the library's boundary; everything else stays hidden.
#if defined(VYR_BUILDING_LIBRARY)
#define VYR_EXPORT __attribute__((visibility("default")))
#else
#define VYR_EXPORT
#endif
