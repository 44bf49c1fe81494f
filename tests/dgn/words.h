#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace dgn_test {

/// The bytes of a design file, written as its words in hexadecimal: "0408 000E" is 08 04 0E 00. A word may be
/// repeated, as in "0000*12". Blanks, line ends and '|' separate.
std::string Words(std::string_view text);

/// The inverse, for expectations and failure output: lower-case letters mark an odd last byte, as in "0408
/// 0e".
std::string InWords(std::string_view bytes);

/// The bytes themselves in hexadecimal: "34 12 78 56".
std::string InBytes(std::string_view bytes);

/// A file in the temporary directory that goes away with the object.
class TempFile {
 public:
  /// A name of its own; nothing is created.
  TempFile();
  explicit TempFile(std::string_view content);
  ~TempFile();
  TempFile(const TempFile&) = delete;
  TempFile& operator=(const TempFile&) = delete;

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] std::string Content() const;

 private:
  std::string name_;
};

/// Builds the content of a design file, element by element.
class Design {
 public:
  /// An element: the type/level word, its words to follow counted, and the words that follow.
  Design& Element(std::uint16_t type_level, std::string_view words);
  /// A displayable element without attributes: default range, properties 0200, symbology 0000 and the body.
  Design& Displayable(std::uint16_t type_level, std::string_view body);
  /// Bytes as they are.
  Design& Raw(std::string_view bytes);
  /// The end-of-design word, and zero bytes up to a whole block of 512.
  Design& End();

  [[nodiscard]] const std::string& Bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

/// The words of a default range: "0000*6 FFFF*6".
inline constexpr std::string_view kDefaultRange = "0000*6 FFFF*6";

}  // namespace dgn_test
