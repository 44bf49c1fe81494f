#pragma once

// All kinds of map objects, with their handles.

#include <pelor/mi/arc_body.h>
#include <pelor/mi/ellipse_body.h>
#include <pelor/mi/line_body.h>
#include <pelor/mi/object_body.h>
#include <pelor/mi/object_ref.h>
#include <pelor/mi/pline_body.h>
#include <pelor/mi/point_body.h>
#include <pelor/mi/rect_body.h>
#include <pelor/mi/region_body.h>
#include <pelor/mi/rrect_body.h>
#include <pelor/mi/text_body.h>
