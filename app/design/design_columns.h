#pragma once

#include "app/convert/account.h"
#include "app/design/element_view.h"
#include "app/design/linkage.h"
#include "app/design/symbology.h"
#include <pelor/mi.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace App {

/// What the rows of a design's features can hold.
enum class DesignColumn : std::uint8_t {
  kType,
  kLevel,
  kColor,
  kWeight,
  kStyle,
  kClass,
  kGroup,
  kCell,
  kEntity,
  kKey,
  kText,
};

/// All of them, in their order.
[[nodiscard]] const std::vector<DesignColumn>& AllDesignColumns();
/// The name of a column, such as "GraphicGroup".
[[nodiscard]] std::string_view ColumnName(DesignColumn column) noexcept;
/// The column of a name, in any case.
[[nodiscard]] std::optional<DesignColumn> FindDesignColumn(std::string_view name) noexcept;
[[nodiscard]] Pelor::MI::Column MakeColumn(DesignColumn column);

/// What is known of an element besides its geometry.
struct ElementFacts {
  Pelor::DGN::EType type = Pelor::DGN::LineType;
  std::uint8_t level = 0;
  std::uint8_t element_class = 0;
  std::uint16_t group = 0;
  bool is_deleted = false;
  bool is_hole = false;
  Symbology symbology;
  LinkageFacts linkages;
  Place place;

  ElementFacts() = default;
  ElementFacts(const ElementView& element, const Place& element_place) noexcept;

  [[nodiscard]] std::string_view Kind() const noexcept { return ElementKind(type); }
};

/// Fills the values of the columns. `cell` and `text` are UTF-8. Rows that are filled again keep their
/// memory, and what is the same as before is left alone.
void FillValues(const std::vector<DesignColumn>& columns, const ElementFacts& facts, std::string_view cell,
                std::string_view text, std::vector<Tobri::String>& values);

}  // namespace App
