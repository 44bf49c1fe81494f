#include "app/convert/open_source.h"

#include "app/io/failure.h"
#include "tests/app/design_elements.h"
#include "tests/app/failure_text.h"
#include "tests/app/scratch_folder.h"
#include "tests/dgn/words.h"

#include <gtest/gtest.h>

namespace App {
namespace {

// A line from (1, 2) to (3, 4) on level 5, of colour 0 and style and weight 0.
std::string DesignOfOneLine() {
  return dgn_test::Design().Displayable(0x0305, "0000 0001 0000 0002 0000 0003 0000 0004").End().Bytes();
}

constexpr char kMif[] =
    "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n"
    "CoordSys NonEarth Units \"ft\" Bounds (0, 0) (10, 10)\n"
    "Columns 2\n  Level SmallInt\n  Name Char(10)\nData\n\nText \"\xFC\"\n1 2 3 4\nPoint 5 6\nSymbol "
    "(32,0,8)\n";

// Reads a source to its end; the last feature remains.
int CountOf(FeatureSource& source, Feature& feature, Account& account) {
  int count = 0;
  while (source.Next(feature, account)) ++count;
  return count;
}

TEST(OpenSourceTest, ReadsADesign) {
  const ScratchFolder folder;
  const std::unique_ptr<FeatureSource> source =
      OpenSource({InputKind::kDesign2D, folder.Write("plan.dgn", DesignOfOneLine()), {}}, {});
  Feature feature;
  Account account;
  ASSERT_TRUE(source->Next(feature, account));
  EXPECT_EQ(feature.object->GetType(), Pelor::MI::WObjType_Line);
  EXPECT_EQ(feature.object->GetBounds(), Vanth::BoundsXY(1, 2, 3, 4));
  ASSERT_EQ(source->GetSchema().columns.size(), 1U);
  EXPECT_EQ(source->GetSchema().columns[0].name, Tobri::String("Level"));
  EXPECT_EQ(feature.values.at(0), Tobri::String("5"));
  EXPECT_FALSE(source->Next(feature, account));
}

TEST(OpenSourceTest, ADesignHasTheUnitThatItNames) {
  const ScratchFolder folder;
  constexpr std::size_t kMasterName = 1120;
  const auto units = [&](std::string_view master) {
    std::string bytes = app_test::DesignBytes({});
    bytes.replace(kMasterName, 2, master);
    const Input input{InputKind::kDesign2D, folder.Write("plan.dgn", bytes), {}};
    const std::unique_ptr<FeatureSource> source = OpenSource(input, {});
    return source->GetSchema().system ? source->GetSchema().system->units : Pelor::MI::Units_Unknown;
  };
  EXPECT_EQ(units("m "), Pelor::MI::Units_m);
  EXPECT_EQ(units("FT"), Pelor::MI::Units_ft);
  EXPECT_EQ(units("mu"), Pelor::MI::Units_Unknown);
}

TEST(OpenSourceTest, WhiteIsBlackUnlessItIsKept) {
  const ScratchFolder folder;
  const Input input{InputKind::kDesign2D, folder.Write("plan.dgn", DesignOfOneLine()), {}};
  const auto color = [&](bool keep) {
    ViewOptions options;
    options.keep_color_0 = keep;
    Feature feature;
    Account account;
    EXPECT_TRUE(OpenSource(input, options)->Next(feature, account));
    return Pelor::MI::WLineObj(feature.object)->GetPen().color;
  };
  EXPECT_EQ(color(false), 0);
  EXPECT_EQ(color(true), 0xFFFFFF);
}

TEST(OpenSourceTest, ReadsAPairInTheCharacterSetThatIsGiven) {
  const ScratchFolder folder;
  const Input input{InputKind::kPair, folder.Write("map.mif", kMif), folder.Write("map.mid", "3,a\n4,b\n")};
  for (const auto& [charset, text] : {std::pair{"", "\xC3\xBC"}, std::pair{"CP1251", "\xD1\x8C"}}) {
    ViewOptions options;
    options.charset = charset;
    const std::unique_ptr<FeatureSource> source = OpenSource(input, options);
    ASSERT_TRUE(source->GetSchema().system);
    EXPECT_EQ(source->GetSchema().system->units, Pelor::MI::Units_ft);
    Feature feature;
    Account account;
    ASSERT_TRUE(source->Next(feature, account));
    EXPECT_EQ(Pelor::MI::WTextObj(feature.object)->GetText(), Tobri::String(text));
    EXPECT_EQ(CountOf(*source, feature, account), 1);
    EXPECT_EQ(feature.object->GetType(), Pelor::MI::WObjType_Point);
    EXPECT_EQ(feature.values.at(0), Tobri::String("4"));
  }
}

TEST(OpenSourceTest, NamesTheFileThatCannotBeRead) {
  const ScratchFolder folder;
  for (const InputKind kind : {InputKind::kDesign2D, InputKind::kPair}) {
    const std::string sentence = FailureText([&] { (void)OpenSource({kind, folder / "none.xyz", {}}, {}); });
    EXPECT_NE(sentence.find("none.xyz"), std::string::npos) << sentence;
  }
}

}  // namespace
}  // namespace App
