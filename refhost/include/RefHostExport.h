// Export macro of the reference host library.
#pragma once

#if defined(_WIN32)
#if defined(REFHOST_BUILDING)
#define REFHOST_API __declspec(dllexport)
#else
#define REFHOST_API __declspec(dllimport)
#endif
#else
#define REFHOST_API __attribute__((visibility("default")))
#endif
