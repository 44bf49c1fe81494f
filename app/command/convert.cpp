#include "app/command/convert.h"

#include "app/command/convert_options.h"
#include "app/command/empty_values.h"
#include "app/convert/batch.h"
#include "app/convert/jobs.h"
#include "app/io/failure.h"
#include "app/io/output_files.h"

#include <charconv>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace App {

namespace {

namespace fs = std::filesystem;

struct Arguments {
  std::vector<std::string> inputs;
  std::string output;
  std::string out_dir;
  std::string to;
  bool recursive = false;
  bool overwrite = false;
  bool newer = false;
  bool dry_run = false;
  bool strict = false;
  bool progress = false;
  bool quiet = false;
  std::string jobs;
  std::string report;
  ConvertArguments how;
};

PlanRequest RequestOf(const Arguments& arguments) {
  PlanRequest request;
  request.inputs.assign(arguments.inputs.begin(), arguments.inputs.end());
  request.output = arguments.output;
  request.out_dir = arguments.out_dir;
  if (!arguments.to.empty()) request.to = ParseOutputFormat(arguments.to);
  request.recursive = arguments.recursive;
  request.overwrite = arguments.overwrite;
  request.newer = arguments.newer;
  return request;
}

unsigned JobsOf(const std::string& text) {
  if (text.empty()) return AllCores();
  unsigned jobs = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), jobs);
  if (error != std::errc() || end != text.data() + text.size() || jobs == 0) {
    throw Failure("--jobs takes a number from 1, not \"" + text + '"');
  }
  return jobs;
}

Progress::Display DisplayOf(const Arguments& arguments) {
  if (arguments.quiet || arguments.dry_run) return Progress::Display::kNone;
  if (::isatty(STDERR_FILENO) == 1) return Progress::Display::kBar;
  return arguments.progress ? Progress::Display::kLines : Progress::Display::kNone;
}

// A report that will appear when it is complete.
class ReportFile {
 public:
  ReportFile(const fs::path& name, bool overwrite, const std::vector<PlannedFile>& plan)
      : name_(name), files_(overwrite) {
    if (name_.empty()) return;
    for (const PlannedFile& file : plan) {
      files_.AddInput(file.input.path);
      if (!file.input.mid.empty()) files_.AddInput(file.input.mid);
      for (const fs::path& output : file.outputs) {
        if (output.lexically_normal() == name_.lexically_normal()) {
          throw Failure(name_.string() + " cannot be the report: a converted file is written there");
        }
      }
    }
    temporary_ = files_.Add(name_);
  }

  void Write(const std::string& text) {
    if (name_.empty()) return;
    std::ofstream out(temporary_, std::ios::binary);
    out << text;
    out.close();
    ThrowIfNotWritten(out, name_);
    files_.Commit();
  }

 private:
  fs::path name_;
  OutputFiles files_;
  fs::path temporary_;
};

int Run(const Arguments& arguments) {
  std::vector<PlannedFile> plan = PlanConversion(RequestOf(arguments));
  ConvertOptions options = arguments.how.Read(plan);
  options.overwrite = arguments.overwrite;
  options.strict = arguments.strict;
  BatchOptions batch;
  batch.jobs = JobsOf(arguments.jobs);
  batch.dry_run = arguments.dry_run;
  batch.makes_folders = !arguments.out_dir.empty();
  batch.progress = DisplayOf(arguments);

  ReportFile report(arguments.report, arguments.overwrite, plan);
  const std::vector<FileResult> results = ConvertBatch(std::move(plan), options, batch, std::cerr);
  const int exit_code = ConvertExitCode(results, arguments.strict);
  report.Write(ReportJson(results, exit_code));
  if (arguments.dry_run) {
    PrintPlan(std::cout, results);
  } else if (!arguments.quiet) {
    PrintSummary(std::cout, results);
  }
  std::cout.flush();
  for (const FileResult& result : results) {
    if (!result.error.empty()) std::cerr << "pelor: " << result.error << '\n';
  }
  return exit_code;
}

}  // namespace

void AddConvertCommand(CLI::App& program, int& exit_code) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App& command = *program.add_subcommand(
      "convert", "Converts designs and MIF/MID pairs, each to the other or its own kind");
  command.add_option("INPUT", arguments->inputs, "design files and pairs, and folders with --recursive")
      ->required();
  command.add_option("-o,--output", arguments->output, "the file to write; .mif or .dgn says its kind")
      ->type_name("OUTPUT");
  command.add_option("--out-dir", arguments->out_dir, "the folder for the files to write")->type_name("DIR");
  command
      .add_option("--to", arguments->to,
                  "the kind of the files in DIR (usual: designs become pairs, pairs designs)")
      ->type_name("mif|dgn");
  command.add_flag("-r,--recursive", arguments->recursive, "all designs and pairs in and below folders");
  command.add_flag("--overwrite", arguments->overwrite, "replace files that exist");
  command.add_flag("--newer", arguments->newer, "leave files alone that are not older than their input");
  command.add_flag("--dry-run", arguments->dry_run, "say what would be done, and do nothing");
  command.add_option("-j,--jobs", arguments->jobs, "so many files at once (usual: one for each core)")
      ->type_name("N");
  command.add_flag("--strict", arguments->strict,
                   "write no file of which anything would be skipped or approximated");
  command.add_option("--report", arguments->report, "the account of everything, as JSON")->type_name("FILE");
  command.add_flag("--progress", arguments->progress, "show the progress where there is no terminal, too");
  command.add_flag("-q,--quiet", arguments->quiet, "print failures alone");
  arguments->how.AddTo(command);
  command.footer(
      "Examples:\n"
      "  pelor convert plan.dgn -o plan.mif\n"
      "  pelor convert plan.dgn -o plan.mif --level 1,3-5 --columns Level,Cell,MSLink,Text\n"
      "  pelor convert parcels.mif -o parcels.dgn --seed seed2d.dgn --key ID\n"
      "  pelor convert old.mif -o new.mif --charset-out UTF-8 --delimiter comma\n"
      "  pelor convert plan.dgn -o part.dgn --window 1000,2000,1500,2500\n"
      "  pelor convert archive --recursive --out-dir converted --to mif --newer --overwrite\n"
      "Exit codes: 0 all written, 1 something was skipped or approximated, 2 nothing written.");
  command.callback([arguments, &command, &exit_code] {
    RefuseEmptyValues(command);
    exit_code = Run(*arguments);
  });
}

}  // namespace App
