#include "app/command/info.h"

#include "app/inspect/design_info.h"
#include "app/inspect/layout.h"
#include "app/inspect/pair_info.h"
#include "app/io/failure.h"

#include <nlohmann/json.hpp>

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

class InfoRun {
 public:
  explicit InfoRun(bool json) : is_json_(json) {}

  void File(const std::string& name) {
    try {
      const Input input = RecogniseInput(name);
      if (input.IsDesign()) {
        Tell(ReadDesignInfo(input));
      } else {
        Tell(ReadPairInfo(input));
      }
    } catch (const Failure& failure) {
      has_failed_ = true;
      if (is_json_) {
        files_.push_back({{"file", name}, {"error", failure.what()}});
      } else {
        std::cout.flush();
        std::cerr << "pelor: " << failure.what() << '\n';
      }
    }
  }

  int End() {
    if (is_json_) std::cout << Dump({{"files", files_}}) << '\n';
    return has_failed_ ? kFailed : kDone;
  }

 private:
  template <class Info>
  void Tell(const Info& info) {
    if (is_json_) {
      files_.push_back(ToJson(info));
      return;
    }
    if (has_told_) std::cout << '\n';
    has_told_ = true;
    Print(info, std::cout);
  }

  bool is_json_;
  bool has_told_ = false;
  bool has_failed_ = false;
  Json files_ = Json::array();
};

}  // namespace

void AddInfoCommand(CLI::App& program, int& exit_code) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App& command = *program.add_subcommand("info", "Tells what is in design files and pairs");
  command.add_option("FILE", arguments->files, "design files, and the MIF or MID files of pairs")->required();
  command.add_flag("--json", arguments->json, "the same as JSON, with the keys of docs/info-json.md");
  command.footer(
      "Examples:\n"
      "  pelor info plan.dgn\n"
      "  pelor info plan.dgn parcels.mif --json");
  command.callback([arguments, &exit_code] {
    InfoRun run(arguments->json);
    for (const std::string& file : arguments->files) run.File(file);
    exit_code = run.End();
  });
}

}  // namespace App
