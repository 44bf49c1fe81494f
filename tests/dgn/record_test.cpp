#include <pelor/dgn/elements.h>
#include <pelor/dgn/errors.h>
#include <pelor/dgn/file.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <ios>
#include <string>
#include <string_view>
#include <tests/dgn/element_bytes.h>
#include <tests/dgn/record_samples.h>
#include <tests/dgn/reported.h>
#include <tests/dgn/words.h>
#include <type_traits>

// What all element records do alike.

namespace {

using namespace Pelor::DGN;
using namespace dgn_test;

constexpr auto kIn = std::ios_base::in;
constexpr auto kInOut = std::ios_base::in | std::ios_base::out;

template <class Record>
struct Case;

#define CASE(RECORD, TYPE, ...)                           \
  template <>                                             \
  struct Case<RECORD> {                                   \
    static constexpr int kType = TYPE;                    \
    static constexpr int kOtherTypes[] = {__VA_ARGS__};   \
    static constexpr std::string_view kWords = k##RECORD; \
    static RECORD Sample() { return Sample##RECORD(); }   \
  }
CASE(Line2D, 3, 2, 4);
CASE(Line3D, 3, 2, 4);
CASE(LineString2D, 4, 3, 12, 14, 22);
CASE(Ellipse2D, 15, 14, 16);
CASE(Ellipse3D, 15, 14, 16);
CASE(Arc2D, 16, 15, 17);
CASE(Text2D, 17, 7, 16);
CASE(ComplexStrH, 12, 2, 13, 18);
#undef CASE

template <class Record>
class RecordTest : public testing::Test, protected Case<Record> {};
using Records =
    testing::Types<Line2D, Line3D, LineString2D, Ellipse2D, Ellipse3D, Arc2D, Text2D, ComplexStrH>;
TYPED_TEST_SUITE(RecordTest, Records);

TYPED_TEST(RecordTest, WritesItsFieldsInOrderAndNothingElse) {
  std::string expected = Words(this->kWords);
  const std::size_t words = expected.size() / 2;
  expected += "\xFF\xFF";
  // The bytes of a text with an odd number of characters end inside a word.
  if constexpr (std::is_same_v<TypeParam, Text2D>) expected[expected.size() - 3] = '\xFF';
  EXPECT_EQ(Written(this->kType, this->Sample(), words), expected);
}

TYPED_TEST(RecordTest, WhatWasReadIsWrittenAsItWas) {
  const auto record = ReadBack<TypeParam>(this->kType, this->kWords);
  const std::size_t words = Words(this->kWords).size() / 2;
  EXPECT_EQ(Written(this->kType, record, words), Written(this->kType, this->Sample(), words));
}

TYPED_TEST(RecordTest, WritingRefusesOtherTypes) {
  for (const int type : this->kOtherTypes) {
    const std::string bytes = ElementBytes(type, this->kWords) + "\xFF\xFF";
    const TempFile design(bytes);
    const Texts reported = Reported([&design] {
      File file(design.Name(), kInOut);
      TypeParam().Write(file);
      EXPECT_TRUE(file.good());
    });
    EXPECT_EQ(reported, Texts{"Incorrect Element Type"}) << type;
    EXPECT_EQ(design.Content(), bytes) << type;
  }
}

/// All but the lenient Line2D.
template <class Record>
class StrictRecordTest : public RecordTest<Record> {};
using StrictRecords = testing::Types<Line3D, LineString2D, Ellipse2D, Ellipse3D, Arc2D, Text2D, ComplexStrH>;
TYPED_TEST_SUITE(StrictRecordTest, StrictRecords);

TYPED_TEST(StrictRecordTest, ReadingRefusesOtherTypes) {
  for (const int type : this->kOtherTypes) {
    const TempFile design(DesignOf(ElementBytes(type, this->kWords)));
    File file(design.Name(), kIn);
    const std::streampos position = file.tellg();
    EXPECT_THROW(TypeParam().Read(file), BadTypeErr) << type;
    EXPECT_EQ(Reported([&file] { TypeParam().Read(file); }), Texts{"Incorrect Element Type"}) << type;
    EXPECT_EQ(file.tellg(), position) << type;
    EXPECT_TRUE(file.good()) << type;
  }
}

TYPED_TEST(RecordTest, WritingAtTheEndOfTheDesignIsRefused) {
  const TempFile design(DesignOf(""));
  const Texts reported = Reported([&design] {
    File file(design.Name(), kInOut);
    TypeParam().Write(file);
  });
  EXPECT_EQ(reported, Texts{"Incorrect Element Type"});
  EXPECT_EQ(design.Content(), "\xFF\xFF");
}

TYPED_TEST(RecordTest, AFileCutAnywhereFailsTheStreamAndNothingElse) {
  const std::string whole = ElementBytes(this->kType, this->kWords);
  // Of the text's last word only the low byte, which pads the fields when written, is not read.
  const std::size_t needed = whole.size() - (std::is_same_v<TypeParam, Text2D> ? 2 : 0);
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    const TempFile design(whole.substr(0, size));
    File file(design.Name(), kIn);
    (void)Reported([&file] { TypeParam().Read(file); });
    EXPECT_EQ(file.fail(), size < needed) << size;
  }
}

TYPED_TEST(RecordTest, AnyBitOfTheHeaderAndTheBodyMayBeWrong) {
  const std::string whole = ElementBytes(this->kType, this->kWords) + "\xFF\xFF";
  for (std::size_t bit = 0; bit < 8 * whole.size(); ++bit) {
    std::string damaged = whole;
    damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ 1 << bit % 8);
    const TempFile design(damaged);
    File file(design.Name(), kIn);
    TypeParam record;
    (void)Reported([&] { record.Read(file); });
    if constexpr (std::is_same_v<TypeParam, LineString2D>) {
      EXPECT_EQ(record.count, record.points.size()) << bit;
      EXPECT_LE(record.count, 3) << bit;
    }
  }
}

}  // namespace
