#pragma once

#include <CLI/CLI.hpp>

namespace App {

/// `pelor check`.
void AddCheckCommand(CLI::App& program, int& exit_code);

}  // namespace App
