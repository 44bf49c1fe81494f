#include "app/design/cell_header.h"

namespace App {

using namespace Pelor;

namespace {

constexpr std::size_t kDescription = 36;
constexpr std::size_t kName = 38;
constexpr unsigned kNameWords = 2;
constexpr std::size_t kClassMap = 42;
constexpr std::size_t kLevelMap = 44;
constexpr std::size_t kLow = 52;

}  // namespace

std::optional<CellHeader> CellHeader::Decode(const ElementView& element) {
  if (element.Type() != DGN::CellHeaderType) return std::nullopt;
  const std::size_t axes = element.Is3D() ? 3 : 2;
  // Low, high, matrix and origin follow each other.
  if (!element.Reaches(kLow, 4 * (axes + axes + axes * axes + axes))) return std::nullopt;

  CellHeader cell;
  cell.description_words = element.Word(kDescription);
  unsigned short packed[kNameWords];
  for (unsigned i = 0; i < kNameWords; ++i) packed[i] = element.Word(kName + 2 * i);
  cell.name = DGN::tointernal(packed, kNameWords).str();
  cell.name.erase(cell.name.find_last_not_of(' ') + 1);
  cell.class_map = element.Word(kClassMap);
  for (std::size_t i = 0; i < cell.level_map.size(); ++i) {
    cell.level_map[i] = element.Word(kLevelMap + 2 * i);
  }
  std::size_t at = kLow;
  const auto next = [&] {
    at += 4;
    return element.Long(at - 4);
  };
  for (std::size_t i = 0; i < axes; ++i) cell.low[i] = next();
  for (std::size_t i = 0; i < axes; ++i) cell.high[i] = next();
  for (std::size_t i = 0; i < axes; ++i) {
    for (std::size_t j = 0; j < axes; ++j) cell.matrix[3 * i + j] = next();
  }
  for (std::size_t i = 0; i < axes; ++i) cell.origin[i] = next();
  return cell;
}

}  // namespace App
