#pragma once

// PELOR_EXPORT marks what the shared library offers; everything else stays hidden.
#if defined(PELOR_STATIC)
#define PELOR_EXPORT
#elif defined(_WIN32)
#if defined(PELOR_BUILDING_SHARED)
#define PELOR_EXPORT __declspec(dllexport)
#else
#define PELOR_EXPORT __declspec(dllimport)
#endif
#else
#define PELOR_EXPORT __attribute__((visibility("default")))
#endif
