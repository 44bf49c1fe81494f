#include <pelor/version.h>

namespace Pelor {

const char* Version() noexcept {
  return PELOR_VERSION;
}

}  // namespace Pelor
