#include "convert_run.h"

#include "app/command/convert.h"
#include "app/design/element_writer.h"
#include "app/design/header_element.h"
#include "app/io/failure.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <iostream>
#include <sstream>

namespace app_test {

using namespace App;
using namespace Pelor;

namespace {

// Takes what goes to a stream, as long as it lives.
class Capture {
 public:
  explicit Capture(std::ostream& stream) : stream_(stream), before_(stream.rdbuf(text_.rdbuf())) {}
  Capture(const Capture&) = delete;
  Capture& operator=(const Capture&) = delete;
  ~Capture() { stream_.rdbuf(before_); }
  [[nodiscard]] std::string Text() const { return text_.str(); }

 private:
  std::ostream& stream_;
  std::ostringstream text_;
  std::streambuf* before_;
};

std::vector<DGN::point2d> Zigzag(int count, std::int32_t step) {
  std::vector<DGN::point2d> points;
  for (std::int32_t i = 0; i < count; ++i) points.push_back({i * step, i % 2 * step});
  return points;
}

constexpr std::array<DGN::point2d, 5> Square(std::int32_t low, std::int32_t high) {
  return {{{low, low}, {high, low}, {high, high}, {low, high}, {low, low}}};
}

}  // namespace

std::string ConvertTest::Write(std::string_view name, std::string_view bytes) const {
  std::filesystem::create_directories((folder_ / name).parent_path());
  return folder_.Write(name, bytes).string();
}

std::string ConvertTest::Below(std::string text) const {
  const std::string prefix = folder_.Path().string() + '/';
  for (std::size_t at = text.find(prefix); at != std::string::npos; at = text.find(prefix)) {
    text.erase(at, prefix.size());
  }
  return text;
}

ConvertRun ConvertTest::Convert(const std::vector<std::string>& arguments) const {
  CLI::App program;
  ConvertRun run;
  AddConvertCommand(program, run.exit_code);
  std::vector<std::string> reversed;
  for (const std::string& argument : arguments) {
    reversed.push_back(argument.starts_with('/') ? folder_.Path().string() + argument : argument);
  }
  reversed.insert(reversed.begin(), "convert");
  std::reverse(reversed.begin(), reversed.end());
  const Capture out(std::cout);
  const Capture err(std::cerr);
  try {
    program.parse(reversed);
  } catch (const Failure& failure) {
    std::cerr << "pelor: " << failure.what() << '\n';
    run.exit_code = kFailed;
  }
  run.out = Below(out.Text());
  run.err = Below(err.Text());
  return run;
}

void ConvertTest::ExpectFailure(const std::vector<std::string>& arguments, std::string_view sentence) const {
  const std::set<std::string> before = Names();
  const ConvertRun run = Convert(arguments);
  EXPECT_EQ(run.exit_code, kFailed) << sentence;
  EXPECT_EQ(run.err, "pelor: " + std::string(sentence) + "\n");
  EXPECT_EQ(Names(), before) << sentence;
}

std::string DesignOfAllKinds() {
  ElementBytes bytes;
  WorkingUnits units;
  units.uors_per_sub = 10;
  WriteHeaderElement(bytes, units, Vanth::BoundsXY(0, 0, 100, 100));
  ElementWriter writer(bytes);
  const LinkageWords none;
  LinkageWords key;
  key.AddDatabase(1, 4711);
  ElementStyle style;
  style.level = 1;
  writer.Line(style, {0, 0}, {100000, 50000}, key);
  writer.Line(style, {7000, 7000}, {7000, 7000}, none);
  style.level = 2;
  writer.Vertices(DGN::LineStringType, style, Zigzag(101, 900), none);
  writer.Vertices(DGN::CurveType, style, Zigzag(8, 500), none);
  writer.Vertices(DGN::PointStringType, style, Zigzag(3, 800), none);
  style.level = 3;
  writer.Vertices(DGN::ShapeType, style, Square(0, 20000), key);
  writer.BeginComplex(DGN::ComplexShapeType, style, none);
  const std::array<DGN::point2d, 3> half = {{{0, 0}, {40000, 0}, {40000, 40000}}};
  const std::array<DGN::point2d, 3> rest = {{{40000, 40000}, {0, 40000}, {0, 0}}};
  writer.Vertices(DGN::LineStringType, style, half, none);
  writer.Vertices(DGN::LineStringType, style, rest, none);
  writer.End();
  style.level = 4;
  writer.BeginCell(style, "", {0, 0}, none);
  writer.Vertices(DGN::ShapeType, style, Square(0, 50000), none);
  ElementStyle hole = style;
  hole.hole = true;
  writer.Vertices(DGN::ShapeType, hole, Square(10000, 20000), none);
  writer.End();
  EllipseShape ellipse{30000, 20000, 0, 50000, 50000};
  writer.Ellipse(style, ellipse, none);
  writer.Arc(style, {ellipse, 0, 90}, none);
  style.level = 5;
  writer.Text(style, {}, {1000, 2000}, "A text", none);
  writer.BeginTextNode(style, {}, {0, 90000}, 9000, 6, none);
  writer.Text(style, {}, {0, 90000}, "first", none);
  writer.Text(style, {}, {0, 80000}, "second", none);
  writer.End();
  style.level = 6;
  writer.BeginCell(style, "TREE", {60000, 60000}, key);
  writer.Line(style, {60000, 60000}, {60000, 70000}, none);
  writer.Line(style, {55000, 65000}, {65000, 65000}, none);
  writer.End();
  style.deleted = true;
  writer.Line(style, {1, 1}, {2, 2}, none);
  bytes.Word(DGN::EHeader::kEndOfDesign);
  return std::string(bytes.View());
}

}  // namespace app_test
