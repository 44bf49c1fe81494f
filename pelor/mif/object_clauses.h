#pragma once

#include <pelor/base/export.h>
#include <pelor/base/handle.h>
#include <pelor/base/text_scanner.h>
#include <pelor/mi/coord_sys.h>
#include <pelor/mi/object_body.h>
#include <pelor/mi/object_ref.h>

#include <iosfwd>

namespace Pelor::MIF {

/// Writes the object's clause. The handle must hold a body; what is no object is a WNoBody.
PELOR_EXPORT void Write(const MI::WObjRf<MI::WObjBody>& object, std::ostream& out);

/// Reads an object with its clause into a new body in the given coordinate system. When no object keyword
/// follows, the handle is null, the scanner stays where it was, and nothing is reported. A fault in the
/// clause is reported as a SyntaxError ("Invalid Line", for instance); the body keeps what was read before
/// it.
PELOR_EXPORT void Read(MI::WObjRf<MI::WObjBody>& object, Tobri::IxText& in,
                       const Tobri::IRefC<MI::CoordSys>& system);

/// Reads the clauses that may follow the coordinates of an object, "Pen" and "Brush" for instance, once
/// through their fixed order. True when there was at least one.
PELOR_EXPORT bool ReadOptionalClauses(MI::WObjBody& body, Tobri::IxText& in);

/// Whether object clauses written to the stream flush it at every line end; they do unless told otherwise.
PELOR_EXPORT void SetLineFlush(std::ostream& out, bool flush);
[[nodiscard]] PELOR_EXPORT bool GetLineFlush(std::ostream& out);

}  // namespace Pelor::MIF
