#pragma once

#include <CLI/CLI.hpp>

namespace App {

/// Adds `pelor convert`: designs and pairs to designs and pairs. The code of the run goes to `exit_code`.
void AddConvertCommand(CLI::App& program, int& exit_code);

}  // namespace App
