#pragma once

/// @file
/// All of QXFMT's public interface.

#include <qxfmt/address.h>
#include <qxfmt/block_buffer.h>
#include <qxfmt/data_format.h>
#include <qxfmt/export.h>
#include <qxfmt/formats.h>
#include <qxfmt/growable_text.h>
#include <qxfmt/settings.h>
#include <qxfmt/text.h>
