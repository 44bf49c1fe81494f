#pragma once

#include <cstdint>
#include <string>

// Large inputs of the program, the same for the same number of objects.

/// A design of lines, line strings of 10 vertices, shapes of 8 and texts in turn, each with a database
/// linkage.
void MakeDesign(const std::string& name, std::int64_t elements);

/// A pair of points, polylines of 10 vertices and regions of 8 in turn, with four columns. `name` is that of
/// the MIF file.
void MakePair(const std::string& name, std::int64_t objects);
