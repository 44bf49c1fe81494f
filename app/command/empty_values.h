#pragma once

#include <CLI/CLI.hpp>

namespace App {

/// Throws `Failure` when an option of the command was given an empty value, which no option has a use for.
void RefuseEmptyValues(const CLI::App& command);

}  // namespace App
