#include "app/command/dump.h"

#include "failure_text.h"
#include "scratch_folder.h"
#include "tests/dgn/words.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace App {
namespace {

namespace fs = std::filesystem;

// A line on level 1, application data on level 2, a deleted dimension on level 3.
std::string ThreeElements() {
  return dgn_test::Design()
      .Displayable(0x0301, "0000 0001 0000 0002 0000 0003 0000 0004")
      .Element(0x4202, "1234 5678")
      .Element(0xA103, "8000 0000 8000 0000 8000 0000 8000 0000 8000 0000 8000 0000")
      .Bytes();
}

std::string Dump(const fs::path& name, const DumpOptions& options) {
  std::ostringstream out;
  DumpDesign(Input{InputKind::kDesign2D, name, {}}, options, out);
  return out.str();
}

constexpr std::string_view kLine =
    "Element 1 at byte 0\n"
    "** Active Element    **Element Type: Line**   -Not Component of Complex Element\n"
    "   Level: 1   [Words to follow: 24 ]\n"
    "** Range:\n"
    "     X: Low: -2147483648    2147483647\n"
    "     Y: Low: -2147483648    2147483647\n"
    "     Z: Low: -2147483648    2147483647\n"
    "** Graphic Group Number: 0   <Index to Attributes: 10 >\n"
    "   Class: Primary\n"
    "<Not Locked> <New> <No Attributes> <DataBase Relative Orientation>\n"
    " <Planar> <Snappable> <Solid>\n"
    "** Symbology:  [color=0]   [style=Solid Line]   [weight=0]\n";

constexpr std::string_view kApplication =
    "Element 2 at byte 52\n"
    "** Active Element    **Element Type: MicroStation Element**   -Not Component of Complex Element\n"
    "   Level: 2   [Words to follow: 2 ]\n";

TEST(DumpTest, ListsTheHeadersThatEachElementHas) {
  const ScratchFolder folder;
  const fs::path name = folder.Write("a.dgn", ThreeElements() + "\xFF\xFF");
  const std::string listing = Dump(name, {});
  EXPECT_EQ(listing.substr(0, kLine.size()), kLine);
  EXPECT_EQ(listing.substr(kLine.size(), kApplication.size() + 1), "\n" + std::string(kApplication));
  EXPECT_NE(listing.find("Element 3 at byte 60\n** Deleted Element  \n **Element Type: Dimension Element** "),
            std::string::npos);
  EXPECT_NE(listing.find("     X: Low:           0             0\n"), std::string::npos);
  EXPECT_TRUE(listing.ends_with("\n\nEnd of the design at byte 88\n"));
}

TEST(DumpTest, ListsBodiesInHexadecimal) {
  const ScratchFolder folder;
  const fs::path name = folder.Write("a.dgn", ThreeElements() + "\xFF\xFF");
  DumpOptions options;
  options.hex = true;
  options.count = 2;
  EXPECT_EQ(Dump(name, options), std::string(kLine) +
                                     "** Body, from byte 36 of the element:\n"
                                     "OFFSET | 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F\n"
                                     "---------------------------------------------------------------\n"
                                     " 00000000 :   00 00 01 00 00 00 02 00   00 00 03 00 00 00 04 00\n"
                                     "\n" +
                                     std::string(kApplication) +
                                     "** Body, from byte 4 of the element:\n"
                                     "OFFSET | 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F\n"
                                     "---------------------------------------------------------------\n"
                                     " 00000000 :   34 12 78 56\n"
                                     "\n");
}

TEST(DumpTest, ListsWhatIsAskedForAlone) {
  const ScratchFolder folder;
  const fs::path name = folder.Write("a.dgn", ThreeElements() + "\xFF\xFF");
  const std::string application(kApplication);
  DumpOptions by_number;
  by_number.from_number = 2;
  by_number.count = 1;
  EXPECT_EQ(Dump(name, by_number), application + '\n');
  DumpOptions by_type;
  by_type.types = ParseElementTypes("66");
  EXPECT_EQ(Dump(name, by_type), application + "\nEnd of the design at byte 88\n");
  DumpOptions by_level;
  by_level.levels = ParseLevels("2");
  EXPECT_EQ(Dump(name, by_level), application + "\nEnd of the design at byte 88\n");
  DumpOptions by_offset;
  by_offset.from_offset = 52;
  by_offset.count = 1;
  EXPECT_EQ(Dump(name, by_offset).substr(0, 21), "Element 1 at byte 52\n");
  DumpOptions nothing;
  nothing.count = 0;
  EXPECT_EQ(Dump(name, nothing), "");
}

TEST(DumpTest, TellsWhereAFileWithoutAnEndStops) {
  const ScratchFolder folder;
  const std::string cut = "\nThe file ends at byte 60 without the end of the design\n";
  EXPECT_TRUE(Dump(folder.Write("a.dgn", ThreeElements().substr(0, 60)), {}).ends_with(cut));
  DumpOptions options;
  options.hex = true;
  const std::string listing = Dump(folder.Write("b.dgn", ThreeElements().substr(0, 46)), options);
  EXPECT_NE(listing.find(" 00000000 :   00 00 01 00 00 00 02 00   00 00 EOF!\n"), std::string::npos);
  EXPECT_TRUE(listing.ends_with("\nThe file ends at byte 46 without the end of the design\n"));
}

TEST(DumpTest, RefusesWhatItCannotList) {
  const ScratchFolder folder;
  const fs::path design = folder.Write("a.dgn", ThreeElements());
  DumpOptions options;
  options.from_offset = 88;
  EXPECT_EQ(FailureText([&] { Dump(design, options); }), design.string() + " has no byte 88");
  std::ostringstream out;
  EXPECT_EQ(FailureText([&] {
              DumpDesign(Input{InputKind::kPair, "a.mif", {}}, {}, out);
            }),
            "a.mif is not a design file; its text can be read as it is");
}

}  // namespace
}  // namespace App
