#pragma once

#include "app/io/input_kind.h"
#include "app/picture/picture.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <iosfwd>
#include <string_view>

namespace App {

/// What `pelor plot` is told beyond its two files.
struct PlotOptions {
  PictureOptions picture;
  bool overwrite = false;  ///< replace a picture that is there
  bool quiet = false;      ///< say nothing of what could not be drawn
};

/// Draws `input`, which `open` reads, into `picture`, which appears whole or not at all. What is missing in
/// the picture, other than by choice, goes to `messages`, a line for each kind and reason, and that nothing
/// is drawn by choice. Gives the exit code. Throws `Failure`.
[[nodiscard]] int Plot(const Input& input, const SourceOpener& open, const std::filesystem::path& picture,
                       const PlotOptions& options, std::ostream& messages);

/// The window "x1,y1,x2,y2", two opposite corners. Throws `Failure` for any other text, and for a window
/// without an area.
[[nodiscard]] Vanth::BoundsXY ParseWindow(std::string_view text);

/// `pelor plot`.
void AddPlotCommand(CLI::App& program, int& exit_code);

}  // namespace App
