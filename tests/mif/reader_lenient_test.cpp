#include <pelor/mi/objects.h>
#include <pelor/mif/object_clauses.h>
#include <pelor/mif/reader.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/mif/mif_text.h>
#include <tests/mif/pair_files.h>
#include <vector>

namespace {

using namespace Pelor;

const std::string kHeader = "Version 650\nColumns 1\n a Integer\nData\n\n";

class LenientReaderTest : public PairFiles {
 protected:
  // The objects behind the header's five lines, each with a colon and its value, and what was skipped: the
  // line, the word, and an exclamation mark for an object.
  void Read(const std::string& data, const std::string& mid) {
    PutPair(kHeader + data, mid);
    iMIF in;
    in.SetLenient(true);
    in.Open(Path("pair"));
    objects.clear();
    skipped.clear();
    for (in.Reset(); in.IsValid(); in.Next()) {
      std::string clause = MifText([&](std::ostream& out) { MIF::Write(in.GetObj(), out); });
      objects.push_back(clause.substr(0, clause.find('\n')) + ":" + in.GetAttribute(0).str());
      clauses.push_back(clause);
    }
    for (const iMIF::SkippedPart& part : in.Skipped()) {
      skipped.push_back(std::to_string(part.line) + " " + part.word.str() + (part.is_object ? "!" : ""));
    }
  }

  std::vector<std::string> objects;
  std::vector<std::string> clauses;
  std::vector<std::string> skipped;
};

using Texts = std::vector<std::string>;

TEST_F(LenientReaderTest, IsOffByDefaultAndKept) {
  iMIF in;
  EXPECT_FALSE(in.GetLenient());
  in.SetLenient(true);
  PutPair(kHeader, "");
  in.Open(Path("pair"));
  EXPECT_TRUE(in.GetLenient());
  in.Close();
  EXPECT_TRUE(in.GetLenient());
}

TEST_F(LenientReaderTest, ClausesComeInAnyOrder) {
  Read(
      "Text \"a\" 1 2 3 4\n Font (\"Arial\",0,0,0)\n Spacing 2\n Justify Right\n Angle 30\n"
      " Label Line Simple 5 6\nRect 1 2 3 4\n Brush (5,255) Pen (3,2,0)\nPLine 2\n1 1\n2 2\n Smooth\n Pen "
      "(3,2,0)\n",
      "1\n2\n3\n");
  EXPECT_EQ(skipped, Texts());
  EXPECT_EQ(
      clauses,
      (Texts{"Text \"a\"\n 1 2 3 4\n Font (\"Arial\", 0, 0, 0)\n  Angle 30\n  Justify Right\n  Spacing 2\n"
             "  Label Line Simple 5 6\n\n",
             "Rect 1 2 3 4\n Pen (3,2,0) Brush (5,255)\n", "PLine 2\n 1 1\n 2 2\n Pen (3,2,0)\n Smooth\n"}));
}

TEST_F(LenientReaderTest, UnknownObjectIsSkippedWithItsRow) {
  Read("Point 1 1\nMultipoint 2\n5 5\n6 6\n Symbol (32,0,8)\nPoint 2 2\n", "1\n2\n3\n");
  EXPECT_EQ(objects, (Texts{"Point 1 1:1", "Point 2 2:3"}));
  EXPECT_EQ(skipped, Texts{"7 Multipoint!"});
}

TEST_F(LenientReaderTest, EachOfSeveralUnknownObjectsHasItsRow) {
  Read("MULTIPOINT 1\n5 5\nmultipoint 1\n6 6\nPoint 1 1\nCollection 0\nMultipoint 1\n7 7\n",
       "1\n2\n3\n4\n5\n");
  EXPECT_EQ(objects, Texts{"Point 1 1:3"});
  EXPECT_EQ(skipped, (Texts{"6 MULTIPOINT!", "8 multipoint!", "11 Collection!", "12 Multipoint!"}));
}

TEST_F(LenientReaderTest, CollectionTakesItsPartsAlong) {
  const std::string collection =
      "Collection 3\nRegion 1\n3\n0 0\n1 1\n1 0\n Pen (1,2,0)\nPLine 2\n0 0\n1 1\nMultipoint 1\n5 5\n";
  Read(collection + "Region 1\n3\n0 0\n1 1\n1 0\n", "1\n2\n");
  EXPECT_EQ(objects, Texts{"Region 1:2"});
  EXPECT_EQ(skipped, Texts{"6 Collection!"});
  Read("Collection 3\nPoint 1 1\n", "1\n2\n");
  EXPECT_EQ(objects, Texts{"Point 1 1:2"});
}

TEST_F(LenientReaderTest, AnyOtherWordIsAnUnknownObjectToo) {
  Read("Sphere 1 2 3\n deeper\nPoint 1 1\n", "1\n2\n");
  EXPECT_EQ(objects, Texts{"Point 1 1:2"});
  EXPECT_EQ(skipped, Texts{"6 Sphere!"});
}

TEST_F(LenientReaderTest, OnlyWordsThatBeginALineEndTheSkipping) {
  Read("Sphere point 1 1\n1 Point 2 2\n  Point 3 3\n", "1\n2\n");
  EXPECT_EQ(objects, Texts{"Point 3 3:2"});
}

TEST_F(LenientReaderTest, UnknownObjectAtTheEndIsSkipped) {
  Read("Point 1 1\nMultipoint 1\n5 5\n", "1\n2\n");
  EXPECT_EQ(objects, Texts{"Point 1 1:1"});
  EXPECT_EQ(skipped, Texts{"7 Multipoint!"});
}

TEST_F(LenientReaderTest, RestOfAMalformedObjectCostsNoRow) {
  std::vector<std::string> messages;
  const Tobri::Error::ScopedHandler guard(
      [&](const Tobri::Error::Msg& message) { messages.emplace_back(message.what()); });
  Read("Line 1 2 3 x\n Pen (1,2,0)\nPLine 3\n1 1\n2 2\n3 oops\n Pen (1,2,0)\nPoint 1 1\n", "1\n2\n3\n");
  EXPECT_EQ(objects, (Texts{"Line 1 2 3 0:1", "PLine 2:2", "Point 1 1:3"}));
  EXPECT_EQ(skipped, (Texts{"6 x", "11 oops"}));
}

TEST_F(LenientReaderTest, ClauseOfAnotherKindCostsNoRow) {
  Read("Point 1 1\n Pen (1,2,0)\nPoint 2 2\n", "1\n2\n");
  EXPECT_EQ(objects, (Texts{"Point 1 1:1", "Point 2 2:2"}));
  EXPECT_EQ(skipped, Texts{"7 Pen"});
}

TEST_F(LenientReaderTest, MissingMidFileGivesEmptyRows) {
  Put("pair.mif", kHeader + "Point 1 1\nPoint 2 2\n");
  iMIF in;
  in.SetLenient(true);
  in.Open(Path("pair"));
  EXPECT_TRUE(in.IsValid());
  EXPECT_EQ(in.GetNAttributes(), 0);
}

TEST_F(LenientReaderTest, MissingMifFileIsMissing) {
  Put("pair.mid", "1\n2\n");
  iMIF in;
  in.SetLenient(true);
  in.Open(Path("pair"));
  EXPECT_FALSE(in.IsValid());
}

TEST_F(LenientReaderTest, ListStartsAnewWithTheFirstObject) {
  PutPair(kHeader + "Multipoint 1\n5 5\nPoint 1 1\n", "1\n2\n");
  iMIF in;
  in.SetLenient(true);
  in.Open(Path("pair"));
  in.Reset();
  in.Reset();
  EXPECT_EQ(in.Skipped().size(), 1U);
  in.Close();
  EXPECT_TRUE(in.Skipped().empty());
}

TEST_F(LenientReaderTest, StrictReaderListsNothing) {
  PutPair(kHeader + "Multipoint 1\n5 5\nPoint 1 1\n", "1\n2\n");
  iMIF in(Path("pair"));
  in.Reset();
  EXPECT_FALSE(in.IsValid());
  EXPECT_TRUE(in.Skipped().empty());
}

}  // namespace
