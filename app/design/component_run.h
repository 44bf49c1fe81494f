#pragma once

#include "app/convert/account.h"
#include "app/design/element_view.h"

#include <cstdint>

namespace App {

/// Which of the elements behind a complex element's header are its components: those with the complex bit up
/// to the end that the header tells, as far as its kind may have them. Headers may carry the complex bit,
/// too, and the length that they tell may be wrong; then the kind alone decides.
class ComponentRun {
 public:
  /// No components at all.
  ComponentRun() = default;
  ComponentRun(const ElementView& header, const Place& place) noexcept;

  /// Whether the element at the place, which follows the header or a component, is one.
  [[nodiscard]] bool Takes(const ElementView& element, const Place& place) const noexcept;
  /// Where the components end, as the header tells; 0 when it tells that not.
  [[nodiscard]] std::int64_t End() const noexcept { return end_; }
  /// The number of components that the header tells; 0 when it tells none.
  [[nodiscard]] int Told() const noexcept { return told_; }

 private:
  Pelor::DGN::EType type_ = Pelor::DGN::LineType;
  std::int64_t end_ = 0;  // 0 when unknown
  int told_ = 0;
};

}  // namespace App
