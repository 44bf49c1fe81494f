#pragma once

#include "app/convert/account.h"
#include "app/design/element_view.h"
#include "app/inspect/element_check.h"
#include "app/inspect/extent.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace App {

/// Follows complex elements and their components through a design: do the lengths and counts of their headers
/// agree with what comes, does each component begin where the last one ended, and do the ranges hold it all?
class ComplexCheck {
 public:
  /// What takes the findings on the element that begins at a place.
  using Reports = std::function<ElementReport(const Place& place)>;

  explicit ComplexCheck(Reports reports) : reports_(std::move(reports)) {}

  /// Takes a whole element that ends before the byte `end`.
  void Element(const ElementView& element, const Place& place, std::int64_t end);
  /// Behind the last element.
  void End(std::int64_t end);

 private:
  struct Open {
    Pelor::DGN::EType type = Pelor::DGN::CellHeaderType;
    Place place;
    std::vector<char> header;  // its bytes, to hold against its range
    bool is_3d = false;
    bool is_deleted = false;
    std::int64_t end = -1;             // behind its last component; -1 when only their bit tells
    std::optional<std::int64_t> told;  // components
    std::int64_t components = 0;
    Extent extent;  // of all components, theirs included
    std::optional<Course> first;
    std::optional<Course> last;
  };

  void CloseUpTo(std::int64_t offset, bool is_component);
  void Close();
  void AddComponent(const ElementView& element, const Place& place);
  void OpenComplex(const ElementView& element, const Place& place, std::int64_t end);

  Reports reports_;
  std::vector<Open> open_;  // the innermost last
};

}  // namespace App
