#include <pelor/mi/object_type.h>

#include <gtest/gtest.h>

#include <iterator>
#include <limits>

namespace Pelor::MI {
namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

TEST(ObjectTypeTest, EnumeratorsHaveTheCodesOfTheBodies) {
  EXPECT_EQ(WObjType_None, 0);
  EXPECT_EQ(WObjType_Point, 1);
  EXPECT_EQ(WObjType_Line, 2);
  EXPECT_EQ(WObjType_PLine, 3);
  EXPECT_EQ(WObjType_Region, 4);
  EXPECT_EQ(WObjType_Arc, 5);
  EXPECT_EQ(WObjType_Text, 6);
  EXPECT_EQ(WObjType_Rect, 7);
  EXPECT_EQ(WObjType_RRect, 8);
  EXPECT_EQ(WObjType_Ellipse, 9);
}

TEST(ObjectTypeTest, StylesSetOfEveryClass) {
  EXPECT_EQ(StylesSet(WObjClass_None), 0);
  EXPECT_EQ(StylesSet(WObjClass_Point), 1);
  EXPECT_EQ(StylesSet(WObjClass_Linear), 2);
  EXPECT_EQ(StylesSet(WObjClass_Area), 6);
  EXPECT_EQ(StylesSet(WObjClass_Text), 8);
  for (const int c : {kMin, -1, 5, 7, kMax}) EXPECT_EQ(StylesSet(static_cast<WObjClass>(c)), 0);
}

TEST(ObjectTypeTest, ClassOfEveryBody) {
  constexpr int kClasses[] = {0, 1, 2, 2, 3, 2, 4, 3, 3, 3};
  for (int t = 0; t < std::ssize(kClasses); ++t)
    EXPECT_EQ(GetWObjClass(static_cast<WObjType>(t)), kClasses[t]);
  for (const int t : {kMin, -1, 10, 45, kMax}) EXPECT_EQ(GetWObjClass(static_cast<WObjType>(t)), 0);
}

TEST(ObjectTypeTest, ClassOfEveryMapFileCode) {
  EXPECT_EQ(GetMObjClass(MObjType{0}), 0);
  EXPECT_EQ(GetMObjClass(MObjType{1}), 1);
  EXPECT_EQ(GetMObjClass(MObjType{2}), 1);
  EXPECT_EQ(GetMObjClass(MObjType{3}), 2);
  EXPECT_EQ(GetMObjClass(MObjType{4}), 2);
  for (int t = 1; t <= 45; ++t) EXPECT_EQ(GetMObjClass(static_cast<MObjType>(t)), t / 3 + 1) << t;
  EXPECT_EQ(GetMObjClass(MObjType{45}), 16);
}

TEST(ObjectTypeTest, ClassOfAnyOtherCodeIsReckonedTheSameWay) {
  EXPECT_EQ(GetMObjClass(static_cast<MObjType>(300)), 101);
  EXPECT_EQ(GetMObjClass(static_cast<MObjType>(-2)), 1);
  EXPECT_EQ(GetMObjClass(static_cast<MObjType>(-3)), 0);
  EXPECT_EQ(GetMObjClass(static_cast<MObjType>(kMax)), kMax / 3 + 1);
  EXPECT_EQ(GetMObjClass(static_cast<MObjType>(kMin)), kMin / 3 + 1);
}

TEST(ObjectTypeTest, StorageVariantsRunFrom1To3) {
  EXPECT_EQ(GetMObjStorage(MObjType{0}), 0);
  EXPECT_EQ(GetMObjStorage(MObjType{1}), 1);
  EXPECT_EQ(GetMObjStorage(MObjType{2}), 2);
  EXPECT_EQ(GetMObjStorage(MObjType{3}), 3);
  for (int t = 4; t <= 45; ++t) {
    EXPECT_EQ(GetMObjStorage(static_cast<MObjType>(t)), GetMObjStorage(static_cast<MObjType>(t - 3)));
  }
  for (const int t : {kMin, -1, 46, 47, kMax}) EXPECT_EQ(GetMObjStorage(static_cast<MObjType>(t)), 0);
}

TEST(ObjectTypeTest, BodyOfEveryMapFileClass) {
  constexpr int kTypes[] = {0, 1, 2, 3, 5, 4, 6, 7, 8, 9, 0, 0, 0, 3, 1, 1, 45};
  for (int c = 0; c < std::ssize(kTypes); ++c)
    EXPECT_EQ(GetWObjType(static_cast<MObjClass>(c)), kTypes[c]) << c;
  for (const int c : {kMin, -1, 17, kMax}) EXPECT_EQ(GetWObjType(static_cast<MObjClass>(c)), 0);
}

}  // namespace
}  // namespace Pelor::MI
