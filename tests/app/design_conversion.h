#pragma once

#include "app/design/design_source.h"

#include <string>
#include <string_view>
#include <vector>

namespace app_test {

/// What a design source makes of a design.
struct Conversion {
  std::vector<std::string> objects;            // as interchange texts, lines joined by '|'
  std::vector<std::vector<std::string>> rows;  // one per object
  std::vector<std::int64_t> counts;
  App::Account account;  // what was given is counted as written

  /// All objects, one per line.
  [[nodiscard]] std::string Objects() const;
  /// Kinds, counts and reasons: "Line 3=2+1 skipped{deleted 1} approximated{z dropped 2}", joined by "; ".
  /// Header elements are left out.
  [[nodiscard]] std::string Counts() const;
};

/// Converts the elements behind a header.
Conversion Convert(std::string_view elements, const App::DesignOptions& options = {}, bool is_3d = false);
/// Converts a whole file.
Conversion ConvertFile(std::string_view bytes, const App::DesignOptions& options = {});

}  // namespace app_test
