#pragma once

// The map model: units, datums, coordinate systems, map space, styles, columns and objects.

#include <pelor/mi/brush.h>
#include <pelor/mi/color.h>
#include <pelor/mi/column.h>
#include <pelor/mi/coord_sys.h>
#include <pelor/mi/datum.h>
#include <pelor/mi/font.h>
#include <pelor/mi/map_bounds.h>
#include <pelor/mi/map_sys.h>
#include <pelor/mi/object_type.h>
#include <pelor/mi/pen.h>
#include <pelor/mi/projection.h>
#include <pelor/mi/saturate.h>
#include <pelor/mi/spheroid.h>
#include <pelor/mi/style_units.h>
#include <pelor/mi/symbol.h>
#include <pelor/mi/transform.h>
#include <pelor/mi/units.h>
