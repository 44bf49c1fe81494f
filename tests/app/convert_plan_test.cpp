#include "app/convert/plan.h"
#include "design_elements.h"
#include "failure_text.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace App {
namespace {

namespace fs = std::filesystem;
using State = PlannedFile::State;

constexpr std::string_view kMif = "Version 300\nColumns 0\nData\n";

class PlanTest : public testing::Test {
 protected:
  PlanTest() { request_.out_dir = folder_ / "out"; }

  fs::path Design(std::string_view name) { return Write(name, app_test::DesignBytes("")); }
  fs::path Pair(std::string_view name) {
    Write(fs::path(name).replace_extension(".mid").string(), "");
    return Write(name, kMif);
  }
  fs::path Write(std::string_view name, std::string_view bytes) {
    fs::create_directories((folder_ / name).parent_path());
    return folder_.Write(name, bytes);
  }

  // "a.dgn -> out/a.mif out/a.mid", names below the folder; the refusal behind "!".
  std::vector<std::string> Plan() {
    std::vector<std::string> lines;
    for (const PlannedFile& file : PlanConversion(request_)) {
      std::string line = Below(file.input.path.string());
      if (!file.outputs.empty()) line += " ->";
      for (const fs::path& output : file.outputs) line += ' ' + Below(output.string());
      if (file.state == State::kUpToDate) line += " (up to date)";
      if (file.state == State::kRefused) line += " ! " + Below(file.refusal);
      lines.push_back(line);
    }
    return lines;
  }
  std::string PlanFailure() {
    return Below(FailureText([this] { static_cast<void>(PlanConversion(request_)); }));
  }
  // Without the folder in front of names.
  std::string Below(std::string text) const {
    const std::string prefix = folder_.Path().string() + '/';
    for (std::size_t at = text.find(prefix); at != std::string::npos; at = text.find(prefix)) {
      text.erase(at, prefix.size());
    }
    return text;
  }
  void MakeNewer(const fs::path& name, const fs::path& than) {
    fs::last_write_time(name, fs::last_write_time(than) + std::chrono::seconds(10));
  }

  using Lines = std::vector<std::string>;
  ScratchFolder folder_;
  PlanRequest request_;
};

TEST_F(PlanTest, DesignsBecomePairsAndPairsDesignsByDefault) {
  request_.inputs = {Design("a.dgn"), Pair("b.mif")};
  EXPECT_EQ(Plan(), (Lines{"a.dgn -> out/a.mif out/a.mid", "b.mif -> out/b.dgn out/b.csv"}));
}

TEST_F(PlanTest, OneFormatCanBeAskedForInAFolder) {
  request_.inputs = {Design("a.dgn"), Pair("b.mif")};
  request_.to = OutputFormat::kPair;
  EXPECT_EQ(Plan(), (Lines{"a.dgn -> out/a.mif out/a.mid", "b.mif -> out/b.mif out/b.mid"}));
  request_.to = OutputFormat::kDesign;
  EXPECT_EQ(Plan(), (Lines{"a.dgn -> out/a.dgn", "b.mif -> out/b.dgn out/b.csv"}));
}

TEST_F(PlanTest, TheExtensionOfTheOutputChoosesTheFormat) {
  request_.inputs = {Design("a.dgn")};
  request_.out_dir.clear();
  const std::pair<const char*, Lines> cases[] = {
      {"x.mif", {"a.dgn -> x.mif x.mid"}}, {"x.mid", {"a.dgn -> x.mif x.mid"}},
      {"X.MIF", {"a.dgn -> X.MIF X.MID"}}, {"x.dgn", {"a.dgn -> x.dgn"}},
      {"x.Dgn", {"a.dgn -> x.Dgn"}},
  };
  for (const auto& [output, lines] : cases) {
    request_.output = folder_ / output;
    EXPECT_EQ(Plan(), lines) << output;
  }
}

TEST_F(PlanTest, RequestsThatMakeNoSenseAreRefusedAsAWhole) {
  const fs::path design = Design("a.dgn");
  const fs::path other = Design("b.dgn");
  const auto failure = [this](std::vector<fs::path> inputs, const fs::path& output, const fs::path& out_dir) {
    request_.inputs = std::move(inputs);
    request_.output = output;
    request_.out_dir = out_dir;
    return PlanFailure();
  };
  const fs::path out = folder_ / "out";
  const fs::path mif = folder_ / "x.mif";
  EXPECT_EQ(failure({}, "", out), "there is nothing to convert");
  EXPECT_EQ(failure({design}, "", ""), "convert needs either -o OUTPUT or --out-dir DIR");
  EXPECT_EQ(failure({design}, mif, out), "convert needs either -o OUTPUT or --out-dir DIR");
  EXPECT_EQ(failure({design}, "", other), "b.dgn is not a folder");
  EXPECT_EQ(failure({design, other}, mif, ""), "-o takes one input; --out-dir DIR takes many");
  EXPECT_EQ(failure({design}, folder_ / "x.shp", ""),
            "x.shp has an unknown extension; .mif or .dgn say what to write");
  EXPECT_EQ(failure({design}, folder_ / "x", ""),
            "x has an unknown extension; .mif or .dgn say what to write");
  fs::create_directory(folder_ / "sub");
  EXPECT_EQ(failure({design}, folder_ / "sub", ""), "sub is a folder; --out-dir writes into folders");
  EXPECT_EQ(failure({folder_ / "sub"}, mif, ""), "sub is a folder; --out-dir DIR takes folders");
  EXPECT_EQ(failure({folder_ / "sub"}, "", out), "sub is a folder; --recursive converts what is in it");
  request_.recursive = true;
  EXPECT_EQ(failure({folder_ / "sub"}, "", out), "sub holds no design files and no interchange pairs");
  request_.to = OutputFormat::kPair;
  EXPECT_EQ(failure({design}, mif, ""),
            "--to goes with --out-dir; the extension of OUTPUT says what to write");
}

TEST_F(PlanTest, FoldersGiveAllTheirFilesSortedAndBelowTheOutput) {
  Design("in/b.dgn");
  Design("in/a.DGN");
  Pair("in/z/deep/c.mif");
  Write("in/notes.txt", "no map");
  Write("in/.pelor-1.dgn", app_test::DesignBytes(""));
  Write("in/tune.mid", "no map either");
  request_.inputs = {folder_ / "in"};
  request_.recursive = true;
  EXPECT_EQ(Plan(), (Lines{"in/a.DGN -> out/a.mif out/a.mid", "in/b.dgn -> out/b.mif out/b.mid",
                           "in/z/deep/c.mif -> out/z/deep/c.dgn out/z/deep/c.csv"}));
}

TEST_F(PlanTest, AnOutputFolderInsideTheInputIsNotReadAgain) {
  Design("in/a.dgn");
  Pair("in/out/a.mif");
  request_.inputs = {folder_ / "in"};
  request_.out_dir = folder_ / "in/out";
  request_.recursive = true;
  request_.overwrite = true;
  EXPECT_EQ(Plan(), (Lines{"in/a.dgn -> in/out/a.mif in/out/a.mid"}));
}

TEST_F(PlanTest, AFolderThatLeadsBackByALinkIsReadOnce) {
  Design("in/a.dgn");
  fs::create_directory_symlink(folder_ / "in", folder_ / "in/loop");
  request_.inputs = {folder_ / "in"};
  request_.recursive = true;
  EXPECT_EQ(Plan(), (Lines{"in/a.dgn -> out/a.mif out/a.mid"}));
}

TEST_F(PlanTest, AFileIsPlannedOnceHoweverOftenItIsNamed) {
  const fs::path mif = Pair("a.mif");
  request_.inputs = {mif, folder_ / "a.mid", folder_ / "./a.mif"};
  EXPECT_EQ(Plan(), (Lines{"a.mif -> out/a.dgn out/a.csv"}));
}

TEST_F(PlanTest, LinksAreInputsOfTheirOwn) {
  const fs::path design = Design("in/a.dgn");
  fs::create_symlink("a.dgn", folder_ / "in/b.dgn");
  fs::create_hard_link(design, folder_ / "in/c.dgn");
  request_.inputs = {folder_ / "in"};
  request_.recursive = true;
  const Lines planned = {"in/a.dgn -> out/a.mif out/a.mid", "in/b.dgn -> out/b.mif out/b.mid",
                         "in/c.dgn -> out/c.mif out/c.mid"};
  EXPECT_EQ(Plan(), planned);
  request_.inputs = {design, folder_ / "in/b.dgn", folder_ / "in/c.dgn"};
  EXPECT_EQ(Plan(), planned);
}

TEST_F(PlanTest, UnreadableInputsAreRefusedAndTheOthersPlanned) {
  request_.inputs = {folder_ / "missing.dgn", Write("v8.dgn", "\xD0\xCF\x11\xE0 and more"), Design("a.dgn")};
  EXPECT_EQ(Plan(), (Lines{"missing.dgn ! missing.dgn does not exist",
                           "v8.dgn ! v8.dgn is a version 8 design file; save it as version 7",
                           "a.dgn -> out/a.mif out/a.mid"}));
}

TEST_F(PlanTest, TwoInputsOfOneNameDoNotShareAnOutput) {
  request_.inputs = {Design("one/a.dgn"), Design("two/a.dgn")};
  EXPECT_EQ(Plan(), (Lines{"one/a.dgn -> out/a.mif out/a.mid",
                           "two/a.dgn -> out/a.mif out/a.mid ! two/a.dgn would be written to out/a.mif, as "
                           "one/a.dgn is"}));
}

TEST_F(PlanTest, NoOutputReplacesAnyInput) {
  request_.inputs = {Design("a.dgn"), Pair("a.mif")};
  request_.out_dir = folder_.Path();
  request_.overwrite = true;
  EXPECT_EQ(Plan(), (Lines{"a.dgn -> a.mif a.mid ! a.mif is an input as well; write to another file",
                           "a.mif -> a.dgn a.csv ! a.dgn is an input as well; write to another file"}));
  request_.inputs = {folder_ / "a.dgn"};
  request_.out_dir.clear();
  fs::create_hard_link(folder_ / "a.dgn", folder_ / "same.dgn");
  request_.output = folder_ / "same.dgn";
  EXPECT_EQ(Plan(), (Lines{"a.dgn -> same.dgn ! same.dgn is an input as well; write to another file"}));
}

TEST_F(PlanTest, ExistingOutputsAreReplacedOnlyWhenAllowed) {
  request_.inputs = {Design("a.dgn")};
  Write("out/a.mid", "");
  EXPECT_EQ(Plan(), (Lines{"a.dgn -> out/a.mif out/a.mid ! out/a.mid exists; --overwrite replaces it"}));
  request_.overwrite = true;
  EXPECT_EQ(Plan(), (Lines{"a.dgn -> out/a.mif out/a.mid"}));
}

TEST_F(PlanTest, NewerOutputsAreLeftAlone) {
  const fs::path mif = Pair("a.mif");
  request_.inputs = {mif};
  request_.newer = true;
  EXPECT_EQ(Plan(), (Lines{"a.mif -> out/a.dgn out/a.csv"})) << "no outputs";
  const fs::path dgn = Write("out/a.dgn", "");
  MakeNewer(dgn, mif);
  EXPECT_EQ(Plan(), (Lines{"a.mif -> out/a.dgn out/a.csv ! out/a.dgn exists; --overwrite replaces it"}))
      << "one of two outputs";
  const fs::path csv = Write("out/a.csv", "");
  MakeNewer(csv, mif);
  EXPECT_EQ(Plan(), (Lines{"a.mif -> out/a.dgn out/a.csv (up to date)"}));
  MakeNewer(folder_ / "a.mid", dgn);
  request_.overwrite = true;
  EXPECT_EQ(Plan(), (Lines{"a.mif -> out/a.dgn out/a.csv"})) << "the rows are newer";
}

TEST_F(PlanTest, InputSizesAreKnownForTheProgress) {
  request_.inputs = {Pair("a.mif")};
  EXPECT_EQ(PlanConversion(request_).front().input_bytes, static_cast<std::int64_t>(kMif.size()));
}

TEST_F(PlanTest, FormatsAreNamedInAnyCase) {
  EXPECT_EQ(ParseOutputFormat("mif"), OutputFormat::kPair);
  EXPECT_EQ(ParseOutputFormat("DGN"), OutputFormat::kDesign);
  EXPECT_EQ(FailureText([] { static_cast<void>(ParseOutputFormat("shp")); }),
            "--to takes mif or dgn, not \"shp\"");
}

}  // namespace
}  // namespace App
