#pragma once

#include "app/design/element_bytes.h"

namespace App::Sample {

/// Appends a design file: the map of a small town that holds every kind of element the program reads. The
/// same bytes every time.
void WriteTownMap(ElementBytes& bytes);

}  // namespace App::Sample
