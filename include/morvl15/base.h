// What every header of the library stands on: linkage, the calling convention, fixed-width types.
//
// All headers compile as C11 and as C++20. Conventions of the whole interface:
//   - plain C functions; nothing throws; every outcome is a return value;
//   - texts are zero-terminated bytes in the system's ANSI code page;
//   - buffers belong to the caller, who makes them large enough where no size is passed;
//   - yes and no are int32_t 1 and 0;
//   - records are packed to single bytes.
#ifndef MORVL15_BASE_H
#define MORVL15_BASE_H

#include <stddef.h>
#include <stdint.h>

// MORVL_API opens a function to callers outside the library, MORVL_DATA a data object. Define MORVL15_STATIC to use the
// static library. On Windows the library's own build exports by its module definition file, so both are empty there.
#if defined(_WIN32)
#if defined(MORVL15_BUILD) || defined(MORVL15_STATIC)
#define MORVL_API
#define MORVL_DATA extern
#else
#define MORVL_API __declspec(dllimport)
#define MORVL_DATA extern __declspec(dllimport)
#endif
#define MORVL_CALL __stdcall
#else
#define MORVL_API __attribute__((visibility("default")))
#define MORVL_DATA extern __attribute__((visibility("default")))
#define MORVL_CALL
#endif

#if defined(__cplusplus)
#define MORVL_BEGIN_C extern "C" {
#define MORVL_END_C }
#else
#define MORVL_BEGIN_C
#define MORVL_END_C
#endif

#endif
