#pragma once

/// @file
/// The mark of everything that the shared library exports. Whatever does not carry it is hidden.

#if defined(_WIN32)
#if defined(QXFMT_BUILDING)
#define QXFMT_API __declspec(dllexport)
#else
#define QXFMT_API __declspec(dllimport)
#endif
#else
#define QXFMT_API __attribute__((visibility("default")))
#endif
