#include "app/design/path_writer.h"
#include <pelor/dgn.h>
#include <pelor/mi.h>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <tests/app/design_elements.h>
#include <tests/app/sink_conversion.h>
#include <tests/dgn/words.h>
#include <vector>

namespace App {
namespace {

namespace DGN = Pelor::DGN;
namespace MI = Pelor::MI;
using Object = SinkConversion::Object;

/// A part of so many vertices, on a large circle around the origin.
void AddPart(MI::WPLineBody& pline, std::size_t vertices, double radius = 10000) {
  pline.AddPart();
  for (std::size_t i = 0; i < vertices; ++i) {
    const double angle = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(vertices);
    // Whole centimetres, which are the units of resolution.
    pline.AddVertex(
        {std::round(100 * radius * std::cos(angle)) / 100, std::round(100 * radius * std::sin(angle)) / 100});
  }
}

MI::WPLineObj Circle(std::size_t vertices, bool smooth = false) {
  MI::WPLineObj pline(nullptr, MI::Pen(), smooth);
  AddPart(*pline, vertices);
  return pline;
}
/// A ring of so many vertices, the repeated one among them.
Object Ring(std::size_t vertices) {
  return MI::WRegionObj(Circle(vertices - 1), MI::Brush{2, 0, -1});
}

/// Types of the elements, components in brackets and counted: "12(4*2)".
std::string Outline(const std::vector<ElementView>& elements) {
  std::string text;
  int repeats = 0;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const bool component = elements[i].Header().IsComponent();
    const bool goes_on = i + 1 < elements.size() && elements[i + 1].Type() == elements[i].Type() &&
                         elements[i + 1].Header().IsComponent() == component;
    ++repeats;
    if (goes_on) continue;
    if (!text.empty()) text += ' ';
    text += (component ? "+" : "") + std::to_string(elements[i].Type());
    if (repeats > 1) text += "*" + std::to_string(repeats);
    repeats = 0;
  }
  return text;
}

/// Checks what every reader relies on: lengths and counts of complex elements, joints, and that ranges hold
/// all points. Gives all vertices, joints once.
std::vector<DGN::point2d> Vertices(const SinkConversion& conversion) {
  const dgn_test::TempFile copy(conversion.Bytes());
  std::vector<DGN::point2d> all;
  DGN::File file(copy.Name(), std::ios_base::in);
  std::int64_t description_end = 0;
  int components_left = 0;
  bool is_first = true;
  for (; file; file.Next(false)) {
    const DGN::EType type = file.GetEHeader().Type();
    const std::int64_t end = file.CurrentPosition() + 4 + 2 * file.GetEHeader().words_to_follow;
    if (type == DGN::ComplexStringType || type == DGN::ComplexShapeType) {
      const DGN::ComplexStrH header(file);
      description_end = file.CurrentPosition() + 38 + 2 * header.words;
      components_left = header.components;
      is_first = true;
    }
    if (type != DGN::LineStringType && type != DGN::ShapeType && type != DGN::CurveType) continue;
    if (file.GetEHeader().IsComponent() && type != DGN::ShapeType && --components_left == 0) {
      EXPECT_EQ(end, description_end);
    }
    const DGN::LineString2D string(file);
    EXPECT_LE(string.count, 101);
    const DGN::CoordsRange& range = file.GetGEHeader().range;
    for (const DGN::point2d& p : string.points) {
      EXPECT_TRUE(p.x >= range.xlow && p.x <= range.xhigh && p.y >= range.ylow && p.y <= range.yhigh);
    }
    const std::size_t trim = type == DGN::CurveType ? 2 : 0;
    std::size_t from = trim;
    if (file.GetEHeader().IsComponent() && type != DGN::ShapeType && !is_first) {
      EXPECT_EQ(string.points[from], all.back()) << "at a joint";
      ++from;
    }
    all.insert(all.end(), string.points.begin() + static_cast<std::ptrdiff_t>(from),
               string.points.end() - static_cast<std::ptrdiff_t>(trim));
    is_first = false;
  }
  EXPECT_TRUE(file.AtEnd());
  return all;
}

std::size_t Approximated(const SinkConversion& conversion, const char* reason) {
  const auto& reasons = conversion.account.GetKinds().at("object").approximation_reasons;
  const auto found = reasons.find(reason);
  return found == reasons.end() ? 0 : static_cast<std::size_t>(found->second.count);
}

TEST(DesignLimitsTest, PathsOfMoreThan101VerticesAreChains) {
  struct Case {
    std::size_t vertices;
    const char* outline;
  };
  for (const Case& c : {Case{2, "4"}, Case{101, "4"}, Case{102, "12 +4*2"}, Case{201, "12 +4*2"},
                        Case{202, "12 +4*3"}, Case{PathWriter::kMaxVertices, "12 +4*155"}}) {
    SinkConversion conversion;
    conversion.Add(Circle(c.vertices)).Run();
    EXPECT_EQ(Outline(conversion.Drawing()), c.outline);
    EXPECT_EQ(Vertices(conversion).size(), c.vertices);
    EXPECT_EQ(conversion.account.GetApproximated(), 0);
  }
}

TEST(DesignLimitsTest, RingsOfMoreThan101VerticesAreComplexShapes) {
  struct Case {
    std::size_t vertices;
    const char* outline;
  };
  for (const Case& c :
       {Case{4, "6"}, Case{101, "6"}, Case{102, "14 +4*2"}, Case{PathWriter::kMaxVertices, "14 +4*155"}}) {
    SinkConversion conversion;
    conversion.Add(Ring(c.vertices)).Run();
    EXPECT_EQ(Outline(conversion.Drawing()), c.outline);
    const std::vector<DGN::point2d> vertices = Vertices(conversion);
    EXPECT_EQ(vertices.size(), c.vertices);
    EXPECT_EQ(vertices.front(), vertices.back());
    EXPECT_EQ(conversion.account.GetApproximated(), 0);
  }
}

TEST(DesignLimitsTest, TheDescriptionOfTheLargestPathIsAlmostFull) {
  SinkConversion conversion;
  conversion.Add(Ring(PathWriter::kMaxVertices)).Run();
  // With both linkages; a vertex takes four words.
  EXPECT_EQ(conversion.Drawing().at(0).Word(36), 65534);
}

/// Starts from a three-dimensional design.
void UseSpace(SinkConversion& conversion) {
  conversion.is_3d = true;
  conversion.options.units.uors_per_master = 1000;
  conversion.options.seed =
      conversion.folder.Write("seed.dgn", app_test::DesignBytes("", {.is_3d = true, .uors_per_sub = 1}));
}

TEST(DesignLimitsTest, InSpaceElementsHoldFewerVertices) {
  const std::size_t most = PathWriter::kMaxVertices3D;
  const std::size_t most_smooth = PathWriter::kMaxSmoothVertices3D;
  struct Case {
    Object object;
    const char* outline;
  };
  for (const Case& c : {
           Case{Circle(101), "4"},
           Case{Circle(102), "12 +4*2"},
           Case{Circle(most), "12 +4*105"},
           Case{Circle(most + 1), "12 +4*105 4"},
           Case{Ring(most), "14 +4*105"},
           Case{Ring(most + 1), "12 +4*105 4"},
           Case{Circle(97, true), "11"},
           Case{Circle(most_smooth, true), "12 +11*105"},
           Case{Circle(most_smooth + 1, true), "12 +11*105 11"},
       }) {
    SinkConversion conversion;
    UseSpace(conversion);
    conversion.Add(c.object).Run();
    EXPECT_EQ(Outline(conversion.Drawing()), c.outline);
  }
  SinkConversion conversion;
  UseSpace(conversion);
  conversion.Add(Ring(most)).Run();
  // With both linkages; a vertex takes six words.
  EXPECT_EQ(conversion.Drawing().at(0).Word(36), 65534);
}

TEST(DesignLimitsTest, InSpaceCellsHoldFewerVertices) {
  const auto outline = [](std::size_t second) {
    const MI::WPLineObj rings(nullptr, MI::Pen(), false);
    AddPart(*rings, 9000);
    AddPart(*rings, second, 5000);
    SinkConversion conversion;
    UseSpace(conversion);
    conversion.Add(MI::WRegionObj(rings, MI::Brush{2, 0, -1})).Run();
    return Outline(conversion.Drawing());
  };
  EXPECT_EQ(outline(1000), "2 +14 +4*90 +14 +4*10");
  EXPECT_EQ(outline(2000), "14 +4*90 14 +4*20");
}

TEST(DesignLimitsTest, SmoothPathsKeepTheirDirectionAcrossJoints) {
  for (const std::size_t count : {97U, 98U, 193U, 194U, unsigned{PathWriter::kMaxSmoothVertices}}) {
    SinkConversion conversion;
    conversion.Add(Circle(count, true)).Run();
    EXPECT_EQ(Vertices(conversion).size(), count);
    EXPECT_EQ(conversion.account.GetApproximated(), 0);
  }
  SinkConversion conversion;
  conversion.Add(Circle(98, true)).Run();
  EXPECT_EQ(Outline(conversion.Drawing()), "12 +11*2");
  const ElementView first = conversion.Drawing().at(1);
  const ElementView second = conversion.Drawing().at(2);
  // The first piece runs through 97 vertices; the vertex behind them gives its direction at the joint, and
  // the two before the joint give that of the second piece.
  EXPECT_EQ(first.Word(36), 101);
  EXPECT_EQ(second.Word(36), 6);
  const auto vertex = [](const ElementView& element, std::size_t i) {
    return std::pair(element.Long(38 + 8 * i), element.Long(42 + 8 * i));
  };
  EXPECT_EQ(vertex(second, 2), vertex(first, 98));
  EXPECT_EQ(vertex(second, 3), vertex(first, 99));
  EXPECT_EQ(vertex(second, 1), vertex(first, 97));
  EXPECT_EQ(vertex(second, 0), vertex(first, 96));
}

TEST(DesignLimitsTest, LongerPathsAreCutIntoAGraphicGroup) {
  SinkConversion conversion;
  conversion.Add(Circle(PathWriter::kMaxVertices + 1)).Run();
  EXPECT_EQ(Outline(conversion.Drawing()), "12 +4*155 4");
  EXPECT_EQ(conversion.Drawing().front().Header().graphic_group, 1);
  EXPECT_EQ(conversion.Drawing().back().Header().graphic_group, 1);
  EXPECT_EQ(conversion.Drawing().back().Word(36), 2);
  EXPECT_EQ(
      Approximated(conversion, "more vertices than an element holds: cut into several of one graphic group"),
      1U);

  SinkConversion smooth;
  smooth.Add(Circle(PathWriter::kMaxSmoothVertices + 1, true)).Run();
  EXPECT_EQ(Outline(smooth.Drawing()), "12 +11*155 11");
}

TEST(DesignLimitsTest, LongerRingsKeepTheirOutline) {
  SinkConversion conversion;
  conversion.Add(Ring(PathWriter::kMaxVertices + 1)).Run();
  EXPECT_EQ(Outline(conversion.Drawing()), "12 +4*155 4");
  EXPECT_EQ(Approximated(conversion, "more vertices than an element holds: outline alone"), 1U);
}

TEST(DesignLimitsTest, RingsThatDoNotFitACellStandAlone) {
  const auto region = [](int rings) -> Object {
    const MI::WPLineObj outline(nullptr, MI::Pen(), false);
    const std::size_t vertices[] = {9000, 6000, 1000};
    for (int i = 0; i < rings; ++i) AddPart(*outline, vertices[i], 10000 - 2000 * i);
    return MI::WRegionObj(outline, MI::Brush{2, 0, -1});
  };
  SinkConversion fitting;
  fitting.Add(region(2)).Run();
  EXPECT_EQ(Outline(fitting.Drawing()), "2 +14 +4*90 +14 +4*60");
  EXPECT_EQ(fitting.account.GetApproximated(), 0);
  EXPECT_EQ(Vertices(fitting).size(), 15002U);

  SinkConversion conversion;
  conversion.Add(region(3)).Run();
  EXPECT_EQ(Outline(conversion.Drawing()), "14 +4*90 14 +4*60 14 +4*10");
  EXPECT_EQ(Approximated(conversion, "more vertices than a cell holds: rings of one graphic group"), 1U);
  for (const ElementView& element : conversion.Drawing()) {
    EXPECT_EQ(element.Header().graphic_group, 1);
    if (element.Type() == DGN::ComplexShapeType) {
      EXPECT_EQ(element.Header().IsHole(),
                element.Bytes().data() != conversion.Drawing().front().Bytes().data());
    }
  }
}

TEST(DesignLimitsTest, CellsSkipToTheNextElement) {
  const MI::WPLineObj outline(nullptr, MI::Pen(), false);
  AddPart(*outline, 500);
  AddPart(*outline, 50, 5000);
  SinkConversion conversion;
  conversion.Add(MI::WRegionObj(outline, MI::Brush{2, 0, -1}));
  conversion.Add(MI::WPointObj({1, 1}, nullptr, MI::Symbol()));
  conversion.Run();
  const dgn_test::TempFile copy(conversion.Bytes());
  DGN::File file(copy.Name(), std::ios_base::in);
  file.Next(true);
  file.Next(true);
  EXPECT_EQ(file.GetEHeader().Type(), DGN::CellHeaderType);
  file.Next(true);
  EXPECT_EQ(file.GetEHeader().Type(), DGN::LineType);
  file.Next(true);
  EXPECT_TRUE(file.AtEnd());
}

TEST(DesignLimitsTest, GraphicGroupsEndAt65535) {
  ElementBytes bytes;
  ElementWriter elements(bytes);
  PathWriter paths(elements, 65534);
  EXPECT_EQ(paths.NewGraphicGroup(), 65535);
  EXPECT_EQ(paths.NewGraphicGroup(), 0);
}

}  // namespace
}  // namespace App
