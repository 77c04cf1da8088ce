// Export macro of the plinthcore framework library: marks the classes and functions that
// other modules may call. Symbols are hidden by default.
#pragma once

#if defined(_WIN32)
#if defined(PLINTHCORE_BUILDING)
#define PLINTH_API __declspec(dllexport)
#else
#define PLINTH_API __declspec(dllimport)
#endif
#else
#define PLINTH_API __attribute__((visibility("default")))
#endif
