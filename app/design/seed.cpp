#include "app/design/seed.h"

#include "app/design/color_table.h"
#include "app/design/design_header.h"
#include "app/design/element_cursor.h"
#include "app/design/element_view.h"
#include "app/design/linkage.h"
#include "app/io/failure.h"
#include "app/io/input_kind.h"
#include <pelor/dgn.h>

#include <algorithm>
#include <span>
#include <string>

namespace App {

namespace DGN = Pelor::DGN;

namespace {

[[noreturn]] void Refuse(const std::filesystem::path& path, const char* reason) {
  throw Failure(path.string() + " cannot be a seed: " + reason);
}

/// Whether one of the element's linkages names a row of the entity of a design's table.
bool HasKey(const ElementView& element) {
  LinkageWalker walker(element.Attributes());
  Linkage linkage;
  while (walker.Next(linkage)) {
    const bool is_database =
        linkage.kind == Linkage::Kind::kDatabase4 || linkage.kind == Linkage::Kind::kDatabase8;
    if (is_database && linkage.database.entity == kTableEntity) return true;
  }
  return false;
}

WorkingUnits UnitsOf(const DesignHeader& header) {
  WorkingUnits units;
  units.subs_per_master = header.subs_per_master;
  units.uors_per_sub = header.uors_per_sub;
  units.master_name = header.master_name;
  units.sub_name = header.sub_name;
  units.origin_x = header.origin[0];
  units.origin_y = header.origin[1];
  if (header.is_3d) units.origin_z = header.origin[2];
  return units;
}

}  // namespace

Seed Seed::Read(const std::filesystem::path& path) {
  const Input input = RecogniseInput(path);
  if (!input.IsDesign()) Refuse(path, "it is no design file");

  Seed seed;
  seed.path = path;
  bool has_header = false;
  ElementCursor cursor(input);
  for (; cursor.Peek(); cursor.Take()) {
    const ElementView& element = cursor.Element();
    const std::span<const char> bytes = element.Bytes();
    if (element.Type() == DGN::DesignHeaderType && !has_header) {
      const DesignHeader header = DesignHeader::Decode(bytes);
      if (bytes.size() < DesignHeader::kBytes || !header.HasUnits()) Refuse(path, "it has no working units");
      has_header = true;
      seed.header_position = cursor.Current();
      seed.header.Raw({bytes.data(), bytes.size()});
      seed.units = UnitsOf(header);
    } else if (element.Type() == DGN::GroupType && !seed.colors) {
      ColorTable table;
      if (!table.Decode(element)) continue;
      table.KeepIndex0(true);
      seed.colors.emplace();
      for (std::size_t i = 0; i < Palette::kColors; ++i) {
        (*seed.colors)[i] = table[static_cast<std::uint8_t>(i)];
      }
    } else if (element.HasDisplayableHeader()) {
      seed.last_graphic_group = std::max(seed.last_graphic_group, element.Header().graphic_group);
      seed.has_keys = seed.has_keys || HasKey(element);
    }
  }
  if (cursor.GetEnd() == ElementCursor::End::kCutOff) Refuse(path, "it ends inside an element");
  if (!has_header) Refuse(path, "it has no design file header");
  seed.has_end_word = cursor.GetEnd() == ElementCursor::End::kEndWord;
  seed.length = cursor.Current();
  return seed;
}

}  // namespace App
