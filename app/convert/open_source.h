#pragma once

#include "app/convert/feature.h"
#include "app/io/input_kind.h"

#include <memory>
#include <string>

namespace App {

/// How an input is looked at.
struct ViewOptions {
  std::string charset;        ///< of the texts, by any name that iconv knows; empty for what the file says
  bool keep_color_0 = false;  ///< colour 0 of a design is white as it stands, not black
};

/// Gives the features of a design file or a pair, all of them and as they are: in master units, and of the
/// attributes of a design the level alone. Throws `Failure` when the input cannot be opened.
[[nodiscard]] std::unique_ptr<FeatureSource> OpenSource(const Input& input, const ViewOptions& options);

}  // namespace App
