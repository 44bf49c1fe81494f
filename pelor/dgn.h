#pragma once

// Everything for design files.

#include <pelor/dgn/coordinates.h>
#include <pelor/dgn/coords_range.h>
#include <pelor/dgn/dump.h>
#include <pelor/dgn/elements.h>
#include <pelor/dgn/encoding.h>
#include <pelor/dgn/errors.h>
#include <pelor/dgn/file.h>
#include <pelor/dgn/header.h>
#include <pelor/dgn/parameters.h>
#include <pelor/dgn/rotation.h>
#include <pelor/dgn/to_arc.h>
#include <pelor/dgn/types.h>
