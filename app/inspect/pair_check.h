#pragma once

#include "app/inspect/finding.h"
#include "app/io/input_kind.h"

namespace App {

/// Looks for what is wrong with an interchange pair. Throws `Failure` when it cannot be read at all.
void CheckPair(const Input& input, const FindingSink& sink);

}  // namespace App
