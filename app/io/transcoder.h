#pragma once

#include <cstdint>
#include <iconv.h>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace App {

/// Converts texts between UTF-8 and another character set, one after the other. Sets are named as the C
/// library's iconv or as interchange pairs name them, in any case: "WindowsLatin2", "ISO8859_5",
/// "CodePage852", "UTF-8". The set "Neutral" leaves texts as they are.
class Transcoder {
  static_assert(std::is_same_v<iconv_t, void*>, "the converter is held as a pointer");

 public:
  enum class Direction {
    kToUtf8,
    kFromUtf8,
  };

  /// Throws `Failure` when nobody knows the set.
  Transcoder(std::string_view charset, Direction direction);

  /// The converted text, which lives until the next call, and no longer than `text`. A character that the
  /// target lacks becomes '?'; a byte that is part of no character passes unchanged. Texts that are the same
  /// in both sets cost no copy.
  [[nodiscard]] std::string_view Convert(std::string_view text);

  /// Characters that became '?' so far.
  [[nodiscard]] std::int64_t GetLost() const noexcept { return lost_; }
  /// Bytes that were part of no character so far.
  [[nodiscard]] std::int64_t GetInvalid() const noexcept { return invalid_; }

 private:
  struct Close {
    void operator()(iconv_t converter) const noexcept { ::iconv_close(converter); }
  };

  [[nodiscard]] bool KeepsAscii();
  [[nodiscard]] std::string_view ConvertAll(std::string_view text);
  [[nodiscard]] bool Feed(std::string_view& rest);
  void EndSequence();
  void Append(char byte);
  void Grow();

  std::unique_ptr<void, Close> converter_;  // null: texts stay as they are
  bool from_utf8_;
  bool keeps_ascii_ = false;
  std::string buffer_;    // as large as it ever had to be
  std::size_t used_ = 0;  // what of it is the present text
  std::int64_t lost_ = 0;
  std::int64_t invalid_ = 0;
};

[[nodiscard]] bool IsKnownCharset(std::string_view name);

}  // namespace App
