#include <pelor/dgn/elements.h>
#include <pelor/dgn/errors.h>
#include <pelor/dgn/file.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <ios>
#include <string>
#include <tests/dgn/element_bytes.h>
#include <tests/dgn/record_samples.h>
#include <tests/dgn/reported.h>
#include <tests/dgn/words.h>
#include <vector>

// What each element record but the text does in its own way.

namespace {

using namespace Pelor::DGN;
using namespace dgn_test;

constexpr auto kIn = std::ios_base::in;

TEST(Line2DTest, ReadsTheStartAndTheEnd) {
  const auto line = ReadBack<Line2D>(3, kLine2D);
  EXPECT_EQ(line.start, (point2d{1, -2}));
  EXPECT_EQ(line.end, (point2d{0x12345678, kLowestLong}));
}

TEST(Line2DTest, ReadsElementsOfOtherTypes) {
  for (const int type : {2, 4, 17}) EXPECT_EQ(ReadBack<Line2D>(type, kLine2D).start, (point2d{1, -2}));
}

TEST(Line2DTest, RefusesAnotherTypeWhoseBodyIsSixteenBytes) {
  for (const int words : {7, 8, 9}) {
    const TempFile design(DesignOf(ElementBytes(4, kLine2D, words)));
    File file(design.Name(), kIn);
    Line2D line;
    EXPECT_EQ(Reported([&] { line.Read(file); }), words == 8 ? Texts{"Incorrect Element Type"} : Texts{});
    EXPECT_EQ(line.start, words == 8 ? point2d() : (point2d{1, -2}));
  }
}

TEST(Line2DTest, TheEndOfTheDesignHasNoBodyWhateverTheElementBefore) {
  const std::string element = ElementBytes(4, kLine2D, 8);
  const TempFile design(DesignOf(element));
  File file(design.Name(), kIn);
  file.Position(static_cast<long>(element.size()));
  ASSERT_TRUE(file.AtEnd());
  ASSERT_EQ(file.EBodySize(), 16U) << "still that of the element before";
  EXPECT_EQ(Reported([&file] { Line2D().Read(file); }), Texts{"End of File"});
}

TEST(Line2DTest, ReadsALineWhoseBodyIsSixteenBytes) {
  const TempFile design(DesignOf(ElementBytes(3, kLine2D, 8)));
  File file(design.Name(), kIn);
  EXPECT_EQ(Line2D(file).start, (point2d{1, -2}));
}

TEST(Line2DTest, TheErrorsOfPositioningPassThrough) {
  {
    const TempFile design(DesignOf(""));
    File file(design.Name(), kIn);
    EXPECT_THROW(Line2D().Read(file), EndOfFileErr);
    EXPECT_EQ(Reported([&file] { Line2D().Read(file); }), Texts{"End of File"});
  }
  const TempFile design(DesignOf(ElementBytes(9, kLine2D)));
  File file(design.Name(), kIn);
  EXPECT_THROW(Line2D().Read(file), NotDisplayableErr);
  EXPECT_EQ(Reported([&file] { Line2D().Read(file); }), Texts{"Element is not displayable"});
}

TEST(Line3DTest, ReadsTheStartAndTheEnd) {
  const auto line = ReadBack<Line3D>(3, kLine3D);
  EXPECT_EQ(line.start, (point3d{1, -2, 0x12345678}));
  EXPECT_EQ(line.end, (point3d{kLowestLong, 5, 0x7FFFFFFF}));
}

TEST(LineString2DTest, ReadsLineStringsShapesCurvesAndConics) {
  for (const int type : {4, 6, 11, 13}) {
    const auto line_string = ReadBack<LineString2D>(type, kLineString2D);
    EXPECT_EQ(line_string.count, 3) << type;
    EXPECT_EQ(line_string.points, SampleLineString2D().points) << type;
  }
}

TEST(LineString2DTest, WritesLineStringsShapesCurvesAndConics) {
  for (const int type : {4, 6, 11, 13}) {
    EXPECT_EQ(Written(type, SampleLineString2D(), 13), Words(kLineString2D) + "\xFF\xFF") << type;
  }
}

TEST(LineString2DTest, ACountOfZeroReadsNoPoints) {
  const TempFile design(DesignOf(ElementBytes(4, "0000 0001 0002 0003 0004")));
  File file(design.Name(), kIn);
  LineString2D line_string = SampleLineString2D();
  line_string.Read(file);
  EXPECT_EQ(line_string.count, 0);
  EXPECT_TRUE(line_string.points.empty());
  EXPECT_TRUE(file.good());
}

TEST(LineString2DTest, ARefusedReadLeavesTheRecordAsItWas) {
  const TempFile design(DesignOf(ElementBytes(3, kLine2D)));
  File file(design.Name(), kIn);
  LineString2D line_string = SampleLineString2D();
  EXPECT_THROW(line_string.Read(file), BadTypeErr);
  EXPECT_EQ(line_string.count, 3);
  EXPECT_EQ(line_string.points.size(), 3U);
}

TEST(LineString2DTest, ACountBeyondTheElementFailsTheStreamAndKeepsThePointsThatAreThere) {
  // Two points and half of one in the element; another element follows.
  for (const char* count : {"0003", "FFFF"}) {
    const TempFile design(
        DesignOf(ElementBytes(4, std::string(count) + " 0000 0001 0000 0002 0000 0003 0000 0004 0000 0005") +
                 ElementBytes(3, kLine2D)));
    File file(design.Name(), kIn);
    const LineString2D line_string(file);
    EXPECT_TRUE(file.fail()) << count;
    EXPECT_FALSE(file.eof()) << count;
    EXPECT_EQ(line_string.count, 2) << count;
    EXPECT_EQ(line_string.points, (std::vector<point2d>{{1, 2}, {3, 4}})) << count;
  }
}

TEST(LineString2DTest, AnElementWithoutABodyHasNoPoints) {
  for (const int words : {13, 15, 16}) {
    const TempFile design(DesignOf(ElementBytes(4, kLineString2D, words)));
    File file(design.Name(), kIn);
    const LineString2D line_string(file);
    EXPECT_TRUE(file.fail()) << words;
    EXPECT_EQ(line_string.count, 0) << words;
  }
}

TEST(LineString2DTest, ACountBeyondTheFileFailsTheStreamAndKeepsThePointsThatAreThere) {
  const TempFile design(ElementBytes(4, "1000 0000 0001 0000 0002 0000 0003 0000", 0xFFFE));
  File file(design.Name(), kIn);
  const LineString2D line_string(file);
  EXPECT_TRUE(file.fail());
  EXPECT_EQ(line_string.count, 1);
  EXPECT_EQ(line_string.points, (std::vector<point2d>{{1, 2}}));
  EXPECT_LE(line_string.points.capacity(), 128U);  // not the 4096 of the file's count
}

TEST(LineString2DTest, TheLongestElementIsReadWhole) {
  // 8189 points are 32757 words; with the count and the words before it an element has room for them.
  std::string words = "1FFD ";
  for (int i = 0; i < 8189; ++i) words += "0000 0001 FFFF FFFF ";
  const auto line_string = ReadBack<LineString2D>(4, words);
  EXPECT_EQ(line_string.points, std::vector<point2d>(8189, point2d{1, -1}));
  EXPECT_EQ(Written(4, line_string, 1 + 4 * 8189), Words(words) + "\xFF\xFF");
}

TEST(LineString2DTest, ReadingAgainKeepsTheStorage) {
  const TempFile design(
      DesignOf(ElementBytes(4, kLineString2D) + ElementBytes(4, "0001 0000 0009 0000 0008")));
  File file(design.Name(), kIn);
  LineString2D line_string(file);
  const point2d* const storage = line_string.points.data();
  file.Next(false);
  line_string.Read(file);
  EXPECT_EQ(line_string.points, (std::vector<point2d>{{9, 8}}));
  EXPECT_EQ(line_string.points.data(), storage);
}

TEST(LineString2DTest, CopiesDoNotShareTheirPoints) {
  const LineString2D original = SampleLineString2D();
  LineString2D copy = original;
  copy.points[0].x = 99;
  EXPECT_EQ(original.points[0].x, 1);
}

TEST(LineString2DTest, MissingPointsAreWrittenAsZerosAndSurplusOnesAreNot) {
  LineString2D line_string;
  line_string.count = 2;
  line_string.points = {{1, 2}};
  EXPECT_EQ(Written(4, line_string, 9), Words("0002 0000 0001 0000 0002 0000 0000 0000 0000 FFFF"));
  line_string.count = 1;
  line_string.points = {{1, 2}, {3, 4}};
  EXPECT_EQ(Written(4, line_string, 5), Words("0001 0000 0001 0000 0002 FFFF"));
}

TEST(Ellipse2DTest, ReadsAxesRotationAndOrigin) {
  const auto ellipse = ReadBack<Ellipse2D>(15, kEllipse2D);
  EXPECT_EQ(ellipse.primary_axis, 1024.0);
  EXPECT_EQ(ellipse.secondary_axis, 3.0);
  EXPECT_EQ(ellipse.rotation, 450000);
  EXPECT_EQ(ellipse.origin, (dpoint2d{1.5, -2.5}));
}

TEST(Ellipse3DTest, StartsWithTheDefaultQuaternion) {
  EXPECT_EQ(Ellipse3D().rotation, (quaternion{1, 0, 0, 0}));
}

TEST(Ellipse3DTest, ReadsAxesRotationAndOrigin) {
  const auto ellipse = ReadBack<Ellipse3D>(15, kEllipse3D);
  EXPECT_EQ(ellipse.primary_axis, 1024.0);
  EXPECT_EQ(ellipse.secondary_axis, 3.0);
  EXPECT_EQ(ellipse.rotation, (quaternion{0x7FFFFFFF, 0, kLowestLong, 0x40000000}));
  EXPECT_EQ(ellipse.origin, (dpoint3d{1.5, -2.5, 1.0}));
}

TEST(Arc2DTest, ReadsAnglesAxesRotationAndOrigin) {
  const auto arc = ReadBack<Arc2D>(16, kArc2D);
  EXPECT_EQ(arc.start_angle, kLowestLong + 360000);
  EXPECT_EQ(arc.sweep_angle, 7);
  EXPECT_EQ(arc.primary_axis, 1024.0);
  EXPECT_EQ(arc.secondary_axis, 3.0);
  EXPECT_EQ(arc.rotation, 450000);
  EXPECT_EQ(arc.origin, (dpoint2d{1.5, -2.5}));
}

TEST(ComplexStrHTest, ReadsAndWritesStringsAndShapes) {
  for (const int type : {12, 14}) {
    const auto header = ReadBack<ComplexStrH>(type, kComplexStrH);
    EXPECT_EQ(header.words, 40) << type;
    EXPECT_EQ(header.components, 3) << type;
    EXPECT_EQ(Written(type, SampleComplexStrH(), 2), Words(kComplexStrH) + "\xFF\xFF") << type;
  }
}

}  // namespace
