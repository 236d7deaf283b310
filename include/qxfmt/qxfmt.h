#pragma once

/// @file
/// All of QXFMT's public interface.
///
/// Short display text for network measurements, and typed address text back into values.
///
/// - `CQXDataFormat` turns values into text.
/// - address.h reads and tests addresses, masks and ports.
/// - settings.h has the display settings of the process.
/// - formats.h has the enumerations, text.h the types of text.
/// - `GrowableText` and `StatusException` belong to worded durations.
/// - chrono.h takes the time points and durations of the standard library.
/// - utf8.h has `qxfmt::Utf8`, which makes results and any other UTF-16 printable, and the way
/// back.

#include <qxfmt/address.h>
#include <qxfmt/block_buffer.h>
#include <qxfmt/chrono.h>
#include <qxfmt/data_format.h>
#include <qxfmt/export.h>
#include <qxfmt/formats.h>
#include <qxfmt/growable_text.h>
#include <qxfmt/settings.h>
#include <qxfmt/text.h>
#include <qxfmt/utf8.h>
