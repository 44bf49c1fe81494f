#include "app/design/element_view.h"
#include "app/design/linkage.h"
#include "app/sample/town_map.h"
#include <pelor/dgn.h>

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <span>
#include <string>
#include <tests/app/scratch_folder.h>
#include <vector>

namespace App {
namespace {

namespace DGN = Pelor::DGN;

std::string Bytes() {
  ElementBytes bytes;
  Sample::WriteTownMap(bytes);
  return std::string(bytes.View());
}

/// All elements up to the end word.
std::vector<ElementView> Elements(const std::string& bytes) {
  std::vector<ElementView> elements;
  std::size_t at = 0;
  while (DGN::LoadWord(bytes.data() + at) != 0xFFFF) {
    const std::size_t size = 4 + 2 * std::size_t{DGN::LoadWord(bytes.data() + at + 2)};
    elements.emplace_back(std::span<const char>(bytes).subspan(at, size), false);
    at += size;
  }
  return elements;
}

TEST(SampleTest, TheSampleInTheTreeIsWhatTheProgramWrites) {
  // If the map was changed on purpose: make_sample examples/data/sample.dgn
  EXPECT_TRUE(Bytes() == ReadWhole(PELOR_SAMPLE_DESIGN));
}

TEST(SampleTest, HoldsEveryTypeOfElement) {
  const std::string bytes = Bytes();
  std::map<DGN::EType, int> counts;
  for (const ElementView& element : Elements(bytes)) ++counts[element.Type()];
  for (const DGN::EType type :
       {DGN::CellHeaderType, DGN::LineType, DGN::LineStringType, DGN::GroupType, DGN::ShapeType,
        DGN::TextNodeType, DGN::DesignHeaderType, DGN::CurveType, DGN::ComplexStringType,
        DGN::ComplexShapeType, DGN::EllipseType, DGN::ArcType, DGN::TextType, DGN::BSplinePoleType,
        DGN::PointStringType, DGN::BSplineKnotType, DGN::BSplineCurveHeaderType, DGN::BSplineWeightType}) {
    EXPECT_GT(counts[type], 0) << DGN::Name(type);
  }
  EXPECT_EQ(bytes.size() % 512, 0U);
}

TEST(SampleTest, HoldsEveryColorStyleWeightAndKindOfLinkage) {
  const std::string bytes = Bytes();
  std::set<unsigned> colors;
  std::set<DGN::SymbStyle> styles;
  std::set<unsigned> weights;
  std::set<DGN::EClass> classes;
  std::set<Linkage::Kind> linkages;
  int deleted = 0;
  int holes = 0;
  int turned = 0;
  for (const ElementView& element : Elements(bytes)) {
    if (!element.HasDisplayableHeader()) continue;
    const DGN::DEHeader& header = element.Header();
    styles.insert(header.Style());
    weights.insert(header.Weight());
    classes.insert(header.Class());
    deleted += header.IsDeleted() ? 1 : 0;
    holes += header.IsHole() ? 1 : 0;
    if (element.Type() == DGN::EllipseType && element.Long(52) != 0) ++turned;
    colors.insert(header.Color());
    LinkageWalker walker(element.Attributes());
    for (Linkage linkage; walker.Next(linkage);) {
      linkages.insert(linkage.kind);
      if (linkage.kind == Linkage::Kind::kFill) colors.insert(linkage.fill_color);
    }
  }
  for (unsigned color = 0; color < 10; ++color) EXPECT_TRUE(colors.contains(color)) << color;
  EXPECT_EQ(styles.size(), 8U);
  EXPECT_EQ(weights.size(), 32U);
  EXPECT_EQ(classes, (std::set<DGN::EClass>{DGN::PrimaryClass, DGN::ConstructionClass}));
  EXPECT_EQ(linkages, (std::set<Linkage::Kind>{Linkage::Kind::kDatabase4, Linkage::Kind::kDatabase8,
                                               Linkage::Kind::kFill}));
  EXPECT_GT(deleted, 0);
  EXPECT_GT(holes, 1);
  EXPECT_GT(turned, 0);
}

TEST(SampleTest, NestsCells) {
  const std::string bytes = Bytes();
  bool inside = false;
  for (const ElementView& element : Elements(bytes)) {
    if (element.Type() == DGN::CellHeaderType && element.Header().IsComponent()) inside = true;
  }
  EXPECT_TRUE(inside);
}

}  // namespace
}  // namespace App
