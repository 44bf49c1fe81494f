#pragma once

#include <pelor/base/export.h>
#include <pelor/mi/object_ref.h>

namespace Pelor::MI {

/// A new object of the given kind with default geometry and style, in the given coordinate system; null when
/// there is no such kind.
[[nodiscard]] PELOR_EXPORT WObjRf<WObjBody> Build(WObjType type, const Tobri::IRefC<CoordSys>& wsys);

}  // namespace Pelor::MI
