#include "app/io/failure.h"
#include "app/picture/picture.h"

namespace App {

bool WritePicture(const SourceOpener& /*open*/, const PictureOptions& /*options*/, PictureFormat /*format*/,
                  std::ostream& /*out*/, Account& /*account*/) {
  throw Failure("pictures cannot be drawn: this program was built without cairo");
}

}  // namespace App
