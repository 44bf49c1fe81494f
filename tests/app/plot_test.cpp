#include "app/command/plot.h"

#include "app/design/skip_reasons.h"
#include "app/io/failure.h"
#include "tests/app/failure_text.h"
#include "tests/app/picture_tools.h"
#include "tests/app/scratch_folder.h"

#include <sstream>

namespace App {
namespace {

namespace fs = std::filesystem;

constexpr char kSquare[] = "Rect 0 0 100 100\nPen (1,1,0) Brush (2,255,0)\n";

SourceOpener Opener(const std::string& text) {
  return [text] { return std::make_unique<MifSource>(text); };
}

// A source that fails behind its first feature, as a disk may.
class FailingSource : public MifSource {
 public:
  FailingSource() : MifSource(kSquare) {}
  [[nodiscard]] bool Next(Feature& feature, Account& account) override {
    if (!MifSource::Next(feature, account)) throw Failure("map.dgn cannot be read: input/output error");
    return true;
  }
};

// Counts things itself, as designs count the cells whose components they give.
class CountingSource : public MifSource {
 public:
  CountingSource() : MifSource(kSquare) {}
  [[nodiscard]] bool Next(Feature& feature, Account& account) override {
    account.Read("cell");
    account.Written("cell");
    return MifSource::Next(feature, account);
  }
};

// What goes into and comes out of one call of Plot in a folder of its own.
struct PlotRun {
  int Plot(const std::string& text, const std::string& picture) {
    return App::Plot(input, Opener(text), folder / picture, options, messages);
  }

  ScratchFolder folder;
  Input input{InputKind::kPair, folder.Write("map.mif", "some map"), folder.Write("map.mid", "some rows")};
  PlotOptions options;
  std::ostringstream messages;
};

TEST(PlotTest, WritesThePictureUnderItsName) {
  PlotRun run;
  EXPECT_EQ(run.Plot(kSquare, "map.svg"), kDone);
  EXPECT_EQ(run.Plot(kSquare, "map.PNG"), kDone);
  EXPECT_EQ(run.Plot(kSquare, "map.pdf"), kDone);
  EXPECT_EQ(run.folder.Names(),
            (std::set<std::string>{"map.PNG", "map.mid", "map.mif", "map.pdf", "map.svg"}));
  EXPECT_TRUE(ReadWhole(run.folder / "map.svg").starts_with("<?xml"));
  EXPECT_TRUE(ReadWhole(run.folder / "map.PNG").starts_with("\x89PNG"));
  EXPECT_TRUE(ReadWhole(run.folder / "map.pdf").starts_with("%PDF"));
  EXPECT_EQ(run.messages.str(), "");
}

TEST(PlotTest, LeavesNothingBehindWhenItFails) {
  PlotRun run;
  EXPECT_EQ(FailureText([&] {
              (void)Plot(
                  run.input, [] { return std::make_unique<FailingSource>(); }, run.folder / "map.svg",
                  run.options, run.messages);
            }),
            "map.dgn cannot be read: input/output error");
  EXPECT_EQ(run.folder.Names(), (std::set<std::string>{"map.mid", "map.mif"}));
}

TEST(PlotTest, KeepsAPictureThatIsThereUnlessItMayBeReplaced) {
  PlotRun run;
  run.folder.Write("map.svg", "old");
  EXPECT_NE(FailureText([&] { (void)run.Plot(kSquare, "map.svg"); }), "");
  EXPECT_EQ(ReadWhole(run.folder / "map.svg"), "old");
  run.options.overwrite = true;
  EXPECT_EQ(run.Plot(kSquare, "map.svg"), kDone);
  EXPECT_NE(ReadWhole(run.folder / "map.svg"), "old");
}

TEST(PlotTest, NeverReplacesItsInput) {
  PlotRun run;
  run.options.overwrite = true;
  run.input.path = run.folder.Write("map.svg", "a map by a strange name");
  EXPECT_NE(FailureText([&] { (void)run.Plot(kSquare, "map.svg"); }), "");
  EXPECT_EQ(ReadWhole(run.folder / "map.svg"), "a map by a strange name");
}

TEST(PlotTest, AnUnknownExtensionIsRefusedBeforeAnythingIsRead) {
  PlotRun run;
  EXPECT_EQ(FailureText([&] {
              (void)Plot(
                  run.input, []() -> std::unique_ptr<FeatureSource> { throw Failure("was read"); }, "map.gif",
                  run.options, run.messages);
            }),
            "map.gif: the name of a picture ends in .svg, .png or .pdf");
}

TEST(PlotTest, TellsWhatIsMissing) {
  PlotRun run;
  run.input.path = "map.mif";
  const std::string map =
      std::string(kSquare) + "Line 0 0 1e300 0\nPen (1,2,0)\nLine 0 0 1e300 0\nPen (1,2,0)\n";
  EXPECT_EQ(run.Plot(map, "map.svg"), kDoneWithFindings);
  EXPECT_EQ(run.messages.str(),
            "pelor: map.mif: 2 thing not drawn: coordinates that are no numbers; first: number 2\n");
  run.messages.str("");
  run.options.quiet = true;
  EXPECT_EQ(run.Plot(map, "map.png"), kDoneWithFindings);
  EXPECT_EQ(run.messages.str(), "");
}

TEST(PlotTest, WhatWasNotAskedForIsNotMissing) {
  PlotRun run;
  run.input.path = "map.mif";
  run.options.picture.window = Vanth::BoundsXY(0, 0, 10, 10);
  const std::string map = std::string(kSquare) + "Point 200 200\n";
  EXPECT_EQ(run.Plot(map, "map.svg"), kDone);
  EXPECT_EQ(run.messages.str(), "");
}

TEST(PlotTest, TellsThatNothingWasChosen) {
  PlotRun run;
  run.input.path = "map.mif";
  run.options.picture.window = Vanth::BoundsXY(200, 200, 300, 300);
  EXPECT_EQ(run.Plot(kSquare, "map.svg"), kDone);
  const std::string told = "pelor: map.mif: nothing in it was chosen, so the picture is empty\n";
  EXPECT_EQ(run.messages.str(), told);
  run.messages.str("");
  EXPECT_EQ(App::Plot(
                run.input, [] { return std::make_unique<CountingSource>(); }, run.folder / "cells.svg",
                run.options, run.messages),
            kDone);
  EXPECT_EQ(run.messages.str(), told);
  run.messages.str("");
  EXPECT_EQ(run.Plot("", "empty.svg"), kDone);
  EXPECT_EQ(run.messages.str(), "") << "there is nothing to choose";
  run.options.quiet = true;
  EXPECT_EQ(run.Plot(kSquare, "map.png"), kDone);
  EXPECT_EQ(run.messages.str(), "");
}

TEST(PlotTest, ReasonsOfTheSelectionAreThoseOfTheDesign) {
  EXPECT_TRUE(Reason::IsExpected(kOtherLevel));
  EXPECT_TRUE(Reason::IsExpected(kOutside));
  EXPECT_TRUE(Reason::IsByChoice(kOtherLevel));
  EXPECT_TRUE(Reason::IsByChoice(kOutside));
  EXPECT_FALSE(Reason::IsExpected(kNoNumbers));
  EXPECT_FALSE(Reason::IsExpected(kTooLarge));
}

TEST(ParseWindowTest, TakesTwoOppositeCorners) {
  EXPECT_EQ(ParseWindow("1,2,3,4"), Vanth::BoundsXY(1, 2, 3, 4));
  EXPECT_EQ(ParseWindow("-3.5,4e2,-1,+2"), Vanth::BoundsXY(-3.5, 2, -1, 400));
  EXPECT_EQ(ParseWindow(" 1, 2 , 3 ,4 "), Vanth::BoundsXY(1, 2, 3, 4));
}

TEST(ParseWindowTest, RefusesEverythingElse) {
  for (const char* text : {"", "1", "1,2,3", "1,2,3,4,5", "1,2,3,", "1,2,3,4x", "a,b,c,d", "1 2 3 4",
                           "1;2;3;4", ",1,2,3", "1,2,3,inf", "nan,0,1,1", "1,2,3,1e300"}) {
    EXPECT_EQ(FailureText([&] { (void)ParseWindow(text); }),
              "--window takes four numbers x1,y1,x2,y2, not \"" + std::string(text) + '"');
  }
  EXPECT_NE(FailureText([&] { (void)ParseWindow({}); }), "");
  for (const char* text : {"1,2,1,4", "1,2,3,2", "0,0,0,0"}) {
    EXPECT_EQ(FailureText([&] { (void)ParseWindow(text); }),
              "the window " + std::string(text) + " has no area");
  }
}

// `pelor plot` with these arguments; the failure's sentence, or that of the command line.
std::string CommandError(std::vector<std::string> arguments) {
  CLI::App program;
  int exit_code = kDone;
  AddPlotCommand(program, exit_code);
  arguments.insert(arguments.begin(), "plot");
  std::reverse(arguments.begin(), arguments.end());
  try {
    program.parse(arguments);
  } catch (const std::exception& error) {
    return error.what();
  }
  return {};
}

TEST(PlotCommandTest, ExplainsWhatIsWrongWithItsOptions) {
  EXPECT_NE(CommandError({"map.dgn"}).find("--output is required"), std::string::npos);
  EXPECT_NE(CommandError({"-o", "a.svg"}).find("FILE is required"), std::string::npos);
  for (const char* width : {"99", "16385", "0", "-5", "nan", "1e9", "wide", ""}) {
    EXPECT_NE(CommandError({"map.dgn", "-o", "a.svg", std::string("--width=") + width}).find("--width"),
              std::string::npos)
        << width;
  }
  EXPECT_EQ(CommandError({"map.dgn", "-o", "a.svg", "--background", "reddish"}),
            "\"reddish\" is no colour: give a name such as white or gray, #rrggbb, or none");
  EXPECT_EQ(CommandError({"map.dgn", "-o", "a.svg", "--window=1,2"}),
            "--window takes four numbers x1,y1,x2,y2, not \"1,2\"");
  EXPECT_NE(CommandError({"map.dgn", "-o", "a.svg", "--window", "-10,-5,10,5", "--level", "64"}).find("64"),
            std::string::npos);
  for (const std::string option : {"--level", "--window", "--background", "--charset"}) {
    EXPECT_EQ(CommandError({"map.dgn", "-o", "a.svg", option, ""}), option + " needs a value");
  }
  EXPECT_EQ(CommandError({"map.dgn", "-o", ""}), "--output needs a value");
  EXPECT_NE(CommandError({"no such file.dgn", "-o", "a.svg"}).find("no such file.dgn"), std::string::npos);
}

}  // namespace
}  // namespace App
