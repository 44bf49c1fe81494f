#include "app/io/output_files.h"

#include "failure_text.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <stdexcept>
#include <string>

namespace App {
namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

void WriteText(const fs::path& path, std::string_view text) {
  std::ofstream(path, std::ios::binary) << text;
}

TEST(OutputFilesTest, FilesAppearTogetherAtTheEnd) {
  const ScratchFolder folder;
  OutputFiles outputs(false);
  const fs::path mif = outputs.Add(folder / "a.mif");
  const fs::path mid = outputs.Add(folder / "a.mid");
  WriteText(mif, "graphics");
  WriteText(mid, "rows");
  EXPECT_EQ(folder.Names(), (Names{mif.filename(), mid.filename()}));
  outputs.Commit();
  EXPECT_EQ(folder.Names(), (Names{"a.mid", "a.mif"}));
  EXPECT_EQ(ReadWhole(folder / "a.mif"), "graphics");
  EXPECT_EQ(ReadWhole(folder / "a.mid"), "rows");
}

TEST(OutputFilesTest, TheTemporaryNamesOfAPairDifferInTheExtension) {
  const ScratchFolder folder;
  OutputFiles outputs(false);
  const fs::path mif = outputs.Add(folder / "A.MIF");
  const fs::path mid = outputs.Add(folder / "A.mid");
  EXPECT_EQ(mif.extension(), ".mif");
  EXPECT_EQ(fs::path(mif).replace_extension(".mid"), mid);
  EXPECT_EQ(mif.parent_path(), folder.Path());
}

TEST(OutputFilesTest, ANewFileBesideAReplacedOneHasItsTemporaryName) {
  const ScratchFolder folder;
  fs::create_directory(folder / "store");
  fs::create_directory_symlink("store", folder / "link");
  folder.Write("store/a.mif", "old");
  const fs::path relative = fs::relative(folder.Path());
  for (const fs::path& where : {folder / "link", relative / "store", relative / "store/../link"}) {
    OutputFiles outputs(true);
    const fs::path mif = outputs.Add(where / "a.mif");
    const fs::path mid = outputs.Add(where / "a.mid");
    EXPECT_EQ(fs::path(mif).replace_extension(".mid"), mid) << where;
    outputs.Commit();
    EXPECT_TRUE(fs::remove(folder / "store/a.mid")) << where;
  }
}

TEST(OutputFilesTest, TwoFilesOfOneExtensionHaveTwoTemporaries) {
  const ScratchFolder folder;
  OutputFiles outputs(false);
  const fs::path a = outputs.Add(folder / "a.svg");
  const fs::path b = outputs.Add(folder / "b.svg");
  EXPECT_NE(a, b);
  WriteText(a, "A");
  WriteText(b, "B");
  outputs.Commit();
  EXPECT_EQ(ReadWhole(folder / "a.svg"), "A");
  EXPECT_EQ(ReadWhole(folder / "b.svg"), "B");
}

TEST(OutputFilesTest, NothingRemainsWithoutACommit) {
  const ScratchFolder folder;
  try {
    OutputFiles outputs(false);
    WriteText(outputs.Add(folder / "a.dgn"), "half");
    throw std::runtime_error("the work ends here");
  } catch (const std::runtime_error&) {
  }
  EXPECT_EQ(folder.Names(), Names());
}

TEST(OutputFilesTest, AnExistingFileIsKeptWithoutACommit) {
  const ScratchFolder folder;
  folder.Write("a.dgn", "old");
  {
    OutputFiles outputs(true);
    WriteText(outputs.Add(folder / "a.dgn"), "new");
  }
  EXPECT_EQ(folder.Names(), Names{"a.dgn"});
  EXPECT_EQ(ReadWhole(folder / "a.dgn"), "old");
}

TEST(OutputFilesTest, RefusesAnExistingFileUnlessToldToOverwrite) {
  const ScratchFolder folder;
  folder.Write("a.dgn", "old");
  OutputFiles careful(false);
  EXPECT_EQ(FailureText([&] { careful.Add(folder / "a.dgn"); }),
            (folder / "a.dgn").string() + " exists; --overwrite replaces it");
  EXPECT_EQ(folder.Names(), Names{"a.dgn"});

  OutputFiles bold(true);
  WriteText(bold.Add(folder / "a.dgn"), "new");
  bold.Commit();
  EXPECT_EQ(folder.Names(), Names{"a.dgn"});
  EXPECT_EQ(ReadWhole(folder / "a.dgn"), "new");
}

TEST(OutputFilesTest, AReplacedFileKeepsItsPermissions) {
  const ScratchFolder folder;
  fs::permissions(folder.Write("a.dgn", "old"), fs::perms(0640));
  OutputFiles outputs(true);
  outputs.Add(folder / "a.dgn");
  outputs.Commit();
  EXPECT_EQ(fs::status(folder / "a.dgn").permissions(), fs::perms(0640));
}

TEST(OutputFilesTest, AFileBehindASymbolicLinkIsReplacedThere) {
  const ScratchFolder folder;
  fs::create_directory(folder / "store");
  folder.Write("store/a.dgn", "old");
  fs::create_symlink("store/a.dgn", folder / "link.dgn");
  OutputFiles outputs(true);
  WriteText(outputs.Add(folder / "link.dgn"), "new");
  outputs.Commit();
  EXPECT_TRUE(fs::is_symlink(folder / "link.dgn"));
  EXPECT_EQ(ReadWhole(folder / "store/a.dgn"), "new");
}

TEST(OutputFilesTest, RefusesToWriteOverAnInputUnderAnyName) {
  const ScratchFolder folder;
  folder.Write("a.dgn", "in");
  fs::create_hard_link(folder / "a.dgn", folder / "same.dgn");
  OutputFiles outputs(true);
  outputs.AddInput(folder / "a.dgn");
  for (const char* const name : {"a.dgn", "same.dgn", "./a.dgn"}) {
    EXPECT_EQ(FailureText([&] { outputs.Add(folder / name); }),
              (folder / name).string() + " is an input as well; write to another file");
  }
}

TEST(OutputFilesTest, WhatComesToStandThereMeanwhileIsNotHarmed) {
  const ScratchFolder folder;
  OutputFiles outputs(false);
  WriteText(outputs.Add(folder / "a.mid"), "new rows");
  WriteText(outputs.Add(folder / "a.mif"), "new graphics");
  folder.Write("a.mif", "somebody's");
  EXPECT_EQ(FailureText([&] { outputs.Commit(); }),
            (folder / "a.mif").string() + " cannot be written: file exists");
  EXPECT_EQ(ReadWhole(folder / "a.mif"), "somebody's");
  EXPECT_FALSE(fs::exists(folder / "a.mid"));
}

TEST(OutputFilesTest, AFailedCommitBringsReplacedFilesBack) {
  const ScratchFolder folder;
  folder.Write("a.mid", "old rows");
  {
    OutputFiles outputs(true);
    WriteText(outputs.Add(folder / "a.mid"), "new rows");
    WriteText(outputs.Add(folder / "a.mif"), "new graphics");
    fs::create_directory(folder / "a.mif");
    EXPECT_NE(FailureText([&] { outputs.Commit(); }), "");
  }
  EXPECT_EQ(ReadWhole(folder / "a.mid"), "old rows");
  EXPECT_EQ(folder.Names(), (Names{"a.mid", "a.mif"}));
}

TEST(OutputFilesTest, RefusesWhatCannotBeAFileInPlainWords) {
  const ScratchFolder folder;
  const std::string base = folder.Path().string();
  OutputFiles outputs(true);
  EXPECT_EQ(FailureText([&] { outputs.Add(folder.Path()); }), base + " is a folder");
  EXPECT_EQ(FailureText([&] { outputs.Add(folder / "none/a.dgn"); }),
            base + "/none/a.dgn cannot be written: its folder does not exist");
  EXPECT_EQ(FailureText([&] { outputs.Add("/dev/null"); }), "/dev/null is not a regular file");
  folder.Write("file", "");
  EXPECT_EQ(FailureText([&] { outputs.Add(folder / "file/a.dgn"); }),
            base + "/file/a.dgn cannot be written: not a directory");
}

TEST(OutputFilesTest, AFullDiskIsToldWithItsName) {
  std::ofstream full("/dev/full", std::ios::binary);
  if (!full) GTEST_SKIP() << "no full device here";
  full << "text";
  errno = 0;
  full.close();
  EXPECT_EQ(FailureText([&] { ThrowIfNotWritten(full, "a.dgn"); }),
            "a.dgn cannot be written: the disk is full");
}

TEST(OutputFilesTest, AFailureWithoutAReasonIsStillTold) {
  std::ofstream unopened;
  unopened << "text";
  errno = 0;
  EXPECT_EQ(FailureText([&] { ThrowIfNotWritten(unopened, "a.dgn"); }), "a.dgn cannot be written");
  const std::ofstream good;
  EXPECT_EQ(FailureText([&] { ThrowIfNotWritten(good, "a.dgn"); }), "");
}

}  // namespace
}  // namespace App
