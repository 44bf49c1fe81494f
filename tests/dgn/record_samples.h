#pragma once

#include <pelor/dgn/elements.h>
#include <pelor/dgn/file.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <ios>
#include <limits>
#include <string>
#include <string_view>
#include <tests/dgn/element_bytes.h>
#include <tests/dgn/words.h>

// One sample of each element record, as the words of its body and as the record.

namespace dgn_test {

inline constexpr std::int32_t kLowestLong = std::numeric_limits<std::int32_t>::min();
inline constexpr std::size_t kBodyOffset = 36;  // where the displayable body begins in an element

// Doubles of the file.
#define TEXT_1024 "4580 0000 0000 0000 "
#define TEXT_3 "4140 0000 0000 0000 "
#define TEXT_1_5 "40C0 0000 0000 0000 "
#define TEXT_MINUS_2_5 "C120 0000 0000 0000 "
#define TEXT_1 "4080 0000 0000 0000 "

inline constexpr char kLine2D[] = "0000 0001 FFFF FFFE 1234 5678 8000 0000";
inline constexpr char kLine3D[] = "0000 0001 FFFF FFFE 1234 5678 8000 0000 0000 0005 7FFF FFFF";
inline constexpr char kLineString2D[] = "0003 0000 0001 0000 0002 FFFF FFFF FFFF FFFE 1234 5678 0ABC DEF0";
inline constexpr char kEllipse2D[] = TEXT_1024 TEXT_3 "0006 DDD0 " TEXT_1_5 TEXT_MINUS_2_5;
inline constexpr char kEllipse3D[] =
    TEXT_1024 TEXT_3 "7FFF FFFF 0000 0000 8000 0000 4000 0000 " TEXT_1_5 TEXT_MINUS_2_5 TEXT_1;
inline constexpr char kArc2D[] = "8005 7E40 0000 0007 " TEXT_1024 TEXT_3 "0006 DDD0 " TEXT_1_5 TEXT_MINUS_2_5;
// Font 7, justification 2, multipliers 6000 and 5000, a rotation, (100, -100), 5 characters, 3 fields;
// "Hello", the field bytes 1 to 9, one byte up to the word.
inline constexpr char kText2D[] =
    "0207 0000 1770 0000 1388 8000 0001 0000 0064 FFFF FF9C 0305 6548 6C6C 016F 0302 0504 0706 0908 0000";
inline constexpr char kComplexStrH[] = "0028 0003";

inline Pelor::DGN::Line2D SampleLine2D() {
  Pelor::DGN::Line2D line;
  line.start = {1, -2};
  line.end = {0x12345678, kLowestLong};
  return line;
}

inline Pelor::DGN::Line3D SampleLine3D() {
  Pelor::DGN::Line3D line;
  line.start = {1, -2, 0x12345678};
  line.end = {kLowestLong, 5, 0x7FFFFFFF};
  return line;
}

inline Pelor::DGN::LineString2D SampleLineString2D() {
  Pelor::DGN::LineString2D line_string;
  line_string.count = 3;
  line_string.points = {{1, 2}, {-1, -2}, {0x12345678, 0x0ABCDEF0}};
  return line_string;
}

inline Pelor::DGN::Ellipse2D SampleEllipse2D() {
  Pelor::DGN::Ellipse2D ellipse;
  ellipse.primary_axis = 1024.0;
  ellipse.secondary_axis = 3.0;
  ellipse.rotation = 450000;
  ellipse.origin = {1.5, -2.5};
  return ellipse;
}

inline Pelor::DGN::Ellipse3D SampleEllipse3D() {
  Pelor::DGN::Ellipse3D ellipse;
  ellipse.primary_axis = 1024.0;
  ellipse.secondary_axis = 3.0;
  ellipse.rotation = {0x7FFFFFFF, 0, kLowestLong, 0x40000000};
  ellipse.origin = {1.5, -2.5, 1.0};
  return ellipse;
}

inline Pelor::DGN::Arc2D SampleArc2D() {
  Pelor::DGN::Arc2D arc;
  arc.start_angle = kLowestLong + 360000;  // one degree, clockwise
  arc.sweep_angle = 7;
  arc.primary_axis = 1024.0;
  arc.secondary_axis = 3.0;
  arc.rotation = 450000;
  arc.origin = {1.5, -2.5};
  return arc;
}

inline Pelor::DGN::Text2D SampleText2D() {
  Pelor::DGN::Text2D text;
  text.font = 7;
  text.justification = 2;
  text.length_multiplier = 6000;
  text.height_multiplier = 5000;
  text.rotation = kLowestLong + 1;
  text.origin = {100, -100};
  text.char_count = 5;
  text.field_count = 3;
  text.text = "Hello";
  text.fields = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
  return text;
}

inline Pelor::DGN::ComplexStrH SampleComplexStrH() {
  Pelor::DGN::ComplexStrH header;
  header.words = 40;
  header.components = 3;
  return header;
}

/// What a record writes into an element of this type whose body is all bits set; one word more than expected
/// is looked at.
template <class Record>
std::string Written(int type, const Record& record, std::size_t words) {
  const TempFile design(DesignOf(ElementBytes(type, "FFFF*" + std::to_string(words + 1))));
  {
    Pelor::DGN::File file(design.Name(), std::ios_base::in | std::ios_base::out);
    record.Write(file);
    EXPECT_TRUE(file.good());
  }
  return design.Content().substr(kBodyOffset, 2 * words + 2);
}

template <class Record>
Record ReadBack(int type, std::string_view words) {
  const TempFile design(DesignOf(ElementBytes(type, words)));
  Pelor::DGN::File file(design.Name(), std::ios_base::in);
  const Record record(file);
  EXPECT_TRUE(file.good());
  return record;
}

}  // namespace dgn_test
