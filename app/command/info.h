#pragma once

#include <CLI/CLI.hpp>

namespace App {

/// `pelor info`.
void AddInfoCommand(CLI::App& program, int& exit_code);

}  // namespace App
