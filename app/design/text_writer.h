#pragma once

#include "app/design/element_writer.h"
#include "app/design/working_units.h"
#include "app/io/transcoder.h"
#include <pelor/mi.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace App {

/// Writes map texts: a text element for one line, a text node for several.
class TextWriter {
 public:
  /// Notes on what could not be kept, each for ever valid, are added to `notes`, which must live on.
  TextWriter(ElementWriter& elements, const WorkingUnits& units, std::string_view charset,
             std::vector<std::string_view>& notes)
      : elements_(elements),
        units_(units),
        transcoder_(charset, Transcoder::Direction::kFromUtf8),
        notes_(notes) {}

  /// The corners of the text's box: the upper left one first, about which the box is turned, then the others
  /// clockwise.
  struct Corners {
    Vanth::PointXY points[4];
  };
  [[nodiscard]] static Corners CornersOf(const Pelor::MI::WTextBody& text);

  /// The longer edge of the text's characters, whose width is the box's by the longest line.
  [[nodiscard]] static double LetterOf(const Pelor::MI::WTextBody& text);

  /// False, and nothing is written, for a text without characters.
  bool Write(const ElementStyle& style, const Pelor::MI::WTextBody& text, const LinkageWords& linkages);

 private:
  struct Lettering;
  struct Layout;
  /// What one element takes of a line.
  struct Piece {
    std::string bytes;  // in the design's character set
    std::size_t line = 0;
    std::size_t characters_in_line = 0;
    std::size_t characters_before = 0;  // in the same line
  };

  void SplitIntoPieces(std::string_view text);
  [[nodiscard]] bool SplitLine(std::string_view line, std::size_t index, std::size_t& room);
  [[nodiscard]] static bool IsTooLarge(double uors);
  [[nodiscard]] static std::int32_t Multiplier(double uors);
  void WritePiece(const ElementStyle& style, const Layout& layout, const Piece& piece,
                  const LinkageWords& linkages);

  ElementWriter& elements_;
  const WorkingUnits& units_;
  Transcoder transcoder_;
  std::vector<std::string_view>& notes_;
  std::vector<Piece> pieces_;
  std::size_t piece_count_ = 0;  // of them are the present text's
};

}  // namespace App
