#pragma once

#include "app/convert/account.h"
#include "app/design/design_sink.h"
#include "app/design/element_view.h"
#include <pelor/mi.h>

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <tests/app/scratch_folder.h>
#include <utility>
#include <vector>

namespace App {

/// Puts objects into a design "map.dgn" in a folder of its own, 100 units of resolution to the metre and the
/// origin in the middle, and has the result ready for a look.
class SinkConversion {
 public:
  using Object = Pelor::MI::WObjRf<Pelor::MI::WObjBody>;
  using Row = std::vector<Tobri::String>;

  SinkConversion() {
    options.units.uors_per_master = 100;
    options.units.middle = Vanth::PointXY{0, 0};
    schema.system = Tobri::IRefC<Pelor::MI::CoordSys>(
        new Pelor::MI::CoordSys(Pelor::MI::NonEarth_t(), Pelor::MI::Units_m, {}));
  }

  SinkConversion& Add(Object object, Row row = {}) {
    objects_.emplace_back(std::move(object), std::move(row));
    return *this;
  }

  /// Throws what the sink throws.
  SinkConversion& Run() {
    DesignExtent extent;
    for (const auto& [object, row] : objects_) extent.Add(*object);
    DesignSink sink(folder / "map.dgn", std::make_unique<OutputFiles>(overwrite), schema, extent, options);
    Feature feature;
    for (const auto& [object, row] : objects_) {
      feature.object = object;
      feature.values = row;
      feature.kind = "object";
      feature.place = {++feature.place.number, 0};
      account.Read("object");
      sink.Put(feature, account);
    }
    sink.Close(account);
    bytes_ = ReadWhole(folder / "map.dgn");
    return *this;
  }

  [[nodiscard]] const std::string& Bytes() const { return bytes_; }
  [[nodiscard]] std::string Table() const { return ReadWhole(folder / "map.csv"); }

  /// All elements up to the end word.
  [[nodiscard]] std::vector<ElementView> Elements() const {
    std::vector<ElementView> elements;
    for (std::size_t at = 0; at + 4 <= bytes_.size() && Word(at) != 0xFFFF;) {
      const std::size_t size = std::min(4 + 2 * std::size_t{Word(at + 2)}, bytes_.size() - at);
      elements.emplace_back(std::span<const char>(bytes_).subspan(at, size), is_3d);
      at += size;
    }
    return elements;
  }
  /// Those behind the header and the colour table.
  [[nodiscard]] std::vector<ElementView> Drawing() const {
    const std::vector<ElementView> all = Elements();
    return {all.begin() + 2, all.end()};
  }

  ScratchFolder folder;
  Schema schema;
  DesignSinkOptions options;
  bool overwrite = false;
  bool is_3d = false;  ///< the design that is written
  Account account;

 private:
  [[nodiscard]] std::uint16_t Word(std::size_t at) const { return Pelor::DGN::LoadWord(bytes_.data() + at); }

  std::vector<std::pair<Object, Row>> objects_;
  std::string bytes_;
};

}  // namespace App
