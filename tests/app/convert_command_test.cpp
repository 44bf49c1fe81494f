#include "app/command/convert.h"
#include "app/io/failure.h"
#include "app/io/interrupt.h"
#include "convert_run.h"
#include "design_elements.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <csignal>
#include <cstdlib>
#include <set>
#include <sstream>
#include <string>
#include <sys/resource.h>

namespace app_test {
namespace {

namespace fs = std::filesystem;
using App::kDone;
using App::kDoneWithFindings;
using App::kFailed;
using Json = nlohmann::json;
using Set = std::set<std::string>;

class ConvertCommandTest : public ConvertTest {
 protected:
  ConvertCommandTest() {
    Write("a.dgn", DesignOfAllKinds());
    Write("b.mif", kMifOfAllKinds);
    Write("b.mid", kMidOfAllKinds);
  }
};

// Everything in the reports of a run adds up.
void ExpectSums(const Json& json) {
  EXPECT_EQ(json["read"].get<int>(), json["written"].get<int>() + json["skipped"].get<int>()) << json;
}
void ExpectAccountAddsUp(const Json& report) {
  ExpectSums(report["total"]);
  for (const Json& file : report["files"]) {
    ExpectSums(file);
    int read = 0;
    for (const Json& kind : file["kinds"]) {
      ExpectSums(kind);
      read += kind["read"].get<int>();
      int skipped = 0;
      for (const Json& reason : kind["skip_reasons"]) {
        skipped += reason["count"].get<int>();
        EXPECT_FALSE(reason["places"].empty()) << reason;
      }
      EXPECT_EQ(skipped, kind["skipped"].get<int>()) << kind;
    }
    EXPECT_EQ(read, file["read"].get<int>()) << file;
  }
}

TEST_F(ConvertCommandTest, ADesignBecomesAPair) {
  const ConvertRun run = Convert({"/a.dgn", "-o", "/out.mif"});
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.exit_code, kDone) << run.out;
  EXPECT_TRUE(run.out.starts_with("a.dgn -> out.mif, out.mid: 17 read, 15 written, 2 skipped\n")) << run.out;
  EXPECT_EQ(Names(), (Set{"a.dgn", "b.mif", "b.mid", "out.mif", "out.mid"}));
}

TEST_F(ConvertCommandTest, APairBecomesADesignWithItsTable) {
  const ConvertRun run = Convert({"/b.mif", "-o", "/out.dgn"});
  EXPECT_EQ(run.err, "");
  EXPECT_TRUE(run.out.starts_with("b.mif -> out.dgn, out.csv: 11 read, 11 written, 0 skipped\n")) << run.out;
  EXPECT_EQ(Names(), (Set{"a.dgn", "b.mif", "b.mid", "out.dgn", "out.csv"}));
  EXPECT_TRUE(Read("out.csv").starts_with("mslink,Id,Name\r\n1,1,one\r\n2,2,\"two, too\"\r\n"))
      << Read("out.csv");
}

TEST_F(ConvertCommandTest, APairBecomesAPairLikeIt) {
  EXPECT_EQ(Convert({"/b.mif", "-o", "/out.mif"}).exit_code, kDone);
  const std::string mif = Read("out.mif");
  EXPECT_NE(mif.find("Delimiter \",\"\n"), std::string::npos) << mif;
  EXPECT_NE(mif.find("Version 300\n"), std::string::npos) << mif;
  EXPECT_TRUE(Read("out.mid").starts_with("1,one\n2,\"two, too\"\n")) << Read("out.mid");
}

TEST_F(ConvertCommandTest, APairIsWrittenAsTheOptionsSay) {
  EXPECT_EQ(Convert({"/b.mif", "-o", "/out.mif", "--mif-version", "2", "--delimiter", "semicolon",
                     "--columns", "Name", "--coordsys", "Earth Projection 1, 104"})
                .exit_code,
            kDone);
  const std::string mif = Read("out.mif");
  EXPECT_NE(mif.find("Version 2\n"), std::string::npos) << mif;
  EXPECT_NE(mif.find("Delimiter \";\"\n"), std::string::npos) << mif;
  EXPECT_NE(mif.find("CoordSys Earth Projection 1,104\n"), std::string::npos) << mif;
  EXPECT_NE(mif.find("Columns 1\n"), std::string::npos) << mif;
  EXPECT_TRUE(Read("out.mid").starts_with("one\ntwo, too\n")) << Read("out.mid");
}

TEST_F(ConvertCommandTest, ADelimiterIsTakenThatLeavesAllValuesAsTheyAre) {
  const std::string assumed = "  Assumed: as values hold a quote and the usual delimiter, the delimiter is ";
  const std::string tail = "2,\"a;b\"\n3,c\n4,d\n5,e\n6,f\n7,g\n8,h\n9,i\n10,j\n11,k\n";
  Write("b.mid",
        "1,\"Stra\xDF"
        "e 3, \"\"Ecke\"\"\"\n" +
            tail);
  ConvertRun run = Convert({"/b.mif", "-o", "/out.mif"});
  EXPECT_EQ(run.exit_code, kDone) << run.out;
  EXPECT_NE(run.out.find("11 read, 11 written, 0 skipped"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find(assumed + "a tab\n"), std::string::npos) << run.out;
  EXPECT_EQ(Read("out.mif").find("Delimiter"), std::string::npos);
  EXPECT_TRUE(
      Read("out.mid").starts_with("1\t\"Stra\xDF"
                                  "e 3, \"\"Ecke\"\"\"\n2\ta;b\n"))
      << Read("out.mid");

  Write("b.mid", "1,\"3, \"\"\t\"\"\"\n" + tail);
  run = Convert({"/b.mif", "-o", "/out.mif", "--overwrite"});
  EXPECT_EQ(run.exit_code, kDone) << run.out;
  EXPECT_NE(run.out.find(assumed + ";\n"), std::string::npos) << run.out;
  EXPECT_TRUE(Read("out.mid").starts_with("1;\"3, \"\"\t\"\"\"\n2;\"a;b\"\n")) << Read("out.mid");

  run = Convert({"/b.mif", "-o", "/out.mif", "--overwrite", "--delimiter", ","});
  EXPECT_EQ(run.exit_code, kDoneWithFindings) << "a delimiter of the user's stays";
  EXPECT_NE(run.out.find("delimiters beside quotes in values became blanks"), std::string::npos) << run.out;

  Write("b.mid", "1,\"3, \"\"\t;|~^#@!\"\"\"\n" + tail);
  run = Convert({"/b.mif", "-o", "/out.mif", "--overwrite"});
  EXPECT_EQ(run.exit_code, kDoneWithFindings) << "no delimiter keeps this value";
  EXPECT_NE(Read("out.mif").find("Delimiter \",\"\n"), std::string::npos);
}

TEST_F(ConvertCommandTest, TextsAreConvertedBetweenCharacterSets) {
  Write("b.mid", "1,\"Ж\"\n");
  EXPECT_EQ(
      Convert({"/b.mif", "-o", "/out.mif", "--charset", "UTF-8", "--charset-out", "WindowsCyrillic"}).err,
      "");
  EXPECT_TRUE(Read("out.mid").starts_with("1,\xC6\n")) << Read("out.mid");
  EXPECT_NE(Read("out.mif").find("CharSet \"WindowsCyrillic\"\n"), std::string::npos);
}

TEST_F(ConvertCommandTest, ElementsAreChosen) {
  const auto written = [this](std::vector<std::string> options) {
    options.insert(options.end(), {"/a.dgn", "-o", "/out.mif", "--overwrite", "--report", "/report"});
    Convert(options);
    return Json::parse(Read("report"))["total"]["written"].get<int>();
  };
  EXPECT_EQ(written({}), 15);
  EXPECT_EQ(written({"--with-deleted"}), 16);
  EXPECT_EQ(written({"--level", "1,3"}), 4);
  EXPECT_EQ(written({"--level", " 1, 3"}), 4);
  EXPECT_EQ(written({"--type", "line"}), 4) << "with those of the cell";
  EXPECT_EQ(written({"--class", "2"}), 0);
  EXPECT_EQ(written({"--window", "0.6,0.6,0.8,0.8", "--type", "3"}), 2);
  EXPECT_EQ(written({"--window", "0.6, 0.6, 0.8, 0.8 ", "--type", "3"}), 2);
  EXPECT_EQ(written({"--window", "-9,-9,-8,-8"}), 0);
}

TEST_F(ConvertCommandTest, AChoiceThatLeavesNothingIsAFailure) {
  Write("c.mif", "Version 300\nColumns 0\nData\n\nPoint 1 2\n");
  Write("c.mid", "");
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"/a.dgn", "-o", "/o.mif", "--level", "9"}, "a.dgn"},
      {{"/a.dgn", "-o", "/o.mif", "--type", "27"}, "a.dgn"},
      {{"/a.dgn", "-o", "/o.mif", "--class", "2"}, "a.dgn"},
      {{"/a.dgn", "-o", "/o.mif", "--window", "-9,-9,-8,-8"}, "a.dgn"},
      {{"/a.dgn", "-o", "/o.dgn", "--level", "9"}, "a.dgn"},
      {{"/c.mif", "-o", "/o.mif", "--window", "-9,-9,-8,-8"}, "c.mif"},
      {{"/c.mif", "-o", "/o.dgn", "--window", "-9,-9,-8,-8"}, "c.mif"},
  };
  for (const auto& [arguments, name] : cases) {
    ExpectFailure(arguments, std::string(name) + " is not converted: nothing in it was chosen");
  }
  const ConvertRun run = Convert({"/a.dgn", "-o", "/o.mif", "--level", "9"});
  EXPECT_EQ(run.out, "");
}

TEST_F(ConvertCommandTest, AnEmptyMapBecomesAnEmptyMap) {
  Write("c.mif", "Version 300\nColumns 0\nData\n\n");
  Write("c.mid", "");
  Write("c.dgn", app_test::DesignBytes(""));
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"/c.mif", "-o", "/o.mif"}, "o.mid"},
      {{"/c.mif", "-o", "/o.dgn"}, "o.csv"},
      {{"/c.dgn", "-o", "/p.mif"}, "p.mid"},
      {{"/c.dgn", "-o", "/p.dgn"}, "p.dgn"},
  };
  for (const auto& [arguments, output] : cases) {
    std::vector<std::string> with_window = arguments;
    with_window.insert(with_window.end(), {"--window", "0,0,1,1"});
    const ConvertRun run = Convert(with_window);
    EXPECT_EQ(run.err, "") << output;
    EXPECT_EQ(run.exit_code, kDone) << run.out;
    EXPECT_TRUE(Names().contains(output)) << output;
  }
}

TEST_F(ConvertCommandTest, ObjectsOfAPairAreChosenByAWindow) {
  EXPECT_EQ(Convert({"/b.mif", "-o", "/out.mif", "--window", "9,19,11,21", "--report", "/report"}).exit_code,
            kDone);
  const Json total = Json::parse(Read("report"))["total"];
  // The point, the polyline, the region with its hole, the rounded rectangle, and the row without an object.
  EXPECT_EQ(total["written"].get<int>(), 5);
  EXPECT_EQ(total["skipped"].get<int>(), 6);
}

TEST_F(ConvertCommandTest, AnArcOfAWholeTurnIsFoundInItsWindow) {
  Write("arc.mif", "Version 300\nColumns 1\n A Char(1)\nData\nArc 0 0 10 10 0 360\n");
  Write("arc.mid", "a\n");
  EXPECT_EQ(Convert({"/arc.mif", "-o", "/out.mif", "--window", "-1,-1,1,11", "--strict"}).exit_code, kDone);
  EXPECT_NE(Read("out.mif").find("Ellipse 0 0 10 10"), std::string::npos);
}

TEST_F(ConvertCommandTest, ADesignIsCopiedInPart) {
  EXPECT_EQ(Convert({"/a.dgn", "-o", "/all.dgn", "--with-deleted"}).exit_code, kDone);
  const std::string original = DesignOfAllKinds();
  EXPECT_EQ(Read("all.dgn").substr(0, original.size()), original);
  EXPECT_EQ(Convert({"/a.dgn", "-o", "/part.dgn", "--level", "4"}).exit_code, kDone);
  const ConvertRun run = Convert({"/part.dgn", "-o", "/part.mif"});
  EXPECT_TRUE(run.out.starts_with("part.dgn -> part.mif, part.mid: 4 read, 3 written, 1 skipped\n"))
      << run.out;
}

TEST_F(ConvertCommandTest, UnitsOfADesignAreAsTheOptionsSay) {
  const auto chosen = [this](std::vector<std::string> options) {
    options.insert(options.end(), {"/b.mif", "-o", "/out.dgn", "--overwrite"});
    const ConvertRun run = Convert(options);
    const std::size_t at = run.out.find("working units: ");
    return at == std::string::npos ? run.out + run.err : run.out.substr(at, run.out.find('\n', at) - at);
  };
  EXPECT_EQ(chosen({"--uor", "1000", "--unit", "m,mm"}),
            "working units: 1000 mm per m, 1 units of resolution per mm");
  EXPECT_EQ(
      chosen({"--uor", "1000000000"}),
      "pelor: out.dgn cannot be written: the extent of the map, 0 to 100 by 0 to 100 m, does not fit: at "
      "1000000000 units of resolution per m the design plane reaches from -2.147483648 to 2.147483647 by "
      "-2.147483648 to 2.147483647 m\n");
}

TEST_F(ConvertCommandTest, ManyFilesGoIntoAFolder) {
  const ConvertRun run = Convert({"/a.dgn", "/b.mif", "--out-dir", "/out/deep"});
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.exit_code, kDoneWithFindings);
  EXPECT_NE(run.out.find("2 files: 2 written, 0 up to date, 0 failed; 28 read, 26 written, 2 skipped\n"),
            std::string::npos)
      << run.out;
  EXPECT_TRUE(fs::exists(Path("out/deep/a.mif")));
  EXPECT_TRUE(fs::exists(Path("out/deep/b.csv")));
}

TEST_F(ConvertCommandTest, AFileThatFailsDoesNotStopTheOthers) {
  for (const char* const jobs : {"1", "4"}) {
    Write("in/1.dgn", DesignOfAllKinds());
    Write("in/2.dgn", "\xD0\xCF\x11\xE0 version 8");
    Write("in/3.mif", "Version 300\nNonsense\n");
    Write("in/4.dgn", DesignOfAllKinds());
    const ConvertRun run = Convert({"/in", "-r", "--out-dir", "/out", "--jobs", jobs, "--overwrite"});
    EXPECT_EQ(run.exit_code, kDoneWithFindings);
    EXPECT_NE(run.err.find("pelor: in/2.dgn is a version 8 design file; save it as version 7\n"),
              std::string::npos)
        << run.err;
    EXPECT_NE(run.err.find("pelor: in/3.mif"), std::string::npos) << run.err;
    EXPECT_NE(run.out.find("4 files: 2 written, 0 up to date, 2 failed; "), std::string::npos) << run.out;
    Set names;
    for (const auto& entry : fs::directory_iterator(Path("out"))) names.insert(entry.path().filename());
    EXPECT_EQ(names, (Set{"1.mif", "1.mid", "4.mif", "4.mid"}));
    EXPECT_EQ(Convert({"/in", "-r", "--out-dir", "/out", "--overwrite", "--strict"}).exit_code, kFailed);
  }
}

TEST_F(ConvertCommandTest, FoldersMadeForNothingAreRemoved) {
  Write("in/2.dgn", "\xD0\xCF\x11\xE0 version 8");
  Write("in/3.mif", "Version 300\nNonsense\n");
  EXPECT_EQ(Convert({"/in", "-r", "--out-dir", "/out/deep"}).exit_code, kFailed);
  EXPECT_EQ(Names(), (Set{"a.dgn", "b.mif", "b.mid", "in"}));
}

TEST_F(ConvertCommandTest, ExistingFilesStayUnlessTheyMayBeReplaced) {
  Write("out.mif", "precious");
  ExpectFailure({"/a.dgn", "-o", "/out.mif"}, "out.mif exists; --overwrite replaces it");
  EXPECT_EQ(Read("out.mif"), "precious");
  EXPECT_EQ(Convert({"/a.dgn", "-o", "/out.mif", "--overwrite"}).exit_code, kDone);
  EXPECT_TRUE(Read("out.mif").starts_with("Version"));
  ExpectFailure({"/a.dgn", "-o", "/a.dgn", "--overwrite"},
                "a.dgn is an input as well; write to another file");
}

TEST_F(ConvertCommandTest, AFailureLeavesExistingFilesAsTheyWere) {
  Write("out.dgn", "precious");
  Write("out.csv", "as well");
  ExpectFailure({"/b.mif", "-o", "/out.dgn", "--overwrite", "--key", "Missing"},
                "there is no column \"Missing\" to take the key from");
  EXPECT_EQ(Read("out.dgn"), "precious");
  EXPECT_EQ(Read("out.csv"), "as well");
}

TEST_F(ConvertCommandTest, StrictWritesNothingThatIsNotAll) {
  Write("out.dgn", "precious");
  ExpectFailure({"/b.mif", "-o", "/out.dgn", "--strict", "--overwrite"},
                "b.mif is not converted: something would be skipped or approximated, 1 time in all");
  EXPECT_EQ(Read("out.dgn"), "precious");
  EXPECT_EQ(Convert({"/a.dgn", "-o", "/out.mif", "--strict"}).exit_code, kDone);
}

TEST_F(ConvertCommandTest, WhatWasNotChosenIsNotMissed) {
  for (const std::vector<std::string>& choice : std::vector<std::vector<std::string>>{
           {"--level", "2"}, {"--type", "line-string"}, {"--window", "0.2,0.2,1,1"}}) {
    std::vector<std::string> arguments = {"/a.dgn", "-o", "/out.mif", "--strict", "--overwrite"};
    arguments.insert(arguments.end(), choice.begin(), choice.end());
    const ConvertRun run = Convert(arguments);
    EXPECT_EQ(run.exit_code, kDone) << choice[0] << run.err;
  }
}

TEST_F(ConvertCommandTest, ADryRunWritesNothing) {
  const Set before = Names();
  const ConvertRun run = Convert({"/a.dgn", "/b.mif", "/c.mif", "--out-dir", "/out", "--dry-run"});
  EXPECT_EQ(run.out, "a.dgn -> out/a.mif, out/a.mid\nb.mif -> out/b.dgn, out/b.csv\n");
  EXPECT_EQ(run.err, "pelor: c.mif does not exist\n");
  EXPECT_EQ(run.exit_code, kDoneWithFindings);
  EXPECT_EQ(Names(), before);
}

TEST_F(ConvertCommandTest, WhatIsUpToDateIsLeftAlone) {
  EXPECT_EQ(Convert({"/a.dgn", "-o", "/out.mif"}).exit_code, kDone);
  const ConvertRun run = Convert({"/a.dgn", "-o", "/out.mif", "--newer"});
  EXPECT_EQ(run.exit_code, kDone);
  EXPECT_EQ(run.out, "a.dgn -> out.mif, out.mid: up to date\n");
}

TEST_F(ConvertCommandTest, QuietPrintsFailuresAlone) {
  EXPECT_EQ(Convert({"/a.dgn", "-o", "/out.mif", "--quiet"}).out, "");
  EXPECT_EQ(Convert({"/no.dgn", "-o", "/out2.mif", "--quiet"}).err, "pelor: no.dgn does not exist\n");
}

TEST_F(ConvertCommandTest, ProgressCanBeAskedForWithoutATerminal) {
  EXPECT_EQ(Convert({"/a.dgn", "-o", "/out.mif", "--progress"}).err, "[########################] 100%\n");
}

TEST_F(ConvertCommandTest, TheReportAddsUp) {
  const ConvertRun run =
      Convert({"/a.dgn", "/b.mif", "/no.mif", "--out-dir", "/out", "--report", "/report.json"});
  const Json report = Json::parse(Read("report.json"));
  ExpectAccountAddsUp(report);
  EXPECT_EQ(report["exit_code"], run.exit_code);
  ASSERT_EQ(report["files"].size(), 3U);
  const Json& design = report["files"][0];
  EXPECT_EQ(design["input"], Path("a.dgn"));
  EXPECT_EQ(design["input_kind"], "design-2d");
  EXPECT_EQ(design["outputs"], Json({Path("out/a.mif"), Path("out/a.mid")}));
  EXPECT_EQ(design["outcome"], "written");
  EXPECT_TRUE(design["error"].is_null());
  const auto is_line = [](const Json& kind) { return kind["kind"] == "Line"; };
  const auto line = std::find_if(design["kinds"].begin(), design["kinds"].end(), is_line);
  ASSERT_NE(line, design["kinds"].end());
  EXPECT_EQ((*line)["skip_reasons"][0]["reason"], "deleted");
  EXPECT_EQ((*line)["skip_reasons"][0]["expected"], true);
  EXPECT_GT((*line)["skip_reasons"][0]["places"][0]["byte"], 1536);
  EXPECT_EQ(report["files"][2]["outcome"], "failed");
  EXPECT_TRUE(report["files"][2]["input_kind"].is_null());
}

TEST_F(ConvertCommandTest, AReportIsNoOutputAndNoInput) {
  ExpectFailure({"/a.dgn", "-o", "/x.mif", "--report", "/a.dgn", "--overwrite"},
                "a.dgn is an input as well; write to another file");
  ExpectFailure({"/a.dgn", "-o", "/x.mif", "--report", "/x.mid"},
                "x.mid cannot be the report: a converted file is written there");
  ExpectFailure({"/a.dgn", "-o", "/x.mif", "--report", "/b.mid"}, "b.mid exists; --overwrite replaces it");
}

TEST_F(ConvertCommandTest, BadInputsAreToldInOneSentence) {
  fs::create_directory(Path("folder"));
  Write("v8.dgn", "\xD0\xCF\x11\xE0 more");
  Write("zip.dgn", "PK\x03\x04 more");
  Write("empty.dgn", "");
  Write("x.shp", "something else");
  ExpectFailure({"/v8.dgn", "-o", "/o.mif"}, "v8.dgn is a version 8 design file; save it as version 7");
  ExpectFailure({"/zip.dgn", "-o", "/o.mif"}, "zip.dgn is a ZIP archive; unpack it first");
  ExpectFailure({"/empty.dgn", "-o", "/o.mif"}, "empty.dgn is empty");
  ExpectFailure({"/x.shp", "-o", "/o.mif"}, "x.shp is neither a design file nor an interchange pair");
  ExpectFailure({"/folder", "--out-dir", "/o"}, "folder is a folder; --recursive converts what is in it");
  ExpectFailure({"/no.dgn", "-o", "/o.mif"}, "no.dgn does not exist");
  ExpectFailure({"/a.dgn", "-o", "/o.shp"}, "o.shp has an unknown extension; .mif or .dgn say what to write");
  ExpectFailure({"/a.dgn", "-o", "/no/o.mif"}, "no/o.mif cannot be written: its folder does not exist");
}

TEST_F(ConvertCommandTest, TheExamplesOfTheHelpWork) {
  // With something in the window of an example.
  Write("plan.mif", std::string(kMifOfAllKinds) + "Point 1200 2200\n");
  Write("plan.mid", std::string(kMidOfAllKinds) + "12,twelve\n");
  Convert({"/plan.mif", "-o", "/plan.dgn"});
  Write("seed2d.dgn", DesignOfAllKinds());
  for (const char* const name : {"parcels", "old", "archive/map"}) {
    Write(std::string(name) + ".mif", kMifOfAllKinds);
    Write(std::string(name) + ".mid", kMidOfAllKinds);
  }
  CLI::App program;
  int exit_code = 0;
  App::AddConvertCommand(program, exit_code);
  std::istringstream footer(program.get_subcommand("convert")->get_footer());
  const fs::path before = fs::current_path();
  fs::current_path(Folder().Path());
  int examples = 0;
  for (std::string line; std::getline(footer, line);) {
    std::istringstream words(line);
    std::string word;
    words >> word;
    if (word != "pelor" || !(words >> word) || word != "convert") continue;
    std::vector<std::string> arguments;
    while (words >> word) arguments.push_back(word);
    arguments.emplace_back("--overwrite");
    const ConvertRun run = Convert(arguments);
    EXPECT_EQ(run.err, "") << line;
    EXPECT_LE(run.exit_code, kDoneWithFindings) << line;
    ++examples;
  }
  fs::current_path(before);
  EXPECT_EQ(examples, 6);
}

TEST_F(ConvertCommandTest, OptionsThatNoFileHasAUseForAreRefused) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"--level", "1"}, "--level is for designs as input"},
      {{"--type", "3"}, "--type is for designs as input"},
      {{"--class", "1"}, "--class is for designs as input"},
      {{"--with-deleted"}, "--with-deleted is for designs as input"},
      {{"--units", "sub"}, "--units is for designs as input"},
      {{"--arcs", "lines"}, "--arcs is for conversions from designs to pairs"},
      {{"--cells", "point"}, "--cells is for conversions from designs to pairs"},
      {{"--uor", "1"}, "--uor is for conversions from pairs to designs"},
      {{"--seed", "a.dgn"}, "--seed is for conversions from pairs to designs"},
      {{"--tolerance", "1"}, "--tolerance is for conversions between designs and pairs"},
  };
  for (const auto& [options, sentence] : cases) {
    std::vector<std::string> arguments = {"/b.mif", "-o", "/o.mif"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    ExpectFailure(arguments, sentence);
  }
  for (const char* const option : {"--columns", "--coordsys", "--mif-version", "--delimiter"}) {
    ExpectFailure({"/b.mif", "-o", "/o.dgn", option, "1"}, std::string(option) + " is for pairs as output");
  }
  for (const char* const option : {"--charset", "--charset-out"}) {
    ExpectFailure({"/a.dgn", "-o", "/o.dgn", option, "UTF-8"},
                  std::string(option) + " is for pairs as input or output");
  }
}

TEST_F(ConvertCommandTest, EmptyValuesAreRefused) {
  for (const std::string option :
       {"--output", "--to", "--jobs", "--report", "--level", "--type", "--class", "--window", "--columns",
        "--units", "--coordsys", "--arcs", "--cells", "--mif-version", "--delimiter", "--tolerance",
        "--charset", "--charset-out"}) {
    ExpectFailure({"/a.dgn", "--out-dir", "/out", option, ""}, option + " needs a value");
  }
  for (const std::string option : {"--uor", "--unit", "--origin", "--seed", "--key", "--set-level",
                                   "--level-column", "--set-color", "--color-column"}) {
    ExpectFailure({"/b.mif", "-o", "/o.dgn", option, ""}, option + " needs a value");
  }
}

TEST_F(ConvertCommandTest, ValuesThatMakeNoSenseAreRefused) {
  const std::pair<std::vector<std::string>, const char*> from_design[] = {
      {{"--units", "feet"}, "--units takes master, sub or uor, not \"feet\""},
      {{"--arcs", "no"}, "--arcs takes curves or lines, not \"no\""},
      {{"--cells", "no"}, "--cells takes explode, point or both, not \"no\""},
      {{"--window", "1,2,3"}, "--window takes X1,Y1,X2,Y2, not \"1,2,3\""},
      {{"--window", "1,2,3,x"}, "--window takes X1,Y1,X2,Y2, not \"1,2,3,x\""},
      {{"--tolerance", "0"}, "--tolerance takes a length above 0, not \"0\""},
      {{"--tolerance", "nan"}, "--tolerance takes a length above 0, not \"nan\""},
      {{"--level", "64"}, "\"64\" is not a level: they end at 63"},
      {{"--charset", "Klingon"}, "nobody knows the character set \"Klingon\""},
      {{"--charset-out", "Klingon"}, "nobody knows the character set \"Klingon\""},
      {{"--jobs", "0"}, "--jobs takes a number from 1, not \"0\""},
  };
  for (const auto& [options, sentence] : from_design) {
    std::vector<std::string> arguments = {"/a.dgn", "-o", "/o.mif"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    ExpectFailure(arguments, sentence);
  }
  const std::pair<std::vector<std::string>, const char*> to_design[] = {
      {{"--uor", "0"}, "--uor takes a number from 1 to 2147483647, not \"0\""},
      {{"--origin", "1"}, "--origin takes X,Y, not \"1\""},
      {{"--set-level", "64"}, "--set-level takes a number from 0 to 63, not \"64\""},
      {{"--set-color", "256"}, "--set-color takes a number from 0 to 255, not \"256\""},
      {{"--level-column", "x"}, "there is no column \"x\" to take the level from"},
  };
  for (const auto& [options, sentence] : to_design) {
    std::vector<std::string> arguments = {"/b.mif", "-o", "/o.dgn"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    ExpectFailure(arguments, sentence);
  }
}

// The signal's flag and the limit stay for good, so these run in processes of their own.
class ConvertCommandDeathTest : public ConvertCommandTest {
 protected:
  [[nodiscard]] bool IsInterruptedWithoutTrace() const {
    App::CatchInterrupts();
    std::raise(SIGTERM);
    try {
      Convert({"/a.dgn", "/b.mif", "--out-dir", "/out", "--jobs", "2", "--report", "/r"});
    } catch (const App::Interrupted& interrupt) {
      return interrupt.Signal() == SIGTERM && Names() == Set{"a.dgn", "b.mif", "b.mid"};
    }
    return false;
  }

  [[nodiscard]] bool FailsOnAFullDiskWithoutTrace() const {
    App::CatchInterrupts();  // a write past the limit is an error then
    const rlimit limit = {1024, 1024};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    const ConvertRun to_design = Convert({"/b.mif", "-o", "/out.dgn", "--overwrite"});
    const ConvertRun to_pair = Convert({"/a.dgn", "-o", "/out.mif"});
    const ConvertRun copy = Convert({"/a.dgn", "-o", "/copy.dgn"});
    const auto is_told = [](const ConvertRun& run, const std::string& name) {
      return run.exit_code == kFailed && run.err.starts_with("pelor: " + name + " cannot be written: ");
    };
    return is_told(to_design, "out.dgn") && is_told(to_pair, "out.mif") && is_told(copy, "copy.dgn") &&
           Names() == Set{"a.dgn", "b.mif", "b.mid", "out.dgn"} && Read("out.dgn") == "precious";
  }
};

TEST_F(ConvertCommandDeathTest, AnInterruptLeavesNothingBehind) {
  EXPECT_EXIT(std::exit(IsInterruptedWithoutTrace() ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST_F(ConvertCommandDeathTest, AFullDiskLeavesNothingBehindAndHarmsNothing) {
  Write("out.dgn", "precious");
  EXPECT_EXIT(std::exit(FailsOnAFullDiskWithoutTrace() ? 0 : 1), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace app_test
