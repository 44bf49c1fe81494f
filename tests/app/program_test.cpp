#include "design_elements.h"
#include "scratch_folder.h"
#include <pelor/version.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <array>
#include <cstdio>
#include <string>
#include <string_view>
#include <sys/wait.h>

namespace App {
namespace {

struct Outcome {
  int exit_code = -1;
  std::string out;
  std::string err;
};

// Runs a shell command line in which "pelor" is the program.
Outcome Shell(const ScratchFolder& folder, const std::string& line) {
  const std::string errors = (folder / "stderr").string();
  const std::string command = "cd '" + folder.Path().string() +
                              "' && pelor() { '" PELOR_PROGRAM "' \"$@\"; } && { " + line + "; } 2>'" +
                              errors + "'";
  Outcome outcome;
  std::FILE* const pipe = ::popen(command.c_str(), "r");
  if (pipe == nullptr) return outcome;
  std::array<char, 4096> chunk = {};
  while (const std::size_t count = std::fread(chunk.data(), 1, chunk.size(), pipe))
    outcome.out.append(chunk.data(), count);
  outcome.exit_code = WEXITSTATUS(::pclose(pipe));
  outcome.err = ReadWhole(errors);
  return outcome;
}

// A folder with a sound design, a damaged one and a pair.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest() {
    const std::string line = app_test::ElementBytes({.type = 3, .body = "0000*8"});
    folder_.Write("plan.dgn", app_test::DesignBytes(line));
    folder_.Write("cut.dgn", app_test::HeaderBytes() + line.substr(0, 40));
    folder_.Write("roads.mif", "Version 300\nColumns 1\n  Id Integer\nData\nPoint 1 2\n");
    folder_.Write("roads.mid", "1\n");
  }

  [[nodiscard]] Outcome Run(const std::string& line) const { return Shell(folder_, line); }

  ScratchFolder folder_;
};

TEST_F(ProgramTest, TellsItsVersion) {
  const Outcome outcome = Run("pelor --version");
  EXPECT_EQ(outcome.exit_code, 0);
  EXPECT_EQ(outcome.out, std::string("pelor ") + Pelor::Version() + "\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(ProgramTest, HelpNamesEveryCommandAndEveryCommandHasHelp) {
  const std::string help = Run("pelor --help").out;
  for (const std::string command : {"info", "check", "dump"}) {
    EXPECT_NE(help.find("\n  " + command + " "), std::string::npos) << command;
    const Outcome outcome = Run("pelor " + command + " --help");
    EXPECT_EQ(outcome.exit_code, 0);
    EXPECT_NE(outcome.out.find("Examples:\n  pelor " + command + " "), std::string::npos) << command;
  }
}

// The examples of a command's help, with files that are here.
TEST_F(ProgramTest, TheExamplesOfItsHelpWork) {
  for (const std::string command : {"info", "check", "dump"}) {
    std::string help = Run("pelor " + command + " --help").out;
    help.erase(0, help.find("Examples:\n") + 10);
    int examples = 0;
    for (std::size_t at = 0; at < help.size(); ++examples) {
      const std::size_t end = help.find('\n', at);
      std::string example = help.substr(at, end - at);
      at = end == std::string::npos ? help.size() : end + 1;
      for (const auto& [theirs, ours] :
           {std::pair("parcels.mif", "roads.mif"), std::pair("@4608", "@1536")}) {
        if (const std::size_t found = example.find(theirs); found != std::string::npos) {
          example.replace(found, std::string_view(theirs).size(), ours);
        }
      }
      const Outcome outcome = Run(example);
      EXPECT_EQ(outcome.exit_code, 0) << example << '\n' << outcome.err;
    }
    EXPECT_GE(examples, 2) << command;
  }
}

TEST_F(ProgramTest, ACommandLineThatIsNotUnderstoodIsOneSentence) {
  const std::pair<std::string, std::string> cases[] = {
      {"pelor", "pelor: a command is needed; see pelor --help\n"},
      {"pelor frobnicate", "pelor: unknown command frobnicate; see pelor --help\n"},
      {"pelor --frobnicate", "pelor: unknown option --frobnicate; see pelor --help\n"},
      {"pelor info --frobnicate plan.dgn", "pelor: unknown option --frobnicate; see pelor info --help\n"},
      {"pelor info", "pelor: FILE is required; see pelor info --help\n"},
      {"pelor dump plan.dgn roads.mif", "pelor: unexpected argument roads.mif; see pelor dump --help\n"},
      {"pelor dump plan.dgn --count many",
       "pelor: --count: takes a number, not \"many\"; see pelor dump --help\n"},
      {"pelor dump plan.dgn --level 99", "pelor: \"99\" is not a level: they end at 63\n"},
      {"pelor dump plan.dgn --level ''", "pelor: --level needs a value\n"},
      {"pelor dump plan.dgn --from ''", "pelor: --from needs a value\n"},
      {"pelor dump plan.dgn --from 0",
       "pelor: --from takes the number of an element, or @ and the byte where it begins, not \"0\"\n"},
  };
  for (const auto& [line, sentence] : cases) {
    const Outcome outcome = Run(line);
    EXPECT_EQ(outcome.exit_code, 2) << line;
    EXPECT_EQ(outcome.out, "") << line;
    EXPECT_EQ(outcome.err, sentence) << line;
  }
}

TEST_F(ProgramTest, AFileThatCannotBeReadIsOneSentence) {
  folder_.Write("empty.dgn", "");
  folder_.Write("new.dgn", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
  const std::pair<std::string, std::string> cases[] = {
      {"none.dgn", "none.dgn does not exist"},
      {".", ". is a folder"},
      {"empty.dgn", "empty.dgn is empty"},
      {"new.dgn", "new.dgn is a version 8 design file; save it as version 7"},
  };
  for (const std::string command : {"info", "check", "dump"}) {
    for (const auto& [file, sentence] : cases) {
      const Outcome outcome = Run("pelor " + command + " " + file);
      EXPECT_EQ(outcome.exit_code, 2) << command << ' ' << file;
      EXPECT_EQ(outcome.err, "pelor: " + sentence + "\n");
    }
  }
}

TEST_F(ProgramTest, OneFileThatCannotBeReadDoesNotStopTheOthers) {
  const Outcome outcome = Run("pelor info none.dgn plan.dgn");
  EXPECT_EQ(outcome.exit_code, 2);
  EXPECT_EQ(outcome.err, "pelor: none.dgn does not exist\n");
  EXPECT_EQ(outcome.out.substr(0, 9), "plan.dgn\n");
}

TEST_F(ProgramTest, CheckTellsFindingsByItsExitCode) {
  EXPECT_EQ(Run("pelor check plan.dgn").exit_code, 0);
  EXPECT_EQ(Run("pelor check plan.dgn").out, "plan.dgn: no findings\n");
  const Outcome cut = Run("pelor check cut.dgn roads.mif");
  EXPECT_EQ(cut.exit_code, 1);
  EXPECT_EQ(
      cut.out,
      "cut.dgn: element 2 at byte 1536: error: the element says 52 bytes, and the file ends after 40 of them "
      "[element-cut]\n"
      "cut.dgn: 1 error\n"
      "roads.mif: no findings\n");
  EXPECT_EQ(Run("pelor check cut.dgn none.dgn").exit_code, 2);
}

TEST_F(ProgramTest, CheckWritesJson) {
  const Outcome outcome = Run("pelor check --json cut.dgn none.dgn roads.mif");
  EXPECT_EQ(outcome.exit_code, 2);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(nlohmann::ordered_json::parse(outcome.out), nlohmann::ordered_json::parse(R"({"files": [
    {"file": "cut.dgn", "format": "design",
     "findings": [{"severity": "error", "code": "element-cut",
                   "sentence": "the element says 52 bytes, and the file ends after 40 of them",
                   "file": "cut.dgn", "element": 2, "offset": 1536}],
     "errors": 1, "warnings": 0, "notes": 0},
    {"file": "none.dgn", "error": "none.dgn does not exist"},
    {"file": "roads.mif", "format": "pair", "findings": [], "errors": 0, "warnings": 0, "notes": 0}]})"));
}

TEST_F(ProgramTest, InfoWritesJson) {
  const Outcome outcome = Run("pelor info --json plan.dgn none.dgn");
  EXPECT_EQ(outcome.exit_code, 2);
  const auto files = nlohmann::ordered_json::parse(outcome.out).at("files");
  EXPECT_EQ(files.at(0).at("format"), "design");
  EXPECT_EQ(files.at(1),
            (nlohmann::ordered_json{{"file", "none.dgn"}, {"error", "none.dgn does not exist"}}));
}

TEST_F(ProgramTest, AReaderThatGoesAwayIsNoFailureToTalkAbout) {
  std::string design = app_test::HeaderBytes();
  const std::string line = app_test::ElementBytes({.type = 3, .body = "0000*8"});
  for (int i = 0; i < 5000; ++i) design += line;
  folder_.Write("long.dgn", design + "\xFF\xFF");
  const Outcome outcome = Run("pelor dump long.dgn | head -1");
  EXPECT_EQ(outcome.out, "Element 1 at byte 0\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(ProgramTest, AFullDiskIsTold) {
  const Outcome outcome = Run("pelor info plan.dgn > /dev/full");
  EXPECT_EQ(outcome.exit_code, 2);
  EXPECT_EQ(outcome.err, "pelor: the standard output cannot be written\n");
}

TEST_F(ProgramTest, AnInterruptEndsItWithTheSignalsNumber) {
  std::string design = app_test::HeaderBytes();
  const std::string line = app_test::ElementBytes({.type = 3, .body = "0000*8"});
  for (int i = 0; i < 20000; ++i) design += line;
  folder_.Write("long.dgn", design + "\xFF\xFF");
  // The pipe is full long before the end, so that the signal meets the program at work.
  const Outcome outcome =
      Run("mkfifo pipe; '" PELOR_PROGRAM
          "' dump --hex long.dgn > pipe & { read -r first; kill -TERM $!; cat > rest; } < pipe; "
          "wait $!; echo $?");
  EXPECT_EQ(outcome.out, "143\n");
  EXPECT_EQ(outcome.err, "pelor: interrupted\n");
}

// What bash offers behind these words, in one line.
class CompletionTest : public ProgramTest {
 protected:
  [[nodiscard]] std::string Complete(const std::string& words) const {
    const std::size_t blank = words.rfind(' ');
    const std::string script =
        "source \"" PELOR_COMPLETION "\"; COMP_WORDS=(" + words + (words.ends_with(' ') ? "\"\"" : "") +
        "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _pelor \"" PELOR_PROGRAM "\" \"" +
        words.substr(blank + 1) +
        "\" \"${COMP_WORDS[COMP_CWORD-1]}\"; printf \"%s\\n\" \"${COMPREPLY[@]}\" | sort | tr \"\\n\" \" \"";
    return Run("bash -c '" + script + "'").out;
  }
};

TEST_F(CompletionTest, OffersCommands) {
  if (Run("bash --version").exit_code != 0) GTEST_SKIP() << "there is no bash";
  EXPECT_EQ(Complete("pelor du"), "dump ");
  EXPECT_NE(Complete("pelor ").find("check "), std::string::npos);
}

TEST_F(CompletionTest, OffersTheOptionsOfACommand) {
  if (Run("bash --version").exit_code != 0) GTEST_SKIP() << "there is no bash";
  EXPECT_EQ(Complete("pelor dump --"), "--count --from --help --hex --level --type ");
}

TEST_F(CompletionTest, OffersTheWordsThatAnOptionTakes) {
  if (Run("bash --version").exit_code != 0) GTEST_SKIP() << "there is no bash";
  EXPECT_EQ(Complete("pelor convert plan.dgn --to "), "dgn mif ");
  EXPECT_EQ(Complete("pelor convert plan.dgn --units "), "master sub uor ");
  EXPECT_EQ(Complete("pelor convert plan.dgn --arcs "), "curves lines ");
  EXPECT_EQ(Complete("pelor convert --cells e"), "explode ");
  EXPECT_EQ(Complete("pelor convert --seed pl"), "plan.dgn ");
}

TEST_F(CompletionTest, OffersFilesThatTheCommandTakes) {
  if (Run("bash --version").exit_code != 0) GTEST_SKIP() << "there is no bash";
  folder_.Write("notes.txt", "text");
  EXPECT_EQ(Complete("pelor info "), "cut.dgn plan.dgn roads.mid roads.mif ");
  EXPECT_EQ(Complete("pelor dump "), "cut.dgn plan.dgn ");
}

}  // namespace
}  // namespace App
