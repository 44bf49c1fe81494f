#include <pelor/dgn/coordinates.h>
#include <pelor/dgn/file.h>
#include <pelor/dgn/rotation.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <ios>
#include <limits>
#include <string>
#include <string_view>
#include <tests/dgn/element_bytes.h>
#include <tests/dgn/words.h>

namespace {

using namespace Pelor::DGN;
using dgn_test::DesignOf;
using dgn_test::ElementBytes;
using dgn_test::TempFile;
using dgn_test::Words;

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();

/// Reads a record from the begin of a body of these words and checks how many bytes that took.
template <class Record>
Record ReadFrom(std::string_view words, std::streamoff bytes) {
  const TempFile design(DesignOf(ElementBytes(3, words)));
  File file(design.Name(), std::ios_base::in);
  file.DEBodyRPosition(0);
  const std::streamoff begin = file.tellg();
  Record record;
  record.read(file);
  EXPECT_TRUE(file.good());
  EXPECT_EQ(file.tellg() - begin, bytes);
  return record;
}

/// The body of 16 words, all bits set, into which the record was written.
template <class Record>
std::string Written(const Record& record) {
  const TempFile design(DesignOf(
      ElementBytes(3, "FFFF FFFF FFFF FFFF FFFF FFFF FFFF FFFF FFFF FFFF FFFF FFFF FFFF FFFF FFFF FFFF")));
  {
    File file(design.Name(), std::ios_base::in | std::ios_base::out);
    file.DEBodyWPosition(0);
    record.write(file);
    EXPECT_TRUE(file.good());
  }
  return design.Content().substr(36, 32);
}

/// The bytes of the words, filled up to 32 with set bits.
std::string Body(std::string_view words) {
  std::string bytes = Words(words);
  bytes.resize(32, '\xFF');
  return bytes;
}

TEST(Point2dTest, IsEightBytes) {
  EXPECT_EQ(ReadFrom<point2d>("1234 5678 FFFF FFFE FFFF", 8), (point2d{0x12345678, -2}));
  EXPECT_EQ(Written(point2d{0x12345678, -2}), Body("1234 5678 FFFF FFFE"));
}

TEST(Point3dTest, IsTwelveBytes) {
  EXPECT_EQ(ReadFrom<point3d>("1234 5678 FFFF FFFE 8000 0000 FFFF", 12), (point3d{0x12345678, -2, kLowest}));
  EXPECT_EQ(Written(point3d{0x12345678, -2, kLowest}), Body("1234 5678 FFFF FFFE 8000 0000"));
}

TEST(DPoint2dTest, IsSixteenBytes) {
  constexpr char kWords[] = "4080 0000 0000 0000 C120 0000 0000 0000";
  EXPECT_EQ(ReadFrom<dpoint2d>(kWords, 16), (dpoint2d{1.0, -2.5}));
  EXPECT_EQ(Written(dpoint2d{1.0, -2.5}), Body(kWords));
}

TEST(DPoint3dTest, IsTwentyFourBytes) {
  constexpr char kWords[] = "4080 0000 0000 0000 C120 0000 0000 0000 4140 0000 0000 0000";
  EXPECT_EQ(ReadFrom<dpoint3d>(kWords, 24), (dpoint3d{1.0, -2.5, 3.0}));
  EXPECT_EQ(Written(dpoint3d{1.0, -2.5, 3.0}), Body(kWords));
}

TEST(QuaternionTest, IsSixteenBytes) {
  constexpr char kWords[] = "7FFF FFFF 0000 0001 FFFF FFFF 8000 0000";
  EXPECT_EQ(ReadFrom<quaternion>(kWords, 16), (quaternion{0x7FFFFFFF, 1, -1, kLowest}));
  EXPECT_EQ(Written(quaternion{0x7FFFFFFF, 1, -1, kLowest}), Body(kWords));
}

TEST(StoredTransTest, Trans2DReadsEightBytesIntoItsFirstColumn) {
  const auto t = ReadFrom<trans2D>("0001 0002 0003 0004 0005 0006 0007 0008", 8);
  EXPECT_EQ(t.m[0][0], 0x00010002);
  EXPECT_EQ(t.m[1][0], 0x00030004);
  EXPECT_EQ(t.m[0][1], 0);
  EXPECT_EQ(t.m[1][1], 0);
}

TEST(StoredTransTest, Trans2DWritesItsFirstColumnAsEightBytes) {
  trans2D t;
  t.m[0][0] = 0x00010002;
  t.m[0][1] = 9;
  t.m[1][0] = 0x00030004;
  t.m[1][1] = 9;
  EXPECT_EQ(Written(t), Body("0001 0002 0003 0004"));
}

TEST(StoredTransTest, Trans3DReadsTwelveBytesIntoItsFirstColumn) {
  const auto t = ReadFrom<trans3D>("0001 0002 0003 0004 0005 0006 0007 0008", 12);
  EXPECT_EQ(t.m[0][0], 0x00010002);
  EXPECT_EQ(t.m[1][0], 0x00030004);
  EXPECT_EQ(t.m[2][0], 0x00050006);
  for (int row = 0; row < 3; ++row) {
    EXPECT_EQ(t.m[row][1], 0);
    EXPECT_EQ(t.m[row][2], 0);
  }
}

TEST(StoredTransTest, Trans3DWritesItsFirstColumnAsTwelveBytes) {
  trans3D t;
  for (auto& row : t.m) {
    for (std::int32_t& entry : row) entry = 9;
  }
  t.m[0][0] = 0x00010002;
  t.m[1][0] = 0x00030004;
  t.m[2][0] = 0x00050006;
  EXPECT_EQ(Written(t), Body("0001 0002 0003 0004 0005 0006"));
}

TEST(PointTest, WhatTheFileLacksStaysAsItWas) {
  const std::string whole = ElementBytes(3, "0000 0001 0000 0002");
  const TempFile design(whole.substr(0, whole.size() - 1));
  File file(design.Name(), std::ios_base::in);
  file.DEBodyRPosition(0);
  point2d point{7, 8};
  point.read(file);
  EXPECT_EQ(point, (point2d{1, 8}));
  EXPECT_TRUE(file.fail());
}

}  // namespace
