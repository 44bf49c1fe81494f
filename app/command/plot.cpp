#include "app/command/plot.h"

#include "app/command/empty_values.h"
#include "app/convert/open_source.h"
#include "app/convert/report.h"
#include "app/design/skip_reasons.h"
#include "app/io/failure.h"
#include "app/io/output_files.h"
#include "app/picture/measure.h"
#include <pelor/base.h>

#include <array>
#include <cmath>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>

namespace App {

namespace {

struct Arguments {
  std::string file;
  std::string picture;
  std::string levels;
  std::string window;
  std::string background = "white";
  ViewOptions view;
  PlotOptions options;
};

int Run(Arguments& arguments) {
  PictureOptions& picture = arguments.options.picture;
  picture.background = ParseColor(arguments.background);
  if (!arguments.levels.empty()) picture.levels = ParseLevels(arguments.levels);
  if (!arguments.window.empty()) picture.window = ParseWindow(arguments.window);
  arguments.view.keep_color_0 = IsDark(picture.background);
  const Input input = RecogniseInput(arguments.file);
  const SourceOpener open = [&] { return OpenSource(input, arguments.view); };
  return Plot(input, open, arguments.picture, arguments.options, std::cerr);
}

// One line for each kind and reason; false when nothing is missing.
bool TellMissing(const Input& input, const Account& account, bool quiet, std::ostream& messages) {
  bool is_missing = false;
  for (const auto& [name, kind] : account.GetKinds()) {
    for (const auto& [reason, entry] : kind.skip_reasons) {
      if (Reason::IsExpected(reason)) continue;
      is_missing = true;
      if (quiet) continue;
      messages << "pelor: " << input.path.string() << ": " << entry.count << ' ' << name
               << " not drawn: " << reason;
      if (!entry.places.empty() && entry.places.front().number > 0) {
        messages << "; first: number " << entry.places.front().number;
      }
      messages << '\n';
    }
  }
  return is_missing;
}

}  // namespace

Vanth::BoundsXY ParseWindow(std::string_view text) {
  std::array<double, 4> numbers{};
  const char* at = text.data();
  const char* const end = at + text.size();
  const auto skip_blanks = [&at, end] {
    while (at != nullptr && at != end && *at == ' ') ++at;
  };
  for (std::size_t i = 0; at != nullptr && i < numbers.size(); ++i) {
    if (i > 0) at = at != end && *at == ',' ? at + 1 : nullptr;
    skip_blanks();
    if (at != nullptr) at = Tobri::ParseDouble(at, end, numbers[i]);
    if (std::fabs(numbers[i]) > kLargestCoordinate) at = nullptr;
    skip_blanks();
  }
  if (at == nullptr || at != end) {
    throw Failure("--window takes four numbers x1,y1,x2,y2, not \"" + std::string(text) + '"');
  }
  const Vanth::BoundsXY window(numbers[0], numbers[1], numbers[2], numbers[3]);
  if (!(window.Min().x < window.Max().x && window.Min().y < window.Max().y)) {
    throw Failure("the window " + std::string(text) + " has no area");
  }
  return window;
}

int Plot(const Input& input, const SourceOpener& open, const std::filesystem::path& picture,
         const PlotOptions& options, std::ostream& messages) {
  const PictureFormat format = FormatOf(picture);
  OutputFiles outputs(options.overwrite);
  outputs.AddInput(input.path);
  if (!input.mid.empty()) outputs.AddInput(input.mid);
  std::ofstream out(outputs.Add(picture), std::ios::binary);
  Account account;
  const bool has_drawn = WritePicture(open, options.picture, format, out, account);
  out.close();
  ThrowIfNotWritten(out, picture);
  outputs.Commit();
  if (!options.quiet && !has_drawn && HasLeftOutByChoice(account)) {
    messages << "pelor: " << input.path.string() << ": nothing in it was chosen, so the picture is empty\n";
  }
  return TellMissing(input, account, options.quiet, messages) ? kDoneWithFindings : kDone;
}

void AddPlotCommand(CLI::App& program, int& exit_code) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App& command = *program.add_subcommand("plot", "Draws a design file or a pair as a picture");
  command.add_option("FILE", arguments->file, "the design file, or either file of the pair")->required();
  command.add_option("-o,--output", arguments->picture, "the picture: .svg, .png or .pdf")
      ->type_name("PICTURE")
      ->required();
  command
      .add_option("--width", arguments->options.picture.width,
                  "of the picture in pixels; its height follows from the map")
      ->type_name("PIXELS")
      ->check([](const std::string& text) {
        double width = 0;
        const char* const end = text.data() + text.size();
        const bool is_good = Tobri::ParseDouble(text.data(), end, width) == end &&
                             width >= kSmallestPicture && width <= kLargestPicture;
        return is_good ? std::string() : "takes pixels from 100 to 16384, not \"" + text + '"';
      })
      ->capture_default_str();
  command.add_option("--level", arguments->levels, "these levels alone, such as 1,3-5")->type_name("LIST");
  command.add_option("--window", arguments->window, "this part of the map alone, in map units")
      ->type_name("X1,Y1,X2,Y2");
  command.add_option("--background", arguments->background, "a colour's name, #rrggbb, or none")
      ->type_name("COLOUR")
      ->capture_default_str();
  command.add_option("--charset", arguments->view.charset, "of the texts, instead of what the file says")
      ->type_name("NAME");
  command.add_flag("--overwrite", arguments->options.overwrite, "replace a picture that is there");
  command.add_flag("--quiet", arguments->options.quiet, "do not tell what could not be drawn");
  command.footer(
      "Examples:\n"
      "  pelor plot plan.dgn -o plan.svg\n"
      "  pelor plot plan.dgn -o plan.png --level 1,10-19 --width 2000 --background black\n"
      "  pelor plot roads.mif -o centre.pdf --window=1000,2000,1500,2400");
  command.callback([arguments, &command, &exit_code] {
    RefuseEmptyValues(command);
    exit_code = Run(*arguments);
  });
}

}  // namespace App
