#pragma once

#include <pelor/mi.h>

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace App {

enum class PictureFormat : std::uint8_t { kSvg, kPng, kPdf };

/// The format that a picture's extension names, in any case. Throws `Failure` for any other extension.
[[nodiscard]] PictureFormat FormatOf(const std::filesystem::path& name);

/// The colour of a name, in any case, or of "#rrggbb"; -1 for "none". Throws `Failure` for any other text.
[[nodiscard]] Pelor::MI::Color ParseColor(std::string_view text);

/// Whether white can be read on a colour better than black can; never on none.
[[nodiscard]] bool IsDark(Pelor::MI::Color color) noexcept;

}  // namespace App
