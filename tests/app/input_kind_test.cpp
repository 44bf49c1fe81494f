#include "app/io/input_kind.h"

#include "failure_text.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace App {
namespace {

namespace fs = std::filesystem;

// A header element as design files begin with it, and the end of the design behind it.
std::string Design(char first, char dimension_flags) {
  std::string bytes(1536, '\0');
  bytes[0] = first;
  bytes[1] = 9;
  bytes[2] = '\xFE';
  bytes[3] = 2;
  bytes[1214] = dimension_flags;
  return bytes + "\xFF\xFF";
}

std::string Refusal(const fs::path& name) {
  return FailureText([&] { static_cast<void>(RecogniseInput(name)); });
}

TEST(InputKindTest, RecognisesDesignsByTheirHeader) {
  const ScratchFolder folder;
  EXPECT_EQ(RecogniseInput(folder.Write("a.dgn", Design(8, 0x10))).kind, InputKind::kDesign2D);
  EXPECT_EQ(RecogniseInput(folder.Write("b.dgn", Design('\xC8', '\xF0'))).kind, InputKind::kDesign3D);
}

TEST(InputKindTest, TheFlagInTheHeaderDecidesOnTheDimension) {
  const ScratchFolder folder;
  EXPECT_EQ(RecogniseInput(folder.Write("a.dgn", Design(8, 0x40))).kind, InputKind::kDesign3D);
  EXPECT_EQ(RecogniseInput(folder.Write("b.dgn", Design('\xC8', 0))).kind, InputKind::kDesign2D);
}

TEST(InputKindTest, AHeaderThatIsCutOffHasTheDimensionOfItsFirstByte) {
  const ScratchFolder folder;
  EXPECT_EQ(RecogniseInput(folder.Write("a.dgn", Design('\xC8', '\xF0').substr(0, 1000))).kind,
            InputKind::kDesign3D);
  EXPECT_EQ(RecogniseInput(folder.Write("b.dgn", Design(8, 0x40).substr(0, 1000))).kind,
            InputKind::kDesign2D);
}

TEST(InputKindTest, ContentCountsBeforeTheExtension) {
  const ScratchFolder folder;
  EXPECT_TRUE(RecogniseInput(folder.Write("design.mif", Design(8, 0))).IsDesign());
  EXPECT_EQ(RecogniseInput(folder.Write("pair.dgn", "Version 300\n")).kind, InputKind::kPair);
  EXPECT_TRUE(RecogniseInput(folder.Write("plan", Design(8, 0))).IsDesign());
}

TEST(InputKindTest, APairMayBeNamedByAnEmptyMidFile) {
  const ScratchFolder folder;
  const fs::path mif = folder.Write("a.mif", "Version 300\n");
  EXPECT_EQ(RecogniseInput(folder.Write("a.mid", "")).path, mif);
}

TEST(InputKindTest, RecognisesAPairByItsFirstWordInAnyCase) {
  const ScratchFolder folder;
  EXPECT_EQ(RecogniseInput(folder.Write("a", "VERSION 300\r\n")).kind, InputKind::kPair);
  EXPECT_EQ(RecogniseInput(folder.Write("b", " \r\n\tversion 1\n")).kind, InputKind::kPair);
  EXPECT_EQ(RecogniseInput(folder.Write("c", "\xEF\xBB\xBFVersion 1200\n")).kind, InputKind::kPair);
}

TEST(InputKindTest, ADesignWithoutAHeaderElementIsRecognisedByItsExtension) {
  const ScratchFolder folder;
  const std::string line(std::string("\x05\x03\x18\0", 4) + std::string(48, '\0') + "\xFF\xFF");
  EXPECT_EQ(RecogniseInput(folder.Write("line.dgn", line)).kind, InputKind::kDesign2D);
  EXPECT_EQ(RecogniseInput(folder.Write("end.DGN", "\xFF\xFF")).kind, InputKind::kDesign2D);
  EXPECT_EQ(Refusal(folder.Write("line", line)),
            (folder / "line").string() + " is neither a design file nor an interchange pair");
}

TEST(InputKindTest, OneDamagedElementDoesNotHideADesign) {
  const ScratchFolder folder;
  std::string bytes = Design(8, 0);
  bytes[1] = 0x7E;
  EXPECT_TRUE(RecogniseInput(folder.Write("a.dgn", bytes)).IsDesign());
}

TEST(InputKindTest, ATextIsNoDesignWhateverItsName) {
  const ScratchFolder folder;
  EXPECT_EQ(Refusal(folder.Write("a.dgn", "hello world, this is a text")),
            (folder / "a.dgn").string() + " is not a design file: no elements begin in it");
}

TEST(InputKindTest, FindsBothFilesOfAPairByEither) {
  const ScratchFolder folder;
  const fs::path mif = folder.Write("roads.mif", "Version 300\n");
  EXPECT_TRUE(RecogniseInput(mif).mid.empty());
  const fs::path mid = folder.Write("roads.mid", "1\n");
  EXPECT_EQ(RecogniseInput(mif).mid, mid);
  EXPECT_EQ(RecogniseInput(mid).path, mif);
  EXPECT_EQ(RecogniseInput(mid).mid, mid);
}

TEST(InputKindTest, FindsTheOtherFileInAnyCase) {
  const ScratchFolder folder;
  const fs::path mif = folder.Write("ROADS.MIF", "Version 300\n");
  const fs::path mid = folder.Write("ROADS.Mid", "1\n");
  EXPECT_EQ(RecogniseInput(mif).mid, mid);
  EXPECT_EQ(RecogniseInput(mid).path, mif);
}

TEST(InputKindTest, RefusesWhatItCannotReadInPlainWords) {
  const ScratchFolder folder;
  const std::string base = folder.Path().string() + "/";
  EXPECT_EQ(Refusal(folder / "none.dgn"), base + "none.dgn does not exist");
  EXPECT_EQ(Refusal(folder.Path()), folder.Path().string() + " is a folder");
  EXPECT_EQ(Refusal(folder.Write("empty.dgn", "")), base + "empty.dgn is empty");
  EXPECT_EQ(Refusal(folder.Write("v8.dgn", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1")),
            base + "v8.dgn is a version 8 design file; save it as version 7");
  EXPECT_EQ(Refusal(folder.Write("a.zip", "PK\x03\x04zip")),
            base + "a.zip is a ZIP archive; unpack it first");
  EXPECT_EQ(Refusal(folder.Write("a.mif", "PK\x05\x06")), base + "a.mif is a ZIP archive; unpack it first");
  EXPECT_EQ(Refusal(folder.Write("a.txt", "hello")),
            base + "a.txt is neither a design file nor an interchange pair");
  EXPECT_EQ(Refusal(folder.Write("lone.mid", "1,2\n")), base + "lone.mid has no MIF file beside it");
  EXPECT_EQ(Refusal("/dev/null"), "/dev/null is not a regular file");
  EXPECT_EQ(Refusal(folder / "a.txt/b.dgn"), base + "a.txt/b.dgn cannot be read: not a directory");
}

TEST(InputKindTest, RefusesAFileWithoutPermission) {
  constexpr uid_t kNobody = 65534;
  const ScratchFolder folder;
  const fs::path name = folder.Write("a.dgn", Design(8, 0));
  fs::permissions(folder.Path(), fs::perms(0755));
  fs::permissions(name, fs::perms::none);
  // To the superuser nothing is forbidden.
  const bool is_root = ::geteuid() == 0;
  if (is_root) {
    ASSERT_EQ(::seteuid(kNobody), 0);
  }
  EXPECT_EQ(Refusal(name), name.string() + " cannot be read: permission denied");
  if (is_root) {
    ASSERT_EQ(::seteuid(0), 0);
  }
}

}  // namespace
}  // namespace App
