#include <pelor/mi/objects.h>
#include <pelor/mif/object_clauses.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/mif/mif_text.h>
#include <vector>

namespace {

using namespace Pelor;
using namespace Pelor::MI;
using Vanth::Angle;
using Vanth::PointXY;
using Vanth::RectXY;

// One object out of a text: its own clause again, the messages, and what was left unread.
struct Result {
  std::string clause;
  std::vector<std::string> messages;
  std::string rest;
};

WObjRf<WObjBody> ReadOne(Mif& mif) {
  WObjRf<WObjBody> object;
  MIF::Read(object, mif.in, nullptr);
  return object;
}

Result Read(const std::string& text) {
  Mif mif(text);
  const WObjRf<WObjBody> object = ReadOne(mif);
  Result result;
  if (object != nullptr) result.clause = MifText([&](std::ostream& out) { MIF::Write(object, out); });
  result.messages = mif.messages;
  result.rest = mif.Rest();
  return result;
}

const std::string kDefaultFont = " Font (\"MS Sans Serif\", 0, 0, 0)\n";

TEST(ReadObjectTest, EveryClauseIsReadAsItIsWritten) {
  for (const std::string clause :
       {"None\n", "Point 12.5 -3\n Symbol (35,16711680,12)\n", "Line 1 2 3.25 4e+20\n Pen (3,2,16711680)\n",
        "PLine 3\n 0 0.5\n 1 -1\n 2 0.5\n Pen (3,2,16711680)\n",
        "PLine Multiple 2\n 4\n 4 0\n 4 1\n 4 2\n 4 3\n 2\n 2 0\n 2 1\n Pen (3,2,16711680)\n Smooth\n",
        "Region 2\n 4\n 0 0\n 4 0\n 4 4\n 0 0\n 4\n 1 1\n 2 1\n 2 2\n 1 1\n Pen (3,2,16711680)\n"
        " Brush (5,255)\n Center 1.75 1.125\n",
        "Rect 1 2 3 4\n Pen (3,2,16711680) Brush (5,255)\n",
        "RoundRect 1 2 3 4\n 0.25\n Pen (3,2,16711680) Brush (5,255)\n",
        "Ellipse 1 2 3 4\n Pen (3,2,16711680) Brush (5,255)\n", "Arc 1 2 3 4\n 270 45\n Pen (3,2,16711680)\n",
        "Text \"Main Street\"\n 1 2 3 4\n Font (\"Arial\", 1, 0, 255)\n  Angle 330\n  Justify Center\n"
        "  Spacing 1.5\n  Label Line Arrow 5 6.5\n\n",
        "Text \"He said \"\"hi\"\"\" 1 2 3 4\n Font (\"Arial\", 1, 0, 255)\n  Justify Right\n  Spacing 2\n"
        "  Label Line Simple 5 6.5\n\n"}) {
    const Result result = Read(clause + "Line");
    EXPECT_EQ(result.clause, clause);
    EXPECT_EQ(result.messages, std::vector<std::string>()) << clause;
    EXPECT_NE(result.rest.find("Line"), std::string::npos) << clause;
    EXPECT_EQ(result.rest.find_first_not_of("\n "), result.rest.find("Line")) << clause;
  }
}

TEST(ReadObjectTest, WordThatIsNoObjectGivesNullAndIsLeftUnread) {
  for (const std::string text :
       {"Columns 2", "  Columns", "Multipoint 3", "", "  \n", "12 13", "(", "Pen (1,2,0)"}) {
    const Result result = Read(text);
    EXPECT_EQ(result.clause, "") << text;
    EXPECT_EQ(result.messages, std::vector<std::string>()) << text;
    EXPECT_EQ(result.rest, text);
  }
}

TEST(ReadObjectTest, ObjectIsReplacedEvenIfNoneFollows) {
  Mif mif("Point 1 2\nColumns");
  WObjRf<WObjBody> object = ReadOne(mif);
  ASSERT_NE(object, nullptr);
  MIF::Read(object, mif.in, nullptr);
  EXPECT_EQ(object, nullptr);
}

TEST(ReadObjectTest, EachOfSeveralNonesIsAnObject) {
  Mif mif("None\nNone\nNONE\n");
  for (int i = 0; i < 3; ++i) EXPECT_NE(ReadOne(mif), nullptr) << i;
  EXPECT_EQ(ReadOne(mif), nullptr);
}

TEST(ReadObjectTest, ObjectHasTheCoordinateSystemGiven) {
  Tobri::IRefC<CoordSys> system(new CoordSys());
  Mif mif("Point 1 2\n");
  WObjRf<WObjBody> object;
  MIF::Read(object, mif.in, system);
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(object->GetWSys(), system);
}

TEST(ReadObjectTest, KeywordIsOptionalForTheBody) {
  for (const std::string keyword : {"", "Rect ", "rECT\n"}) {
    Mif mif(keyword + "1 2 3 4\n Pen (3,2,0)\n");
    WRectObj rect{Tobri::IRefC<CoordSys>()};
    rect->ReadMIF(mif.in);
    EXPECT_EQ(rect->GetRect().x2, 3) << keyword;
    EXPECT_EQ(rect->GetPen().width, 3) << keyword;
  }
}

TEST(ReadObjectTest, LayoutIsFree) {
  const std::string clause = "Rect 1 2 3 4\n Pen (3,2,16711680) Brush (5,255)\n";
  for (const std::string text : {"RECT 1 2 3 4 PEN (3,2,16711680) BRUSH (5,255)\n",
                                 "rect\t1,2,3,4\r\npen(3, 2, 16711680)\r\nbrush(5, 255)\r\n",
                                 "Rect\n1\n2\n3\n4\n\n\n  Pen  (3,2,16711680)\rBrush\t(5,255)\r",
                                 "Rect +1 0.2e1 3. 40e-1\nPen(3,2,16711680)Brush(5,255)",
                                 "\n\r\n  Rect 1,2 3, 4 Pen (3,2,16711680)\n\n\n\nBrush (5,255)"}) {
    const Result result = Read(text);
    EXPECT_EQ(result.clause, clause) << text;
    EXPECT_EQ(result.messages, std::vector<std::string>()) << text;
  }
}

TEST(ReadObjectTest, CountsMayStandOnTheNextLine) {
  EXPECT_EQ(Read("PLine\n2\n0 0\n1 1\nPen (1,2,0)\n").clause, "PLine 2\n 0 0\n 1 1\n Pen (1,2,0)\n");
  EXPECT_EQ(Read("PLine\nMultiple\n1\n2\n0 0\n1 1\nPen (1,2,0)\n").clause,
            "PLine 2\n 0 0\n 1 1\n Pen (1,2,0)\n");
  EXPECT_EQ(Read("Region\n1\n3 0 0 1 1 1 0\nCenter 1 1\n").clause,
            "Region 1\n 4\n 0 0\n 1 1\n 1 0\n 0 0\n Pen (1,2,0)\n Brush (2,16777215,0)\n Center 1 1\n");
}

TEST(ReadObjectTest, NumbersBehindThoseOfTheKindAreSkipped) {
  EXPECT_EQ(Read("Point 1 2 7 8\n Symbol (35,0,12)\n").clause, "Point 1 2\n Symbol (35,0,12)\n");
  EXPECT_EQ(Read("Line 1 2 3 4 7\n Pen (3,2,0)\n").clause, "Line 1 2 3 4\n Pen (3,2,0)\n");
}

TEST(ReadObjectTest, LineWithoutPenIsInvisible) {
  EXPECT_EQ(Read("Line 1 2 3 4\n").clause, "Line 1 2 3 4\n Pen (0,1,0)\n");
}

TEST(ReadObjectTest, OtherKindsWithoutStyleHaveTheirDefaults) {
  EXPECT_EQ(Read("Point 1 2\n").clause, "Point 1 2\n Symbol (32,0,8)\n");
  EXPECT_EQ(Read("PLine 2 0 0 1 1\n").clause, "PLine 2\n 0 0\n 1 1\n Pen (1,2,0)\n");
  EXPECT_EQ(Read("Arc 1 2 3 4 5 6\n").clause, "Arc 1 2 3 4\n 5 6\n Pen (1,2,0)\n");
  for (const std::string kind : {"Rect 1 2 3 4\n", "Ellipse 1 2 3 4\n", "RoundRect 1 2 3 4\n 5\n"}) {
    EXPECT_EQ(Read(kind).clause, kind + " Pen (1,2,0) Brush (2,16777215,0)\n");
  }
  EXPECT_EQ(Read("Text \"a\" 1 2 3 4\n").clause, "Text \"a\"\n 1 2 3 4\n" + kDefaultFont + "\n");
}

TEST(ReadObjectTest, StyleOfAUsedBodyIsResetOnlyWhereItSaysSo) {
  const Pen pen{5, 3, 0, SLUnits_Pixel, false};
  const Brush brush{5, 0xFF0000, -1};
  Mif point_text("1 2\n");
  WPointObj point({0, 0}, nullptr, StdSymbol{40, 0, 9, SLUnits_Point});
  point->ReadMIF(point_text.in);
  EXPECT_EQ(point->GetSymbol(), Symbol());

  Mif region_text("1 3 0 0 1 1 1 0\n");
  WRegionObj region(nullptr, pen, brush);
  region->ReadMIF(region_text.in);
  EXPECT_EQ(region->GetPen(), Pen());
  EXPECT_EQ(region->GetBrush(), brush);

  Mif rect_text("1 2 3 4\n");
  WRectObj rect(RectXY{}, nullptr, pen, brush);
  rect->ReadMIF(rect_text.in);
  EXPECT_EQ(rect->GetPen(), pen);
  EXPECT_EQ(rect->GetBrush(), brush);
}

TEST(ReadObjectTest, UsedTextIsResetBeforeItsClauses) {
  WTextObj text("old", RectXY{}, nullptr, Font::None());
  text->SetAngle(Angle(1.0));
  text->SetJustification(2);
  text->SetSpacing(2);
  text->SetLabelKind(2);
  Mif mif("Text \"new\" 1 2 4 8\n");
  text->ReadMIF(mif.in);
  EXPECT_EQ(text->GetText(), "new");
  EXPECT_EQ(text->GetFont(), Font());
  EXPECT_EQ(text->GetAngle(), Angle());
  EXPECT_EQ(text->GetJustification(), 0);
  EXPECT_EQ(text->GetSpacing(), 0);
  EXPECT_EQ(text->GetLabelKind(), 0);
  EXPECT_EQ(text->GetLabelPoint(), (PointXY{2.5, 5}));
}

TEST(ReadObjectTest, ClauseOutOfOrderEndsTheObjectAndIsLeftUnread) {
  const Result rect = Read("Rect 1 2 3 4\n Brush (5,255)\n Pen (3,2,0)\n");
  EXPECT_EQ(rect.clause, "Rect 1 2 3 4\n Pen (1,2,0) Brush (5,255)\n");
  EXPECT_EQ(rect.rest, "\n Pen (3,2,0)\n");

  EXPECT_EQ(Read("PLine 2 0 0 1 1\n Smooth\n Pen (3,2,0)\n").rest, "\n Pen (3,2,0)\n");
  EXPECT_EQ(Read("Region 0\n Center 1 1\n Brush (5,255)\n").rest, "\n Brush (5,255)\n");
  EXPECT_EQ(Read("Text \"a\" 1 2 3 4\n Spacing 2\n Justify Right\n").rest, "\n Justify Right\n");
  EXPECT_EQ(Read("Point 1 2\n Pen (3,2,0)\n").rest, "\n Pen (3,2,0)\n");
  EXPECT_EQ(Read("Line 1 2 3 4\n Pen (3,2,0) Pen (4,2,0)\n").rest, " Pen (4,2,0)\n");
}

TEST(ReadObjectTest, SpacingIsOneOfThree) {
  const auto spacing = [](const std::string& number) {
    Mif mif("Text \"a\" 1 2 3 4\n Spacing " + number + "\n");
    return WTextObj(ReadOne(mif))->GetSpacing();
  };
  EXPECT_EQ(spacing("1"), 0);
  EXPECT_EQ(spacing("1.0"), 0);
  EXPECT_EQ(spacing("1.39"), 0);
  EXPECT_EQ(spacing("1.4"), 1);
  EXPECT_EQ(spacing("1.5"), 1);
  EXPECT_EQ(spacing("1.69"), 1);
  EXPECT_EQ(spacing("1.7"), 2);
  EXPECT_EQ(spacing("2"), 2);
  EXPECT_EQ(spacing("-5"), 0);
}

TEST(ReadObjectTest, JustificationHasThreeWords) {
  const auto justification = [](const std::string& word) {
    Mif mif("Text \"a\" 1 2 3 4\n Justify " + word + "\n");
    return WTextObj(ReadOne(mif))->GetJustification();
  };
  EXPECT_EQ(justification("Left"), 0);
  EXPECT_EQ(justification("CENTER"), 1);
  EXPECT_EQ(justification("right"), 2);
}

TEST(ReadObjectTest, AngleIsInDegrees) {
  Mif mif("Text \"a\" 1 2 3 4\n Angle 180\n");
  EXPECT_DOUBLE_EQ(WTextObj(ReadOne(mif))->GetAngle()(Angle::Radians, Angle::AsStored),
                   3.14159265358979323846);
  Mif arc("Arc 1 2 3 4 -90 450\n");
  const WArcObj read(ReadOne(arc));
  EXPECT_DOUBLE_EQ(read->GetStartAngle()(Angle::Radians, Angle::AsStored), -1.57079632679489661923);
  EXPECT_DOUBLE_EQ(read->GetEndAngle()(Angle::Radians, Angle::AsStored), 7.85398163397448309616);
}

struct Fault {
  const char* text;
  const char* message;
};

TEST(ReadObjectTest, EveryFaultHasItsMessageAndItsPlace) {
  for (const Fault& fault : {
           Fault{"Point 1\n", "Invalid Point@ test.mif, line 2, column 1"},
           Fault{"\n\r\nPoint 1 x\n", "Invalid Point@ test.mif, line 3, column 9"},
           Fault{"Line 1 2 3 Pen\n", "Invalid Line@ test.mif, line 1, column 12"},
           Fault{"PLine\n", "Invalid PolyLine@ test.mif, line 2, column 1"},
           Fault{"PLine -1\n", "Invalid PolyLine@ test.mif, line 1, column 9"},
           Fault{"PLine Multiple\nx", "Invalid PolyLine@ test.mif, line 2, column 1"},
           Fault{"PLine Multiple 2\n2\n0 0\n1 1\nPen", "Invalid PolyLine@ test.mif, line 5, column 1"},
           Fault{"PLine 2\n0 0\n1\nPen", "Invalid PolyLine@ test.mif, line 4, column 1"},
           Fault{"Region\nx", "Invalid Region@ test.mif, line 2, column 1"},
           Fault{"Region 1\n3\n0 0\n1 1\nPen", "Invalid Region@ test.mif, line 5, column 1"},
           Fault{"Region 0\nCenter 1 x", "Invalid Region@ test.mif, line 2, column 10"},
           Fault{"Rect 1 2 3\n", "Invalid Rectangle@ test.mif, line 2, column 1"},
           Fault{"RoundRect 1 2 3 4\n", "Invalid Rounded Rectangle@ test.mif, line 2, column 1"},
           Fault{"Ellipse 1 2 3\n", "Invalid Ellipse@ test.mif, line 2, column 1"},
           Fault{"Arc 1 2 3 4 5\n", "Invalid Arc@ test.mif, line 2, column 1"},
           Fault{"Text", "Invalid Text@ test.mif, line 1, column 5"},
           Fault{"Text \"a\" 1 2 3\n", "Invalid Text@ test.mif, line 2, column 1"},
           Fault{"Text \"a\" 1 2 3 4\nAngle x", "Invalid Text@ test.mif, line 2, column 7"},
           Fault{"Text \"a\" 1 2 3 4\nJustify Middle\n", "Invalid Text@ test.mif, line 2, column 15"},
           Fault{"Text \"a\" 1 2 3 4\nJustify Simple\n", "Invalid Text@ test.mif, line 2, column 15"},
           Fault{"Text \"a\" 1 2 3 4\nSpacing x", "Invalid Text@ test.mif, line 2, column 9"},
           Fault{"Text \"a\" 1 2 3 4\nLabel Simple", "Invalid Text@ test.mif, line 2, column 13"},
           Fault{"Text \"a\" 1 2 3 4\nLabel Line Left", "Invalid Text@ test.mif, line 2, column 16"},
           Fault{"Text \"a\" 1 2 3 4\nLabel Line Arrow 1 x", "Invalid Text@ test.mif, line 2, column 20"},
       }) {
    const Result result = Read(fault.text);
    EXPECT_EQ(result.messages, std::vector<std::string>{fault.message}) << fault.text;
    EXPECT_NE(result.clause, "") << fault.text;
  }
}

TEST(ReadObjectTest, BodyKeepsWhatWasReadBeforeTheFault) {
  EXPECT_EQ(Read("Line 1 2 3 x\n").clause, "Line 1 2 3 0\n Pen (0,1,0)\n");
  EXPECT_EQ(Read("Arc 1 2 3 4 5 x\n").clause, "Arc 1 2 3 4\n 5 0\n Pen (1,2,0)\n");
  EXPECT_EQ(Read("PLine 9\n0 0\n1 1\n2 2\nLine").clause, "PLine 3\n 0 0\n 1 1\n 2 2\n Pen (1,2,0)\n");
  EXPECT_EQ(Read("Rect 1 2 3 4\n Pen (x\n").clause, "Rect 1 2 3 4\n Pen (1,2,0) Brush (2,16777215,0)\n");
}

TEST(ReadObjectTest, LabelKeepsWhatWasReadBeforeTheFault) {
  Mif mif("Text \"a\" 1 2 3 4\nLabel Line Arrow 7 x");
  const WTextObj text(ReadOne(mif));
  EXPECT_EQ(text->GetLabelKind(), 2);
  EXPECT_EQ(text->GetLabelPoint(), (PointXY{7, 3}));
}

TEST(ReadObjectTest, FaultLeavesTheWordWhereANumberShouldBeUnread) {
  EXPECT_EQ(Read("Line 1 2 3 Pen (3,2,0)\n").rest, "Pen (3,2,0)\n");
  EXPECT_EQ(Read("PLine 2\n0 0\nPen (3,2,0)\n").rest, "Pen (3,2,0)\n");
}

TEST(ReadObjectTest, CountIsBelievedOnlyAsFarAsTheInputReaches) {
  const Result region = Read("Region 2000000000\n2000000000\n0 0\n1 1\n");
  EXPECT_EQ(region.messages, std::vector<std::string>{"Invalid Region@ test.mif, line 5, column 1"});
  const Result pline = Read("PLine Multiple 2000000000\n2000000000\n0 0\n1 1\n");
  EXPECT_EQ(pline.messages, std::vector<std::string>{"Invalid PolyLine@ test.mif, line 5, column 1"});
  EXPECT_EQ(pline.clause, "PLine 2\n 0 0\n 1 1\n Pen (1,2,0)\n");
  // Parts without a vertex need no bytes but their counts.
  EXPECT_EQ(Read("PLine Multiple 3000000000\n").messages.size(), 1U);
}

TEST(ReadObjectTest, EmptyPartsAreReadAndNotWritten) {
  EXPECT_EQ(Read("Region 2\n0\n3\n0 0\n1 1\n1 0\nCenter 1 1\n").clause,
            "Region 1\n 4\n 0 0\n 1 1\n 1 0\n 0 0\n Pen (1,2,0)\n Brush (2,16777215,0)\n Center 1 1\n");
  EXPECT_EQ(Read("Region 0\n").clause, "None\n");
}

TEST(ReadObjectTest, TextMayHoldLineEndsAndForeignLetters) {
  Mif mif("Text \"a\nb \xE4\xF6\" 1 2 3 4\n");
  EXPECT_EQ(WTextObj(ReadOne(mif))->GetText(), "a\nb \xE4\xF6");
}

TEST(ReadOptionalClausesTest, ReadsOneRoundAndSaysWhetherThereWasAny) {
  Mif mif("Brush (5,255)\nPen (3,2,0)\nLine");
  WRectObj rect{Tobri::IRefC<CoordSys>()};
  EXPECT_TRUE(MIF::ReadOptionalClauses(*rect, mif.in));
  EXPECT_EQ(rect->GetPen(), Pen());
  EXPECT_TRUE(MIF::ReadOptionalClauses(*rect, mif.in));
  EXPECT_EQ(rect->GetPen().width, 3);
  EXPECT_FALSE(MIF::ReadOptionalClauses(*rect, mif.in));
  EXPECT_EQ(mif.Rest(), "\nLine");
}

}  // namespace
