#pragma once

#include <pelor/base/string.h>

namespace Tobri {

/// Helpers for file names. An extension is what follows the last dot of the last path component; a dot that
/// begins the component does not count.
class PELOR_EXPORT FileSys {
 public:
  /// `name`, with "." and `extension` added when it has no extension.
  [[nodiscard]] static String DefExt(const String& name, const String& extension);
  /// `name` with its extension replaced by `extension`, or with it added when there is none.
  [[nodiscard]] static String RepExt(const String& name, const String& extension);
};

}  // namespace Tobri
