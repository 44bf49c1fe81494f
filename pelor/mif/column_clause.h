#pragma once

#include <pelor/base/export.h>
#include <pelor/base/text_scanner.h>
#include <pelor/mi/column.h>
#include <pelor/mi/transform.h>

#include <iosfwd>

namespace Pelor::MIF {

/// The name, two tabs and the type. A width that was not given is written in four digits, so that the text
/// has the same length whatever it comes to be; 9999 stands for more.
PELOR_EXPORT void Write(const MI::Column& column, std::ostream& out);
/// Reads the name, one word, and the type. Reports "Invalid Column", leaves the column unchanged and gives
/// false when the clause is malformed.
PELOR_EXPORT bool Read(MI::Column& column, Tobri::IxText& in);

PELOR_EXPORT void Write(const MI::Transform& transform, std::ostream& out);
/// The keyword "Transform" may be missing. Reports "Invalid Transform", leaves the transform unchanged and
/// gives false when the clause is malformed.
PELOR_EXPORT bool Read(MI::Transform& transform, Tobri::IxText& in);

}  // namespace Pelor::MIF
