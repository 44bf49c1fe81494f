#include <pelor/dgn/errors.h>

namespace Pelor::DGN {

Error::~Error() = default;

FileErr::~FileErr() = default;

EndOfFileErr::EndOfFileErr(const Tobri::String& text) : Raisable("End of File " + text.str()) {}

EndOfFileErr::~EndOfFileErr() = default;

BadTypeErr::~BadTypeErr() = default;

NotDisplayableErr::~NotDisplayableErr() = default;

NoAttributesErr::~NoAttributesErr() = default;

}  // namespace Pelor::DGN
