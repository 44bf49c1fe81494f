#include "app/inspect/design_info.h"

#include "app/design/cell_header.h"
#include "app/design/color_table.h"
#include "app/design/element_geometry.h"
#include "app/design/linkage.h"
#include "app/io/interrupt.h"

#include <algorithm>
#include <optional>

namespace App {

namespace DGN = Pelor::DGN;

namespace {

bool IsBeyondAscii(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

void CountLinkages(const ElementView& element, DesignInfo& info) {
  LinkageWalker walker(element.Attributes());
  Linkage linkage;
  while (walker.Next(linkage)) {
    switch (linkage.kind) {
      case Linkage::Kind::kDatabase4:
      case Linkage::Kind::kDatabase8:
        ++info.database_linkages[linkage.database.entity];
        break;
      case Linkage::Kind::kFill:
        ++info.fill_linkages;
        break;
      case Linkage::Kind::kUser:
        ++info.user_linkages[linkage.id];
        break;
    }
  }
}

void CountElement(const ElementView& element, ColorTable& colors, DesignInfo& info) {
  const DGN::DEHeader& header = element.Header();
  DesignInfo::TypeCount& type = info.types[static_cast<std::size_t>(element.Type())];
  ++info.elements;
  ++type.count;
  // The header of a 3D design has the bit of components set, and is none.
  if (header.IsComponent() && element.Type() != DGN::DesignHeaderType) ++info.components;
  if (header.IsDeleted()) {
    ++info.deleted;
    ++type.deleted;
    return;
  }
  if (colors.Decode(element)) info.has_color_table = true;
  if (!element.HasDisplayableHeader()) return;
  ++info.levels[header.Level()];
  info.extent.Cover(ExtentOf(element, TextExtent::kBox));
  CountLinkages(element, info);
  if (const std::optional<CellHeader> cell = CellHeader::Decode(element)) ++info.cells[cell->name];
  if (const std::optional<TextView> text = TextView::Decode(element)) {
    if (IsBeyondAscii(text->characters)) ++info.texts_beyond_ascii;
  }
}

}  // namespace

DesignInfo ReadDesignInfo(const Input& input) {
  ElementCursor cursor(input);
  DesignInfo info;
  info.file = input.path;
  info.bytes = cursor.Total();
  info.header = DesignHeader::Find(cursor.File());
  cursor.SetIs3D(info.header.is_3d);
  ColorTable colors;
  for (; cursor.Peek(); cursor.Take()) {
    ThrowIfInterrupted();
    CountElement(cursor.Element(), colors, info);
  }
  info.ending = cursor.GetEnd();
  info.end_offset = cursor.GetPlace().position;
  return info;
}

}  // namespace App
