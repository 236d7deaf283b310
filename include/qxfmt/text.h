#pragma once

/// @file
/// The two text types of the interface.

/// A NUL-terminated sequence of 16-bit code units (UTF-16), whatever the width of the platform's
/// own wide character. Every count of characters or of buffer room counts such units.
using WideText = const char16_t*;

/// The text that a formatter returns; never null, and never the caller's to free or to write to.
///
/// It points to one of three things:
/// - a block of the formatter's arena: valid until `Reset` of that formatter or its destruction;
/// - a static literal (a failure text such as "[MEM_ERR]", or the empty text): valid as long as the
///   library is loaded;
/// - the caller's own buffer, in the one overload of `FormatIpAddress` that takes one.
///
/// Results never overwrite each other: any number of results of one formatter are valid together.
using ResultText = const char16_t*;
