#include "app/command/check.h"
#include "app/command/convert.h"
#include "app/command/dump.h"
#include "app/command/info.h"
#include "app/command/plot.h"
#include "app/io/failure.h"
#include "app/io/interrupt.h"
#include <pelor/version.h>

#include <CLI/CLI.hpp>

#include <csignal>
#include <exception>
#include <iostream>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace App {

namespace {

// What a process gives that a signal has ended, as shells count.
constexpr int kSignalBase = 128;

int Fail(std::string_view sentence) {
  std::cout.flush();
  std::cerr << "pelor: " << sentence << '\n';
  return kFailed;
}

// One plain sentence for a command line that cannot be understood.
std::string Explain(const CLI::App& program, const CLI::ParseError& error) {
  const std::vector<const CLI::App*> chosen = program.get_subcommands({});
  std::string help = "pelor";
  const CLI::App* command = nullptr;
  for (const CLI::App* candidate : chosen) {
    if (candidate->parsed()) command = candidate;
  }
  if (command != nullptr) help += ' ' + command->get_name();
  const std::vector<std::string> unknown = program.remaining(true);
  std::string sentence;
  if (!unknown.empty() && unknown.front().starts_with("-")) {
    sentence = "unknown option " + unknown.front();
  } else if (!unknown.empty()) {
    sentence = (command == nullptr ? "unknown command " : "unexpected argument ") + unknown.front();
  } else if (command == nullptr && error.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError)) {
    sentence = "a command is needed";
  } else {
    sentence = error.what();
    if (sentence.starts_with("Could not")) sentence.front() = 'c';
    for (char& c : sentence) {
      if (c == '\n') c = ' ';
    }
  }
  return sentence + "; see " + help + " --help";
}

int Run(int argc, char** argv) {
  CLI::App program("Looks into, checks, draws and converts design files (version 7) and MIF/MID pairs.",
                   "pelor");
  program.set_version_flag("--version", std::string("pelor ") + Pelor::Version());
  program.require_subcommand(1);
  program.footer(
      "Each command tells more: pelor COMMAND --help\n"
      "Exit codes: 0 done, 1 done with findings, 2 failed, 128 + N ended by signal N.");
  int exit_code = kDone;
  AddInfoCommand(program, exit_code);
  AddCheckCommand(program, exit_code);
  AddDumpCommand(program, exit_code);
  AddPlotCommand(program, exit_code);
  AddConvertCommand(program, exit_code);
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() != 0) return Fail(Explain(program, error));
    program.exit(error);
  }
  std::cout.flush();
  if (!std::cout) {
    ThrowIfInterrupted();
    return Fail("the standard output cannot be written");
  }
  return exit_code;
}

}  // namespace

}  // namespace App

int main(int argc, char** argv) {
  std::ios_base::sync_with_stdio(false);
  App::CatchInterrupts();
  try {
    return App::Run(argc, argv);
  } catch (const App::Interrupted& interrupt) {
    // Who reads the output went away, as `head` does: that is no news.
    if (interrupt.Signal() != SIGPIPE) App::Fail(interrupt.what());
    return App::kSignalBase + interrupt.Signal();
  } catch (const std::bad_alloc&) {
    return App::Fail("there is not enough memory");
  } catch (const std::exception& error) {
    return App::Fail(error.what());
  }
}
