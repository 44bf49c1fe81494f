#include "app/inspect/design_check.h"

#include "app/design/element_writer.h"
#include "app/inspect/finding.h"
#include "design_elements.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace App {
namespace {

namespace DGN = Pelor::DGN;
using app_test::DesignBytes;
using app_test::ElementText;
using app_test::HeaderBytes;
using Texts = std::vector<std::string>;

// The header of these designs takes up so many bytes.
constexpr std::size_t kHeader = 1536;

Texts Findings(std::string_view design) {
  static const ScratchFolder folder;
  Input input;
  input.path = folder.Write("a.dgn", design);
  Texts texts;
  CheckDesign(input, [&](const Finding& finding) {
    Finding without_folder = finding;
    without_folder.file = finding.file.filename();
    texts.push_back(ToText(without_folder));
  });
  return texts;
}

// What is wrong with these elements behind a sound header.
Texts FindingsIn(std::string_view elements) {
  return Findings(DesignBytes(elements));
}

std::string Element(int type, std::string_view body) {
  ElementText element;
  element.type = type;
  element.body = body;
  return app_test::ElementBytes(element);
}

std::string Component(int type, std::string_view body) {
  ElementText element;
  element.type = type;
  element.body = body;
  element.component = true;
  return app_test::ElementBytes(element);
}

std::string Longs(std::initializer_list<std::int64_t> values) {
  return app_test::Longs(values);
}

// The element with its range replaced by this one.
std::string WithRange(std::string element, std::int32_t low, std::int32_t high) {
  constexpr std::uint32_t kSign = 0x80000000U;
  for (std::size_t i = 0; i < 6; ++i) {
    const std::uint32_t value = static_cast<std::uint32_t>(i < 3 ? low : high) ^ kSign;
    DGN::StoreLong(element.data() + 4 + 4 * i, static_cast<std::int32_t>(value));
  }
  return element;
}

const std::string& Line() {
  static const std::string line = Element(3, Longs({0, 0, 10, 20}));
  return line;
}

TEST(DesignCheckTest, FindsNothingInWhatTheProgramWrites) {
  ElementBytes bytes;
  ElementWriter writer(bytes);
  const ElementStyle style;
  LinkageWords linkages;
  linkages.AddDatabase(1, 7);
  linkages.AddFill(3);
  const std::vector<DGN::point2d> ring = {{0, 0}, {100, 0}, {100, 100}, {0, 0}};
  const std::vector<DGN::point2d> bow = {{-10, 0}, {-5, 0}, {0, 0}, {50, 80}, {100, 0}, {105, 0}, {110, 0}};
  writer.Line(style, {0, 0}, {10, 20}, linkages);
  writer.Vertices(DGN::ShapeType, style, ring, linkages);
  writer.Vertices(DGN::CurveType, style, bow, {});
  writer.Vertices(DGN::PointStringType, style, ring, {});
  const EllipseShape ellipse{50.25, 20.5, 30.0, 1000.5, 2000.5};
  writer.Ellipse(style, ellipse, linkages);
  writer.Arc(style, {ellipse, 10.0, -120.0}, {});
  writer.Text(style, {}, {5, 5}, "odd", linkages);
  writer.BeginComplex(DGN::ComplexShapeType, style, linkages);
  writer.Vertices(DGN::LineStringType, style, {ring.data(), 3}, {});
  writer.Line(style, ring[2], ring[3], {});
  writer.End();
  writer.BeginCell(style, "CELL", {0, 0}, linkages);
  writer.Vertices(DGN::ShapeType, style, ring, {});
  writer.BeginComplex(DGN::ComplexShapeType, style, {});
  writer.Vertices(DGN::LineStringType, style, ring, {});
  writer.End();
  writer.End();
  writer.BeginTextNode(style, {}, {5, 5}, 10, 3, {});
  writer.Text(style, {}, {5, 5}, "one", {});
  writer.Text(style, {}, {5, 25}, "two", {});
  writer.End();
  EXPECT_EQ(FindingsIn(bytes.View()), Texts());
}

TEST(DesignCheckTest, FindsNothingInAHeaderInThreeDimensions) {
  EXPECT_EQ(Findings(HeaderBytes({.is_3d = true}) + "\xFF\xFF"), Texts());
}

TEST(DesignCheckTest, MissesTheEnd) {
  EXPECT_EQ(Findings(HeaderBytes()),
            Texts{"a.dgn: warning: the file ends without the end-of-design word [end-missing]"});
}

TEST(DesignCheckTest, MissesTheHeader) {
  EXPECT_EQ(
      Findings(Line() + "\xFF\xFF"),
      Texts{
          "a.dgn: warning: there is no design file header before the first graphics, so units and origin are "
          "unknown [header-missing]"});
}

TEST(DesignCheckTest, FindsUnitsThatCannotBe) {
  EXPECT_EQ(Findings(DesignBytes("", {.subs_per_master = 0, .uors_per_sub = -10})),
            Texts{"a.dgn: error: the header says 0 sub-units per master unit and -10 units of resolution per "
                  "sub-unit; "
                  "both must be above 0 [units]"});
}

TEST(DesignCheckTest, FindsAnElementPastTheEnd) {
  const std::string at = "a.dgn: element 2 at byte 1536: error: ";
  EXPECT_EQ(Findings(HeaderBytes() + Line().substr(0, 45)),
            Texts{at + "the element says 52 bytes, and the file ends after 45 of them [element-cut]"});
  EXPECT_EQ(Findings(HeaderBytes() + Line().substr(0, 9)),
            Texts{at + "the element says 52 bytes, and the file ends after 9 of them [element-cut]"});
}

TEST(DesignCheckTest, FindsUnknownTypes) {
  EXPECT_EQ(FindingsIn(Element(37, "0000")),
            Texts{"a.dgn: element 2 at byte 1536: warning: the type 37 is unknown [type-unknown]"});
}

TEST(DesignCheckTest, FindsTheReservedBit) {
  std::string line = Line();
  line[0] = static_cast<char>(line[0] | 0x40);
  EXPECT_EQ(FindingsIn(line), Texts{"a.dgn: element 2 at byte 1536: warning: Line has the reserved bit of "
                                    "its header set [reserved-bit]"});
}

TEST(DesignCheckTest, FindsElementsTooShortForTheirContents) {
  const std::string at = "a.dgn: element 2 at byte 1536: error: ";
  EXPECT_EQ(FindingsIn(std::string("\x01\x03\x05\0", 4) + std::string(10, '\0')),
            Texts{at + "Line is too short for its header [too-short]"});
  EXPECT_EQ(FindingsIn(Element(3, "0000*6")),
            Texts{at + "Line is too short for what it has to hold [too-short]"});
  EXPECT_EQ(FindingsIn(Element(15, "0000*6")),
            Texts{at + "Ellipse is too short for what it has to hold [too-short]"});
  EXPECT_EQ(FindingsIn(Element(16, "0000*6")),
            Texts{at + "Arc is too short for what it has to hold [too-short]"});
  EXPECT_EQ(FindingsIn(Element(2, "0000*6")),
            Texts{at + "Cell Header is too short for what it has to hold [too-short]"});
  EXPECT_EQ(FindingsIn(Element(12, "0000")),
            Texts{at + "Complex String is too short for what it has to hold [too-short]"});
  EXPECT_EQ(FindingsIn(Element(6, "")), Texts{at + "Shape ends before its vertices [too-short]"});
}

TEST(DesignCheckTest, FindsCountsThatDisagreeWithSizes) {
  const std::string at = "a.dgn: element 2 at byte 1536: ";
  EXPECT_EQ(FindingsIn(Element(4, "0003 " + Longs({0, 0, 1, 1}))),
            Texts{at + "error: Line String says 3 vertices, and has room for 2 [vertex-count]"});
  EXPECT_EQ(FindingsIn(Element(4, "0002 " + Longs({0, 0, 1, 1, 2, 2}))),
            Texts{at + "warning: Line String says 2 vertices, and has room for 3 [vertex-count]"});
  EXPECT_EQ(FindingsIn(Element(17, "0001 " + Longs({100, 100, 0, 0, 0}) + " 0005 4141")),
            Texts{at + "error: Text has less room than its characters need [text-length]"});
}

TEST(DesignCheckTest, PaddingIsNoVertex) {
  EXPECT_EQ(FindingsIn(Element(4, "0002 " + Longs({0, 0, 1, 1}) + "0000*3")), Texts());
}

TEST(DesignCheckTest, FindsTooFewAndTooManyVertices) {
  const std::string at = "a.dgn: element 2 at byte 1536: warning: ";
  EXPECT_EQ(FindingsIn(Element(4, "0001 " + Longs({0, 0}))),
            Texts{at + "Line String has 1 vertex; 2 are the least [few-vertices]"});
  EXPECT_EQ(FindingsIn(Element(11, "0005 0000*20")),
            Texts{at + "Curve has 5 vertices; 6 are the least [few-vertices]"});
  EXPECT_EQ(FindingsIn(Element(4, "0065 0000*404")), Texts());
  EXPECT_EQ(FindingsIn(Element(4, "0066 0000*408")),
            Texts{at + "Line String has 102 vertices; 101 are the most [many-vertices]"});
}

TEST(DesignCheckTest, FindsUnclosedShapes) {
  EXPECT_EQ(FindingsIn(Element(6, "0003 " + Longs({0, 0, 5, 0, 5, 5}))),
            Texts{"a.dgn: element 2 at byte 1536: warning: Shape does not end where it began [ring-open]"});
}

TEST(DesignCheckTest, FindsAxesOfNoLengthAndMatricesOfZeros) {
  const std::string at = "a.dgn: element 2 at byte 1536: warning: ";
  EXPECT_EQ(FindingsIn(Element(15, "4080 0000*3 0000*14")),
            Texts{at + "Ellipse has an axis of length 0 [axis-zero]"});
  EXPECT_EQ(FindingsIn(Element(2, "0000*28")), Texts{at + "Cell Header has a matrix of zeros [matrix-zero]"});
}

TEST(DesignCheckTest, FindsAttributesThatAreNotThere) {
  const std::string at = "a.dgn: element 2 at byte 1536: ";
  std::string line = Line();
  DGN::StoreWord(line.data() + 30, 65516);
  EXPECT_EQ(FindingsIn(line),
            Texts{at + "warning: the attribute index 65516 points past the element [attribute-index]"});
  line = Line();
  DGN::StoreWord(line.data() + 32, 0x0800);
  EXPECT_EQ(FindingsIn(line),
            Texts{at + "error: the attribute index 10 points past the element [attribute-index]"});
  DGN::StoreWord(line.data() + 30, 1);
  EXPECT_EQ(FindingsIn(line),
            Texts{at + "error: the attribute index 1 points into the header [attribute-index]"});
}

TEST(DesignCheckTest, FindsALinkageLongerThanTheElement) {
  ElementText line;
  line.body = "0000*8";
  line.attributes = "1007 5E62 0000*2";
  EXPECT_EQ(FindingsIn(app_test::ElementBytes(line)),
            Texts{"a.dgn: element 2 at byte 1536: warning: the linkage at byte 52 of the element says 16 "
                  "bytes, and 8 "
                  "are left [linkage-length]"});
}

TEST(DesignCheckTest, FindsARangeThatDoesNotHoldItsGeometry) {
  const std::string at = "a.dgn: element 2 at byte 1536: warning: ";
  EXPECT_EQ(FindingsIn(WithRange(Line(), 0, 20)), Texts());
  EXPECT_EQ(
      FindingsIn(WithRange(Line(), 0, 18)),
      Texts{at +
            "the range of the Line does not hold its geometry: y runs from 0 to 20, the range from 0 to 18 "
            "[range]"});
  // A half circle about the origin, from east over north to west.
  const std::string arc = Element(16, Longs({0, 180 * 360000}) + app_test::DFloat(100.0) + " " +
                                          app_test::DFloat(100.0) + " 0000*2 0000*8");
  EXPECT_EQ(FindingsIn(WithRange(arc, 0, 100)).size(), 1U);
  EXPECT_EQ(FindingsIn(WithRange(arc, -100, 100)), Texts());
}

TEST(DesignCheckTest, TheRangeOfATextHoldsItsBox) {
  const std::string at =
      "a.dgn: element 2 at byte 1536: warning: the range of the Text does not hold its geometry: ";
  // Three characters, 6 units wide and 12 high, from (0, 0) on.
  const auto text = [](const char* characters, std::int32_t angle) {
    return Element(17, "0001 " + Longs({1000, 2000, angle, 0, 0}) + characters);
  };
  EXPECT_EQ(FindingsIn(WithRange(text("0003 4141 0041", 0), 0, 18)), Texts());
  EXPECT_EQ(FindingsIn(WithRange(text("0003 4141 0041", 0), 0, 17)), Texts()) << "sizes are rounded";
  EXPECT_EQ(FindingsIn(WithRange(text("0003 4141 0041", 0), 0, 16)),
            Texts{at + "x runs from 0 to 18, the range from 0 to 16 [range]"});
  EXPECT_EQ(FindingsIn(WithRange(text("0003 4141 0041", 90 * 360000), -12, 18)), Texts());
  EXPECT_EQ(FindingsIn(WithRange(text("0003 4141 0041", 90 * 360000), 0, 18)).size(), 1U);
  EXPECT_EQ(FindingsIn(WithRange(text("0000", 0), 0, 0)), Texts()) << "without characters";
  EXPECT_EQ(FindingsIn(WithRange(text("0003 4141 0041", 0), 0, 0)), Texts()) << "the range of the origin";
  EXPECT_EQ(FindingsIn(WithRange(text("0003 4141 0041", 0), 9, 9)).size(), 1U);
  std::string flat = WithRange(text("0003 4141 0041", 0), 0, 12);
  DGN::StoreLong(flat.data() + 16, DGN::LoadLong(flat.data() + 4));
  EXPECT_EQ(FindingsIn(flat), Texts()) << "a range without an area";
}

TEST(DesignCheckTest, TheRangeOfADeletedElementDoesNotMatter) {
  std::string line = WithRange(Line(), 0, 0);
  line[1] = static_cast<char>(line[1] | 0x80);
  EXPECT_EQ(FindingsIn(line), Texts());
}

// A complex string of two lines: 2 words of its own and 2 * 26 of its components follow word 18.
std::string Chain(std::string_view head, std::int64_t second_x) {
  return Element(12, head) + Component(3, Longs({0, 0, 10, 10})) +
         Component(3, Longs({second_x, 10, 20, 20}));
}

TEST(DesignCheckTest, FindsNothingInASoundChain) {
  EXPECT_EQ(FindingsIn(Chain("0035 0002", 10)), Texts());
}

TEST(DesignCheckTest, FindsWrongCountsOfComponents) {
  const std::string at = "a.dgn: element 2 at byte 1536: error: ";
  EXPECT_EQ(FindingsIn(Chain("0035 0003", 10)),
            Texts{at + "Complex String says 3 components, and has 2 [component-count]"});
}

TEST(DesignCheckTest, FindsWrongLengthsOfComplexElements) {
  EXPECT_EQ(FindingsIn(Chain("001B 0002", 10)),
            (Texts{"a.dgn: element 2 at byte 1536: error: Complex String says 2 components, and has 1 "
                   "[component-count]",
                   "a.dgn: element 4 at byte 1628: warning: Line is marked as a component, but of no element "
                   "[component-alone]"}));
  EXPECT_EQ(FindingsIn(Chain("0030 0002", 10)), Texts{"a.dgn: element 4 at byte 1628: error: Line runs past "
                                                      "the end of the Complex String of element 2 that "
                                                      "it is in [complex-length]"});
  EXPECT_EQ(FindingsIn(Chain("0040 0002", 10)), Texts{"a.dgn: element 2 at byte 1536: error: the Complex "
                                                      "String reaches to byte 1702, and the design ends at "
                                                      "byte 1680 [complex-length]"});
  EXPECT_EQ(FindingsIn(Chain("0035 0002", 10) + Line()), Texts());
  EXPECT_EQ(FindingsIn(Chain("004F 0003", 10) + Element(3, Longs({20, 20, 30, 20}))),
            Texts{"a.dgn: element 5 at byte 1680: warning: Line lies inside the Complex String of element 2, "
                  "but is not "
                  "marked as its component [component-bit]"});
}

TEST(DesignCheckTest, FindsGapsBetweenComponents) {
  EXPECT_EQ(
      FindingsIn(Chain("0035 0002", 13)),
      Texts{"a.dgn: element 4 at byte 1628: warning: Line begins 3 units of resolution away from where the "
            "component before it ended [component-gap]"});
}

TEST(DesignCheckTest, ComponentsInACellNeedNotTouch) {
  const std::string cell = Element(2, "004F 0000*7 " + Longs({0, 0, 0, 0, 214748, 0, 0, 214748, 0, 0})) +
                           Component(3, Longs({0, 0, 10, 10})) + Component(3, Longs({500, 10, 20, 20}));
  EXPECT_EQ(FindingsIn(cell), Texts());
}

TEST(DesignCheckTest, FindsUnclosedComplexShapes) {
  const std::string ring =
      Element(14, "0035 0002") + Component(3, Longs({0, 0, 10, 10})) + Component(3, Longs({10, 10, 0, 5}));
  EXPECT_EQ(
      FindingsIn(ring),
      Texts{"a.dgn: element 2 at byte 1536: warning: Complex Shape does not end where it began [ring-open]"});
}

TEST(DesignCheckTest, TheRangeOfAComplexElementHoldsItsComponents) {
  std::string chain = Chain("0035 0002", 10);
  const std::string head = WithRange(chain.substr(0, 40), 0, 15);
  EXPECT_EQ(FindingsIn(head + chain.substr(40)),
            Texts{"a.dgn: element 2 at byte 1536: warning: the range of the Complex String does not hold its "
                  "geometry: "
                  "x runs from 0 to 20, the range from 0 to 15 [range]"});
}

TEST(DesignCheckTest, EndsForAllPrefixesAndDamagedBytes) {
  const std::string design = DesignBytes(Chain("0035 0002", 10) + Element(15, "4080 0000*17"));
  for (std::size_t length = kHeader; length < design.size(); ++length) {
    EXPECT_FALSE(Findings(design.substr(0, length)).empty()) << length;
  }
  for (std::size_t at = kHeader; at < design.size(); ++at) {
    std::string damaged = design;
    damaged[at] = static_cast<char>(damaged[at] ^ (at % 2 == 0 ? 0xFF : 1 << at % 8));
    static_cast<void>(Findings(damaged));
  }
}

}  // namespace
}  // namespace App
