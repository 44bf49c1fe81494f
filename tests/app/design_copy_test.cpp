#include "app/design/design_copy.h"

#include "app/io/output_files.h"
#include "design_elements.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace App {
namespace {

namespace DGN = Pelor::DGN;
using app_test::DesignBytes;
using app_test::ElementBytes;
using app_test::ElementText;
using app_test::HeaderText;
using app_test::Longs;

constexpr std::string_view kPoint = "0000*8";

std::string Line(int level) {
  return ElementBytes({.type = 3, .body = kPoint, .level = level});
}

// A complex shape of two lines, its description 2 * 26 + 5 words long.
std::string ComplexShape(int level, bool complex_bit = false) {
  return ElementBytes({.type = 14, .body = "0039 0002 0000*4", .level = level, .component = complex_bit}) +
         ElementBytes({.type = 3, .body = kPoint, .level = level, .component = true}) +
         ElementBytes({.type = 3, .body = kPoint, .level = level, .component = true, .deleted = true});
}

std::string Padded(std::string bytes) {
  bytes.resize((bytes.size() + 511) / 512 * 512);
  return bytes;
}

class DesignCopyTest : public testing::Test {
 protected:
  // The bytes of the copy.
  std::string Copy(const std::string& design, const DesignCopyOptions& options = {}) {
    account_ = Account();
    const auto input = RecogniseInput(folder_.Write("in.dgn", design));
    DesignCopy copy(input, folder_ / "out.dgn", std::make_unique<OutputFiles>(true), options);
    while (copy.Next(account_)) {
    }
    copy.Close();
    return ReadWhole(folder_ / "out.dgn");
  }
  std::string Reasons() const {
    std::string text;
    for (const auto& [name, kind] : account_.GetKinds()) {
      for (const auto& [reason, entry] : kind.skip_reasons) {
        text += name + ": " + std::to_string(entry.count) + ' ' + reason + '\n';
      }
      for (const auto& [reason, entry] : kind.approximation_reasons) {
        text += name + ", written: " + std::to_string(entry.count) + ' ' + reason + '\n';
      }
    }
    return text;
  }

  ScratchFolder folder_;
  Account account_;
};

TEST_F(DesignCopyTest, EveryByteOfEveryElementIsKept) {
  const std::string fill =
      ElementBytes({.type = 6, .body = "0000", .attributes = "1007 0041 0802 0001 0007 0000*3"});
  const std::string design = DesignBytes(Line(1) + ComplexShape(2) + fill);
  EXPECT_EQ(Copy(design), Padded(design));
  EXPECT_EQ(account_.GetRead(), 4) << "the header, the line, the complex shape, the shape";
  EXPECT_EQ(account_.GetWritten(), 4);
}

TEST_F(DesignCopyTest, DesignsInSpaceAreCopiedAsWell) {
  HeaderText header;
  header.is_3d = true;
  const std::string design = DesignBytes(ElementBytes({.type = 3, .body = "0000*12"}), header);
  EXPECT_EQ(Copy(design), Padded(design));
}

TEST_F(DesignCopyTest, DeletedElementsAreDroppedWithTheirComponents) {
  std::string deleted = ComplexShape(2);
  deleted[1] = static_cast<char>(deleted[1] | 0x80);
  const std::string design = DesignBytes(Line(1) + deleted + Line(3));
  EXPECT_EQ(Copy(design), Padded(DesignBytes(Line(1) + Line(3))));
  EXPECT_EQ(Reasons(), "Complex Shape: 1 deleted\n");
  DesignCopyOptions options;
  options.with_deleted = true;
  EXPECT_EQ(Copy(design, options), Padded(design));
}

TEST_F(DesignCopyTest, AComplexElementIsChosenByItsHeader) {
  DesignCopyOptions options;
  options.levels = ParseLevels("2");
  EXPECT_EQ(Copy(DesignBytes(Line(1) + ComplexShape(2) + ComplexShape(3)), options),
            Padded(DesignBytes(ComplexShape(2))));
  EXPECT_EQ(Reasons(),
            "Complex Shape: 1 on a level that was not chosen\nLine: 1 on a level that was not chosen\n");
}

TEST_F(DesignCopyTest, ComplexElementsWithTheComplexBitAreParted) {
  DesignCopyOptions options;
  options.levels = ParseLevels("3");
  EXPECT_EQ(Copy(DesignBytes(ComplexShape(2, true) + ComplexShape(3, true)), options),
            Padded(DesignBytes(ComplexShape(3, true))));
}

TEST_F(DesignCopyTest, SettingsAreKeptWhateverIsChosen) {
  const std::string settings = ElementBytes({.type = 10, .body = "0001", .level = 9}) +
                               ElementBytes({.type = 5, .body = "0002", .level = 1}) +
                               ElementBytes({.type = 66, .body = "0003", .level = 20});
  DesignCopyOptions options;
  options.types = ParseElementTypes("17");
  options.levels = ParseLevels("40");
  EXPECT_EQ(Copy(DesignBytes(settings + Line(1)), options), Padded(DesignBytes(settings)));
  EXPECT_EQ(Reasons(), "Line: 1 of a type that was not chosen\n");
}

TEST_F(DesignCopyTest, ACellIsOnEveryLevelThatItsHeaderNames) {
  // Named "A", on level 0 itself; its map names the levels 4 and 33.
  const std::string words =
      "0021 0640 0000 0000 0010 0000 0002 0000 " + Longs({0, 0, 0, 0, 214748, 0, 0, 214748, 0, 0});
  const std::string cell = ElementBytes({.type = 2, .body = words, .level = 0});
  const std::string design = DesignBytes(cell);
  for (const char* const level : {"0", "4", "33"}) {
    DesignCopyOptions options;
    options.levels = ParseLevels(level);
    EXPECT_EQ(Copy(design, options), Padded(design)) << level;
  }
  DesignCopyOptions options;
  options.levels = ParseLevels("1-3,5-32,34-63");
  EXPECT_EQ(Copy(design, options), Padded(DesignBytes("")));
}

TEST_F(DesignCopyTest, ClassAndWindowChooseAsWell) {
  const std::string construction = ElementBytes({.type = 3, .body = kPoint, .properties = 2});
  DesignCopyOptions options;
  options.classes = ParseElementClasses("2");
  EXPECT_EQ(Copy(DesignBytes(Line(1) + construction), options), Padded(DesignBytes(construction)));

  // A range from (10000, 10000) to (20000, 20000): 1 to 2 master units.
  std::string line = Line(1);
  DGN::CoordsRange(10000, 10000, 0, 20000, 20000, 0)
      .Encode(std::span<char, DGN::CoordsRange::kBytes>(line.data() + 4, DGN::CoordsRange::kBytes));
  const std::pair<Vanth::BoundsXY, bool> windows[] = {
      {{0.0, 0.0, 1.0, 1.0}, true},   {{2.0, 1.5, 9.0, 9.0}, true},   {{0.0, 0.0, 0.99, 9.0}, false},
      {{2.01, 0.0, 9.0, 9.0}, false}, {{0.0, 2.01, 9.0, 9.0}, false}, {{0.0, 0.0, 9.0, 0.99}, false},
  };
  for (const auto& [window, is_chosen] : windows) {
    options = DesignCopyOptions();
    options.window = window;
    EXPECT_EQ(Copy(DesignBytes(line), options), Padded(DesignBytes(is_chosen ? line : ""))) << window.Min().x;
  }
}

TEST_F(DesignCopyTest, AnElementThatIsCutOffIsLeftOutAndTold) {
  const std::string whole = DesignBytes(Line(1));
  const std::string design = whole.substr(0, whole.size() - 2);
  EXPECT_EQ(Copy(design + Line(2).substr(0, 20)), Padded(whole));
  EXPECT_EQ(Reasons(), "Line: 1 cut off by the end of the file\n");
  EXPECT_EQ(Copy(design), Padded(whole));
  EXPECT_EQ(account_.GetAssumptions().front(),
            "the file has no end-of-design word: the design ends where the file does");
}

TEST_F(DesignCopyTest, AComplexElementThatIsCutOffIsTold) {
  const std::string whole = DesignBytes(ComplexShape(1));
  const std::string one_component = whole.substr(0, whole.size() - 2 - 52);
  const std::string told = "Complex Shape, written: 1 components missing or damaged\n";
  EXPECT_EQ(Copy(whole.substr(0, whole.size() - 2 - 20)), Padded(one_component + "\xFF\xFF"));
  EXPECT_EQ(Reasons(), told + "Line: 1 cut off by the end of the file\n");
  EXPECT_EQ(Copy(one_component), Padded(one_component + "\xFF\xFF"));
  EXPECT_EQ(Reasons(), told);
  EXPECT_EQ(Copy(one_component + "\xFF\xFF"), Padded(one_component + "\xFF\xFF"));
  EXPECT_EQ(Reasons(), told);
  static_cast<void>(Copy(whole + Line(1)));
  EXPECT_EQ(Reasons(), "");
  static_cast<void>(Copy(whole.substr(0, whole.size() - 2) + Line(1)));
  EXPECT_EQ(Reasons(), "");
}

TEST_F(DesignCopyTest, WhatFollowsTheEndIsNotCopied) {
  const std::string design = DesignBytes(Line(1));
  EXPECT_EQ(Copy(design + "left behind by an older, longer design"), Padded(design));
}

}  // namespace
}  // namespace App
