#pragma once

// The map model: units, datums, coordinate systems, map space, styles, columns and objects.

#include <pelor/mi/arc_body.h>
#include <pelor/mi/brush.h>
#include <pelor/mi/build.h>
#include <pelor/mi/color.h>
#include <pelor/mi/column.h>
#include <pelor/mi/coord_sys.h>
#include <pelor/mi/datum.h>
#include <pelor/mi/ellipse_body.h>
#include <pelor/mi/font.h>
#include <pelor/mi/line_body.h>
#include <pelor/mi/map_bounds.h>
#include <pelor/mi/map_sys.h>
#include <pelor/mi/object_body.h>
#include <pelor/mi/object_ref.h>
#include <pelor/mi/object_type.h>
#include <pelor/mi/objects.h>
#include <pelor/mi/pen.h>
#include <pelor/mi/pline_body.h>
#include <pelor/mi/point_body.h>
#include <pelor/mi/projection.h>
#include <pelor/mi/rect_body.h>
#include <pelor/mi/region_body.h>
#include <pelor/mi/rrect_body.h>
#include <pelor/mi/saturate.h>
#include <pelor/mi/spheroid.h>
#include <pelor/mi/style_units.h>
#include <pelor/mi/symbol.h>
#include <pelor/mi/text_body.h>
#include <pelor/mi/transform.h>
#include <pelor/mi/units.h>
#include <pelor/mi/var_obj.h>
