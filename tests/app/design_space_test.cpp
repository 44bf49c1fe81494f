#include "app/design/skip_reasons.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <tests/app/design_conversion.h>
#include <tests/app/design_elements.h>

// Designs in space, given in plan. One unit of resolution is 0.0001 master units here.

namespace App {
namespace {

using app_test::Conversion;
using app_test::Convert;
using app_test::DFloat;
using app_test::ElementBytes;
using app_test::Longs;

std::string Objects(const std::string& elements) {
  return Convert(elements, {}, true).Objects();
}

std::string Dropped(const char* kind) {
  return std::string(kind) + " 1=1+0 approximated{" + std::string(Reason::kHeight) + " 1}";
}

std::string Quaternion(double w, double x, double y, double z) {
  const auto part = [](double value) { return std::llround(std::min(value * 2147483648.0, 2147483647.0)); };
  return Longs({part(w), part(x), part(y), part(z)});
}
std::string Level() {
  return Quaternion(1, 0, 0, 0);
}
// A turn about the z axis, as it is stored: its vector part negative.
std::string AboutZ(double degrees) {
  const double half = degrees * std::numbers::pi / 360;
  return Quaternion(std::cos(half), 0, 0, -std::sin(half));
}
// A turn about the x axis.
std::string AboutX(double degrees) {
  const double half = degrees * std::numbers::pi / 360;
  return Quaternion(std::cos(half), -std::sin(half), 0, 0);
}

TEST(DesignSpaceTest, GivesLinesInPlan) {
  const Conversion high =
      Convert(ElementBytes({.type = 3, .body = Longs({10000, 20000, 5, 30000, 40000, 0})}), {}, true);
  EXPECT_EQ(high.Objects(), "Line 1 2 3 4 | Pen (1,2,0)\n");
  EXPECT_EQ(high.Counts(), Dropped("Line"));
  const Conversion level =
      Convert(ElementBytes({.type = 3, .body = Longs({10000, 20000, 0, 30000, 40000, 0})}), {}, true);
  EXPECT_EQ(level.Counts(), "Line 1=1+0");
  EXPECT_EQ(Objects(ElementBytes({.type = 3, .body = Longs({10000, 20000, 0, 10000, 20000, 9})})),
            "Point 1 2 | Symbol (34,0,4)\n");
}

TEST(DesignSpaceTest, GivesStringsShapesAndCurvesInPlan) {
  EXPECT_EQ(Objects(ElementBytes({.type = 4, .body = "0002 " + Longs({0, 0, 1, 10000, 0, 2})})),
            "PLine 2 | 0 0 | 1 0 | Pen (1,2,0)\n");
  EXPECT_EQ(Objects(ElementBytes({.type = 6, .body = "0003 " + Longs({0, 0, 1, 10000, 0, 2, 0, 10000, 3})})),
            "Region 1 | 4 | 0 0 | 1 0 | 0 1 | 0 0 | Pen (1,2,0) | Brush (1,16777215,0) | Center 0.25 0.25\n");
  EXPECT_EQ(
      Objects(ElementBytes(
          {.type = 11, .body = "0006 " + Longs({9, 9, 9, 9, 9, 9, 0, 0, 1, 10000, 0, 2, 9, 9, 9, 9, 9, 9})})),
      "PLine 2 | 0 0 | 1 0 | Pen (1,2,0) | Smooth\n");
  EXPECT_EQ(
      Convert(ElementBytes({.type = 4, .body = "0002 " + Longs({0, 0, 0, 10000, 0, 2})}), {}, true).Counts(),
      Dropped("Line String"));
}

TEST(DesignSpaceTest, ReadsPointStringsInAllTheirForms) {
  const std::string expected = "Point 1 2 | Symbol (34,0,4)\nPoint 3 4 | Symbol (34,0,4)\n";
  const std::string first = Longs({10000, 20000, 0});
  const std::string second = Longs({30000, 40000, 0});
  EXPECT_EQ(Objects(ElementBytes({.type = 22, .body = "0002 " + first + second})), expected);
  EXPECT_EQ(Objects(ElementBytes({.type = 22, .body = "0002 " + first + Level() + second + AboutZ(30)})),
            expected);
  EXPECT_EQ(Objects(ElementBytes({.type = 22, .body = "0002 " + first + second + Level() + AboutX(30)})),
            expected);
}

std::string Ellipse(double a, double b, const std::string& turn, double z = 0) {
  return ElementBytes(
      {.type = 15, .body = DFloat(a) + DFloat(b) + turn + DFloat(10000) + DFloat(20000) + DFloat(z)});
}

TEST(DesignSpaceTest, ProjectsEllipsesToThePlan) {
  const std::string styles = " | Pen (1,2,0) Brush (1,16777215,0)\n";
  EXPECT_EQ(Objects(Ellipse(20000, 10000, Level())).substr(0, 23), "Ellipse -1 1 3 3 | Pen ");
  EXPECT_EQ(Objects(Ellipse(20000, 10000, AboutZ(90))).substr(0, 22), "Ellipse 0 0 2 4 | Pen ");
  // Tilted by 60 degrees about the x axis, half of the height is left.
  const Conversion tilted = Convert(Ellipse(20000, 20000, AboutX(60)), {}, true);
  EXPECT_EQ(tilted.Objects(), "Ellipse -1 1 3 3" + styles);
  EXPECT_EQ(tilted.Counts(), Dropped("Ellipse"));
  EXPECT_EQ(Convert(Ellipse(20000, 10000, Level(), 30), {}, true).Counts(), Dropped("Ellipse"));
  EXPECT_EQ(Convert(Ellipse(20000, 10000, Level()), {}, true).Counts(), "Ellipse 1=1+0");
  EXPECT_EQ(Objects(Ellipse(20000, 10000, AboutZ(30))).substr(0, 10), "Region 1 |");
}

std::string Arc(double start, double sweep, const std::string& turn) {
  return ElementBytes({.type = 16,
                       .body = Longs({std::llround(start * 360000), std::llround(sweep * 360000)}) +
                               DFloat(20000) + DFloat(10000) + turn + DFloat(10000) + DFloat(20000) +
                               DFloat(0)});
}

TEST(DesignSpaceTest, ProjectsArcsToThePlanAlsoFromBelow) {
  EXPECT_EQ(Objects(Arc(30, 60, Level())), "Arc -1 1 3 3 | 30 90 | Pen (1,2,0)\n");
  EXPECT_EQ(Objects(Arc(30, 60, AboutZ(90))), "Arc 0 0 2 4 | 120 180 | Pen (1,2,0)\n");
  // Turned over about the x axis, it runs clockwise from -30 to -90 degrees.
  EXPECT_EQ(Objects(Arc(30, 60, AboutX(180))), "Arc -1 1 3 3 | 270 330 | Pen (1,2,0)\n");
}

TEST(DesignSpaceTest, TurnsTextsInThePlan) {
  const auto text = [](const std::string& turn, int z) {
    return ElementBytes({.type = 17,
                         .body = "0207 " + Longs({100000, 150000}) + turn + Longs({10000, 20000, z}) +
                                 "0005 4548 4C4C 004F"});
  };
  EXPECT_EQ(Objects(text(Level(), 0)), "Text \"HELLO\" | 1 2 1.3 2.09 | Font (\"Arial\", 0, 0, 0)\n");
  const std::string turned = Objects(text(AboutZ(90), 0));
  EXPECT_EQ(turned, "Text \"HELLO\" | 0.91 1.91 1.21 2 | Font (\"Arial\", 0, 0, 0) |  Angle 90\n");
  // What a rotation has from its own rounding does not show: 2^-31 of it are 0.00000005 degrees.
  const std::string tenths = Objects(text(AboutZ(-29.9), 0));
  EXPECT_EQ(tenths.substr(tenths.find("Angle")), "Angle 330.1\n");
  EXPECT_EQ(Convert(text(Level(), 1), {}, true).Counts(), Dropped("Text"));
  EXPECT_EQ(Convert(text(Level(), 0), {}, true).Counts(), "Text 1=1+0");
  // Tilted by 60 degrees about its base line, half of its height is seen.
  const Conversion tilted = Convert(text(AboutX(60), 0), {}, true);
  EXPECT_EQ(tilted.Objects(), "Text \"HELLO\" | 1 2 1.3 2.045 | Font (\"Arial\", 0, 0, 0)\n");
  EXPECT_EQ(tilted.Counts(), Dropped("Text"));
  // From behind.
  const Conversion back = Convert(text(AboutX(180), 0), {}, true);
  EXPECT_EQ(back.Objects(), "Text \"HELLO\" | 1 1.91 1.3 2 | Font (\"Arial\", 0, 0, 0)\n");
  EXPECT_EQ(back.Counts(), "Text 1=1+0 approximated{" + std::string(Reason::kMirrored) + " 1}");
}

TEST(DesignSpaceTest, PlacesCellsInPlan) {
  DesignOptions options;
  options.cells = CellMode::kPoint;
  std::string body = "0027 7FD5 1F5F 0000*5 " + Longs({0, 0, 0, 0, 0, 0});
  for (int i = 0; i < 9; ++i) body += Longs({i % 4 == 0 ? 214748 : 0});
  body += Longs({70000, 80000, 90000});
  const Conversion result = Convert(ElementBytes({.type = 2, .body = body}), options, true);
  EXPECT_EQ(result.Objects(), "Point 7 8 | Symbol (32,0,8)\n");
  EXPECT_EQ(result.Counts(), Dropped("Cell Header"));
}

}  // namespace
}  // namespace App
