#pragma once

#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace app_test {

/// What `pelor convert` did with its arguments.
struct ConvertRun {
  int exit_code = -1;
  std::string out;
  std::string err;
};

/// A folder of the test's own, and `pelor convert` in it. Texts name files without the folder.
class ConvertTest : public testing::Test {
 protected:
  [[nodiscard]] const App::ScratchFolder& Folder() const noexcept { return folder_; }
  std::string Write(std::string_view name, std::string_view bytes) const;
  [[nodiscard]] std::string Read(std::string_view name) const { return App::ReadWhole(folder_ / name); }
  [[nodiscard]] std::string Path(std::string_view name) const { return (folder_ / name).string(); }
  [[nodiscard]] std::set<std::string> Names() const { return folder_.Names(); }

  /// Arguments that begin with '/' are below the folder.
  ConvertRun Convert(const std::vector<std::string>& arguments) const;
  /// As before; what it says must be this.
  void ExpectFailure(const std::vector<std::string>& arguments, std::string_view sentence) const;

 private:
  [[nodiscard]] std::string Below(std::string text) const;

  App::ScratchFolder folder_;
};

/// A design of every kind of element that this project writes: lines, a long line string, shapes, a complex
/// shape, an area with a hole, a curve, an ellipse, an arc, a point, texts, a text node and a named cell,
/// with linkages, on levels 1 to 6, and a deleted line.
[[nodiscard]] std::string DesignOfAllKinds();

/// A pair of every kind of object with two columns.
inline constexpr std::string_view kMifOfAllKinds =
    "Version 300\n"
    "Charset \"WindowsLatin1\"\n"
    "Delimiter \",\"\n"
    "CoordSys NonEarth Units \"m\" Bounds (-1000, -1000) (1000, 1000)\n"
    "Columns 2\n"
    "  Id Integer\n"
    "  Name Char(20)\n"
    "Data\n"
    "\n"
    "Point 10 20\n    Symbol (35,255,12)\n"
    "Line 0 0 10 5.5\n    Pen (2,2,255)\n"
    "Pline 4\n0 0\n10 0\n10 10.25\n20 20\n    Pen (1,2,0)\n"
    "Pline Multiple 2\n 2\n0 0\n1 1\n 3\n5 5\n6 6\n7 5\n    Pen (1,2,0)\n"
    "Region 2\n 5\n0 0\n100 0\n100 100\n0 100\n0 0\n 5\n10 10\n10 20\n20 20\n20 10\n10 10\n"
    "    Pen (1,2,0)\n    Brush (2,16711680,16777215)\n    Center 50 50\n"
    "Arc 0 0 20 10 0 90\n    Pen (1,2,0)\n"
    "Text \"Hello\"\n5 5 25 10\n    Font (\"Arial\",1,0,0)\n    Angle 30\n"
    "Rect 1 2 3 4\n    Pen (1,2,0)\n    Brush (1,0,16777215)\n"
    "RoundRect 1 2 30 40 5\n    Pen (1,2,0)\n    Brush (1,0,16777215)\n"
    "Ellipse 0 0 20 10\n    Pen (1,2,0)\n    Brush (1,0,16777215)\n"
    "None\n";
inline constexpr std::string_view kMidOfAllKinds =
    "1,\"one\"\n2,\"two, "
    "too\"\n3,three\n4,four\n5,five\n6,six\n7,seven\n8,eight\n9,nine\n10,ten\n11,eleven\n";

}  // namespace app_test
