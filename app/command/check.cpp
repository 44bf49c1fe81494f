#include "app/command/check.h"

#include "app/inspect/design_check.h"
#include "app/inspect/finding.h"
#include "app/inspect/layout.h"
#include "app/inspect/pair_check.h"
#include "app/io/failure.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace App {

namespace {

using Json = nlohmann::ordered_json;

struct Arguments {
  std::vector<std::string> files;
  bool json = false;
};

// How many findings of each severity there are.
class Tally {
 public:
  void Add(Severity severity) { ++counts_[static_cast<std::size_t>(severity)]; }
  [[nodiscard]] std::int64_t operator[](Severity severity) const {
    return counts_[static_cast<std::size_t>(severity)];
  }
  [[nodiscard]] bool IsClean() const {
    return std::all_of(counts_.begin(), counts_.end(), [](std::int64_t count) { return count == 0; });
  }

  [[nodiscard]] std::string ToText() const {
    std::string text;
    for (const Severity severity : {Severity::kError, Severity::kWarning, Severity::kNote}) {
      if ((*this)[severity] == 0) continue;
      if (!text.empty()) text += ", ";
      text += Counted((*this)[severity], Name(severity));
    }
    return text.empty() ? "no findings" : text;
  }

 private:
  std::array<std::int64_t, 3> counts_{};
};

Json ToJson(const Finding& finding) {
  Json json = {{"severity", Name(finding.severity)},
               {"code", finding.code},
               {"sentence", finding.sentence},
               {"file", finding.file.string()}};
  if (finding.element != 0) {
    json["element"] = finding.element;
    json["offset"] = finding.offset;
  }
  if (finding.line != 0) json["line"] = finding.line;
  if (finding.column != 0) json["column"] = finding.column;
  return json;
}

std::string OneLine(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

// Files may have any number of findings: each is written as it is made.
class CheckRun {
 public:
  explicit CheckRun(bool json) : is_json_(json) {
    if (is_json_) std::cout << "{\"files\": [";
  }

  void File(const std::string& name) {
    Tally tally;
    try {
      const Input input = RecogniseInput(name);
      Begin(input);
      const FindingSink sink = [&](const Finding& finding) {
        Tell(finding, tally);
        tally.Add(finding.severity);
      };
      if (input.IsDesign()) {
        CheckDesign(input, sink);
      } else {
        CheckPair(input, sink);
      }
      End(name, tally);
    } catch (const Failure& failure) {
      Fail(name, failure.what());
    }
    if (!tally.IsClean()) has_findings_ = true;
  }

  int End() {
    if (is_json_) std::cout << "\n]}\n";
    if (has_failed_) return kFailed;
    return has_findings_ ? kDoneWithFindings : kDone;
  }

 private:
  void Begin(const Input& input) {
    if (!is_json_) return;
    BeginObject();
    std::cout << "{\"file\": " << OneLine(input.path.string()) << ", \"format\": \""
              << (input.IsDesign() ? "design" : "pair") << "\", \"findings\": [";
    is_open_ = true;
  }

  void Tell(const Finding& finding, const Tally& tally) const {
    if (is_json_) {
      std::cout << (tally.IsClean() ? "\n    " : ",\n    ") << OneLine(ToJson(finding));
    } else {
      std::cout << ToText(finding) << '\n';
    }
  }

  void End(const std::string& name, const Tally& tally) {
    if (is_json_) {
      std::cout << "], \"errors\": " << tally[Severity::kError]
                << ", \"warnings\": " << tally[Severity::kWarning]
                << ", \"notes\": " << tally[Severity::kNote] << '}';
      is_open_ = false;
    } else {
      std::cout << name << ": " << tally.ToText() << '\n';
    }
  }

  // A file that fails after its first findings keeps them.
  void Fail(const std::string& name, const std::string& sentence) {
    has_failed_ = true;
    if (!is_json_) {
      std::cout.flush();
      std::cerr << "pelor: " << sentence << '\n';
    } else if (is_open_) {
      std::cout << "], \"error\": " << OneLine(sentence) << '}';
      is_open_ = false;
    } else {
      BeginObject();
      std::cout << OneLine({{"file", name}, {"error", sentence}});
    }
  }

  void BeginObject() {
    std::cout << (is_first_ ? "\n  " : ",\n  ");
    is_first_ = false;
  }

  bool is_json_;
  bool is_first_ = true;
  bool is_open_ = false;
  bool has_findings_ = false;
  bool has_failed_ = false;
};

}  // namespace

void AddCheckCommand(CLI::App& program, int& exit_code) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App& command =
      *program.add_subcommand("check", "Tells what is wrong with design files and pairs, and where");
  command.add_option("FILE", arguments->files, "design files, and the MIF or MID files of pairs")->required();
  command.add_flag("--json", arguments->json, "the same as JSON, with the keys of docs/info-json.md");
  command.footer(
      "Exit codes: 0 no findings, 1 findings, 2 a file cannot be read.\n"
      "Examples:\n"
      "  pelor check plan.dgn\n"
      "  pelor check plan.dgn parcels.mif --json");
  command.callback([arguments, &exit_code] {
    CheckRun run(arguments->json);
    for (const std::string& file : arguments->files) run.File(file);
    exit_code = run.End();
  });
}

}  // namespace App
