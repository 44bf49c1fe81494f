#include "app/convert/open_source.h"

#include "app/design/design_source.h"
#include "app/design/element_cursor.h"
#include "app/pair/pair_source.h"

namespace App {

namespace {

namespace MI = Pelor::MI;

// The plane of a design, where the name of its master unit is known.
Tobri::IRefC<MI::CoordSys> FindSystem(const Input& input) {
  ElementCursor cursor(input);
  const MI::Units units = MI::GetUnits(DesignHeader::Find(cursor.File()).master_name);
  if (units == MI::Units_Unknown) return nullptr;
  return Tobri::IRefC<MI::CoordSys>(new MI::CoordSys(MI::NonEarth_t(), units, MI::CoordSys::EmptyBounds()));
}

}  // namespace

std::unique_ptr<FeatureSource> OpenSource(const Input& input, const ViewOptions& options) {
  if (!input.IsDesign()) return std::make_unique<PairSource>(input, options.charset);
  DesignOptions design;
  design.columns = {DesignColumn::kLevel};
  design.keep_color_0 = options.keep_color_0;
  design.charset = options.charset;
  design.system = FindSystem(input);
  return std::make_unique<DesignSource>(input, std::move(design));
}

}  // namespace App
