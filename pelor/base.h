#pragma once

// Everything of the base services: strings, arrays, handles, errors, files and plane geometry.

#include <pelor/base/angle.h>
#include <pelor/base/arc.h>
#include <pelor/base/array.h>
#include <pelor/base/block_buffer.h>
#include <pelor/base/bounds.h>
#include <pelor/base/char_set.h>
#include <pelor/base/charset.h>
#include <pelor/base/error.h>
#include <pelor/base/export.h>
#include <pelor/base/file_name.h>
#include <pelor/base/handle.h>
#include <pelor/base/hash.h>
#include <pelor/base/loc_char.h>
#include <pelor/base/number.h>
#include <pelor/base/number_format.h>
#include <pelor/base/number_parse.h>
#include <pelor/base/numeric.h>
#include <pelor/base/point.h>
#include <pelor/base/string.h>
#include <pelor/base/text_input.h>
#include <pelor/base/text_scanner.h>
#include <pelor/base/text_settings.h>
#include <pelor/base/tolerance.h>
#include <pelor/base/utf8.h>
