#include "app/picture/picture_format.h"

#include "app/io/failure.h"
#include "app/io/input_kind.h"

#include <array>
#include <string>
#include <string_view>

namespace App {

namespace {

struct NamedColor {
  std::string_view name;
  unsigned rgb;
};

// The basic colour keywords of the CSS standard, and a few that people try.
constexpr std::array<NamedColor, 22> kNames{{
    {"black", 0x000000},   {"silver", 0xC0C0C0},  {"gray", 0x808080},  {"grey", 0x808080},
    {"white", 0xFFFFFF},   {"maroon", 0x800000},  {"red", 0xFF0000},   {"purple", 0x800080},
    {"fuchsia", 0xFF00FF}, {"magenta", 0xFF00FF}, {"green", 0x008000}, {"lime", 0x00FF00},
    {"olive", 0x808000},   {"yellow", 0xFFFF00},  {"navy", 0x000080},  {"blue", 0x0000FF},
    {"teal", 0x008080},    {"aqua", 0x00FFFF},    {"cyan", 0x00FFFF},  {"orange", 0xFFA500},
    {"beige", 0xF5F5DC},   {"ivory", 0xFFFFF0},
}};

// Files and people write red first, the map model has it in the low byte.
Pelor::MI::Color FromRgb(unsigned rgb) {
  return static_cast<Pelor::MI::Color>((rgb & 0xFFU) << 16 | (rgb & 0xFF00U) | rgb >> 16);
}

// The value of a hexadecimal digit, 16 for any other character.
unsigned HexDigit(char c) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  const std::size_t place = kDigits.find(c);
  return place == std::string_view::npos ? 16U : static_cast<unsigned>(place);
}

}  // namespace

PictureFormat FormatOf(const std::filesystem::path& name) {
  const std::string extension = LowerExtension(name);
  if (extension == ".svg") return PictureFormat::kSvg;
  if (extension == ".png") return PictureFormat::kPng;
  if (extension == ".pdf") return PictureFormat::kPdf;
  throw Failure(name.string() + ": the name of a picture ends in .svg, .png or .pdf");
}

Pelor::MI::Color ParseColor(std::string_view text) {
  const std::string name = Tobri::LocStr::LowerCase(text).str();
  if (name == "none") return -1;
  for (const NamedColor& color : kNames) {
    if (color.name == name) return FromRgb(color.rgb);
  }
  if (name.size() == 7 && name[0] == '#') {
    unsigned rgb = 0;
    bool is_hex = true;
    for (const char c : std::string_view(name).substr(1)) {
      const unsigned digit = HexDigit(c);
      is_hex = is_hex && digit < 16;
      rgb = rgb * 16 + digit;
    }
    if (is_hex) return FromRgb(rgb);
  }
  throw Failure("\"" + std::string(text) +
                "\" is no colour: give a name such as white or gray, #rrggbb, or none");
}

bool IsDark(Pelor::MI::Color color) noexcept {
  // The three parts as the eye weighs them (ITU-R BT.601), in thousandths.
  const int brightness = 299 * (color & 0xFF) + 587 * (color >> 8 & 0xFF) + 114 * (color >> 16 & 0xFF);
  return color >= 0 && brightness < 128 * 1000;
}

}  // namespace App
