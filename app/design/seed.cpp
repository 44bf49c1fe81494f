#include "app/design/seed.h"

#include "app/design/color_table.h"
#include "app/design/design_header.h"
#include "app/design/element_view.h"
#include "app/design/header_element.h"
#include "app/design/linkage.h"
#include "app/io/failure.h"
#include "app/io/input_kind.h"
#include "app/io/library_name.h"
#include <pelor/dgn.h>

#include <algorithm>
#include <string>
#include <vector>

namespace App {

namespace DGN = Pelor::DGN;

namespace {

[[noreturn]] void Refuse(const std::filesystem::path& path, const char* reason) {
  throw Failure(path.string() + " cannot be a seed: " + reason);
}

/// The bytes of the current element, from its first word on.
std::vector<char> CurrentElement(DGN::File& file) {
  const DGN::EHeader header = file.GetEHeader();
  std::vector<char> bytes(DGN::EHeader::kBytes + 2 * std::size_t{header.words_to_follow});
  file.EBodyRPosition(-static_cast<long>(DGN::EHeader::kBytes));
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
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
  const LibraryName name(input);
  DGN::File file(name.Get().string(), std::ios_base::in);
  for (; file; file.Next(false)) {
    const DGN::EType type = file.GetEHeader().Type();
    if (type == DGN::DesignHeaderType && !has_header) {
      const std::vector<char> element = CurrentElement(file);
      const DesignHeader header = DesignHeader::Decode(element);
      if (element.size() < DesignHeader::kBytes || !header.HasUnits())
        Refuse(path, "it has no working units");
      has_header = true;
      seed.header_position = file.CurrentPosition();
      seed.header.Raw({element.data(), element.size()});
      seed.units = UnitsOf(header);
    } else if (type == DGN::GroupType && !seed.colors) {
      const std::vector<char> element = CurrentElement(file);
      ColorTable table;
      if (!table.Decode(ElementView(element, false))) continue;
      table.KeepIndex0(true);
      seed.colors.emplace();
      for (std::size_t i = 0; i < Palette::kColors; ++i) {
        (*seed.colors)[i] = table[static_cast<std::uint8_t>(i)];
      }
    } else if (DGN::TypeClass(type) == DGN::Displayable) {
      const DGN::DEHeader header = file.GetDEHeader();
      seed.last_graphic_group = std::max(seed.last_graphic_group, header.graphic_group);
      if (header.HasAttributes() && !seed.has_keys) {
        seed.has_keys = HasKey(ElementView(CurrentElement(file), false));
      }
    }
  }
  if (!file.AtEnd()) Refuse(path, "it ends without an end word");
  if (!has_header) Refuse(path, "it has no design file header");
  seed.length = file.CurrentPosition();
  return seed;
}

}  // namespace App
