#include "app/io/library_name.h"

#include "scratch_folder.h"

#include <gtest/gtest.h>

namespace App {
namespace {

namespace fs = std::filesystem;

TEST(LibraryNameTest, IsTheInputsOwnWhereThatFits) {
  const ScratchFolder folder;
  const LibraryName design(Input{InputKind::kDesign2D, folder / "a.dgn", {}});
  EXPECT_EQ(design.Get(), folder / "a.dgn");
  const LibraryName pair(Input{InputKind::kPair, folder / "a.mif", folder / "a.mid"});
  EXPECT_EQ(pair.Get(), folder / "a.mif");
}

TEST(LibraryNameTest, GivesADesignAnExtension) {
  const ScratchFolder folder;
  const fs::path plan = folder.Write("plan", "elements");
  fs::path name;
  {
    const LibraryName design(Input{InputKind::kDesign2D, plan, {}});
    name = design.Get();
    EXPECT_EQ(name.extension(), ".dgn");
    EXPECT_EQ(ReadWhole(name), "elements");
  }
  EXPECT_FALSE(fs::exists(name.parent_path()));
  EXPECT_EQ(ReadWhole(plan), "elements");
}

TEST(LibraryNameTest, GivesAPairItsExtensionsInSmallLetters) {
  const ScratchFolder folder;
  const LibraryName pair(
      Input{InputKind::kPair, folder.Write("A.MIF", "graphics"), folder.Write("A.Mid", "rows")});
  EXPECT_EQ(pair.Get().extension(), ".mif");
  EXPECT_EQ(ReadWhole(pair.Get()), "graphics");
  EXPECT_EQ(ReadWhole(fs::path(pair.Get()).replace_extension("mid")), "rows");
}

TEST(LibraryNameTest, GivesAPairWithoutRowsAnEmptyFileOfThem) {
  const ScratchFolder folder;
  const LibraryName pair(Input{InputKind::kPair, folder.Write("a.mif", "graphics"), {}});
  const fs::path mid = fs::path(pair.Get()).replace_extension("mid");
  EXPECT_TRUE(fs::exists(mid));
  EXPECT_EQ(ReadWhole(mid), "");
  EXPECT_EQ(folder.Names(), std::set<std::string>{"a.mif"});
}

}  // namespace
}  // namespace App
