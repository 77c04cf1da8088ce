// Export macro of the Quillon library: marks its exported functions, classes and data.
// Symbols are hidden by default.
#pragma once

#if defined(_WIN32)
#if defined(QUILLON_BUILDING)
#define QLN_API __declspec(dllexport)
#else
#define QLN_API __declspec(dllimport)
#endif
#else
#define QLN_API __attribute__((visibility("default")))
#endif
