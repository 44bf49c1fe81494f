#pragma once

#include <pelor/base/bounds.h>
#include <pelor/base/export.h>
#include <pelor/base/text_scanner.h>
#include <pelor/mi/coord_sys.h>
#include <pelor/mi/datum.h>

#include <iosfwd>

namespace Pelor::MIF {

// Writers put the clause's text and nothing around it; numbers follow the stream's format and no locale.
// Readers give true when the clause was read whole; otherwise they report a SyntaxError and give false.

/// A standard datum by its number, any other with its values.
PELOR_EXPORT void Write(const MI::Datum& datum, std::ostream& out);
/// Reports "Invalid Datum" and leaves the datum as it was.
PELOR_EXPORT bool Read(MI::Datum& datum, Tobri::IxText& in);

/// " Bounds (x1, y1) (x2, y2)" with the blank before it; nothing when empty.
PELOR_EXPORT void Write(const Vanth::BoundsXY& bounds, std::ostream& out);
/// Reports "Invalid Bounds" and leaves the bounds empty.
PELOR_EXPORT bool Read(Vanth::BoundsXY& bounds, Tobri::IxText& in);

PELOR_EXPORT void Write(const MI::CoordSys& system, std::ostream& out);
/// The keyword "CoordSys" may be missing. A unit name that is unknown gives units of the factor 0 and is not
/// reported. A system on the earth is assigned before its parameters are read, so those before a fault stay.
/// Reports "Invalid CoordSys", "Expected: " and a keyword, "comma not expected", "Invalid number of
/// parameters", "too few arguments", "too many arguments", and what datum and bounds report.
PELOR_EXPORT bool Read(MI::CoordSys& system, Tobri::IxText& in);

}  // namespace Pelor::MIF
