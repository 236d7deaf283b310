#pragma once

/// @file
/// The mark of what the shared library exports.

/// @def QXFMT_API
/// Marks a class or a function that the shared library exports. What does not carry it is hidden.
/// Nothing is exported where QXFMT_STATIC_DEFINE is defined, as it is for the static library and
/// its users.

#if defined(QXFMT_STATIC_DEFINE)
#define QXFMT_API
#elif defined(_WIN32)
#if defined(QXFMT_BUILDING)
#define QXFMT_API __declspec(dllexport)
#else
#define QXFMT_API __declspec(dllimport)
#endif
#else
#define QXFMT_API __attribute__((visibility("default")))
#endif
