#pragma once

/// @file
/// The marks of functions, those that the shared library exports above all. C can include it.

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

/// @def QXFMT_NODISCARD
/// Marks a function whose result is all that it is called for, in C as well.
/// @def QXFMT_NOEXCEPT
/// `noexcept` in C++; C has nothing of the kind.

#if defined(__cplusplus)
#define QXFMT_NODISCARD [[nodiscard]]
#define QXFMT_NOEXCEPT noexcept
#else
#if defined(__GNUC__)
#define QXFMT_NODISCARD __attribute__((warn_unused_result))
#else
#define QXFMT_NODISCARD
#endif
#define QXFMT_NOEXCEPT
#endif
