/// @file
/// Marks public names: `VEK_API` on every class and function that programs outside may call. A static build needs
/// nothing; `VEK_SHARED` selects the shared library, and `VEK_BUILDING` is defined while the library itself is
/// compiled.
#pragma once

#if !defined(VEK_SHARED)
#define VEK_API
#elif defined(_WIN32) && defined(VEK_BUILDING)
#define VEK_API __declspec(dllexport)
#elif defined(_WIN32)
#define VEK_API __declspec(dllimport)
#else
#define VEK_API __attribute__((visibility("default")))
#endif
