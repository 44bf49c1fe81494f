#pragma once

#include <pelor/base/export.h>

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>

namespace Tobri {

class String;

/// A view of a part of a String, as Left and Right give it. It must not outlive its String, nor a change of
/// it.
class SubString {
 public:
  explicit constexpr SubString(std::string_view part) noexcept : part_(part) {}
  ~SubString() = default;
  SubString(const SubString&) = default;
  SubString& operator=(const SubString&) = default;

  constexpr operator std::string_view() const noexcept { return part_; }

 private:
  std::string_view part_;
};

/// A counted 8-bit text with value semantics. Any byte may stand in it, NUL included; the library's own texts
/// are UTF-8. Short texts live inside the object.
class PELOR_EXPORT String {
 public:
  String() noexcept = default;
  /// Copies a NUL-terminated text; null gives the empty text.
  String(const char* text) : text_(text != nullptr ? text : "") {}
  String(const std::string& text) : text_(text) {}
  String(std::string&& text) noexcept : text_(std::move(text)) {}
  String(std::string_view text) : text_(text) {}
  String(const SubString& part) : text_(std::string_view(part)) {}
  explicit String(char c) : text_(1, c) {}

  void Assign(const String& other) { text_ = other.text_; }
  void Assign(const char* text) { text_ = text != nullptr ? text : ""; }
  void Append(const String& other) { text_ += other.text_; }
  void Append(const char* text) { text_ += text != nullptr ? text : ""; }
  void Append(char c) { text_ += c; }

  /// The first n characters, all of them when the text is shorter.
  [[nodiscard]] SubString Left(unsigned n) const noexcept;
  /// The last n characters, all of them when the text is shorter.
  [[nodiscard]] SubString Right(unsigned n) const noexcept;

  /// True when `part` occurs at or after position `pos`; false for any position beyond the end.
  [[nodiscard]] bool ContainsAfter(const String& part, unsigned pos) const noexcept;

  void Clear() noexcept { text_.clear(); }

  /// Resizes the text storage: room for `capacity` characters, `length` of them in use. What stood within
  /// `length` is kept; characters that are new are `fill`.
  void realloc(unsigned capacity, unsigned length, int fill);

  [[nodiscard]] unsigned Length() const noexcept { return static_cast<unsigned>(text_.size()); }
  [[nodiscard]] bool IsEmpty() const noexcept { return text_.empty(); }
  [[nodiscard]] const char* c_str() const noexcept { return text_.c_str(); }
  /// The character at `pos`, which must be below Length().
  [[nodiscard]] char operator[](unsigned pos) const noexcept { return text_[pos]; }
  [[nodiscard]] const std::string& str() const noexcept { return text_; }
  operator std::string_view() const noexcept { return text_; }

  friend bool operator==(const String& a, const String& b) noexcept { return a.text_ == b.text_; }
  friend std::strong_ordering operator<=>(const String& a, const String& b) noexcept {
    return a.text_ <=> b.text_;
  }

 private:
  std::string text_;
};

/// Writes the characters, and nothing else: a field width set on the stream is not used up.
PELOR_EXPORT std::ostream& operator<<(std::ostream& out, const String& text);

/// A write buffer from which a String is made without a second copy.
class PELOR_EXPORT StrModify {
 public:
  enum GrowMode : std::int32_t {
    GrowExact = 0,   ///< room for just what was asked for
    GrowDouble = 1,  ///< room for at least twice as much as before
  };

  explicit StrModify(unsigned capacity) { buffer_.reserve(capacity); }

  /// A writable buffer of at least n characters, good until the next call; what was written before stays.
  [[nodiscard]] char* GetBuffer(unsigned n, GrowMode mode);
  [[nodiscard]] char* GetBuffer(unsigned n, int mode) { return GetBuffer(n, static_cast<GrowMode>(mode)); }
  /// Hands the first `length` characters over and leaves the buffer empty. A length beyond the buffer is
  /// filled up with zero bytes.
  [[nodiscard]] String GetString(unsigned length);

 private:
  std::string buffer_;
};

/// Case rules of the local character set, UTF-8: the letters of today's Latin, Greek and Cyrillic alphabets
/// that have a partner of the same encoded length; every other byte passes unchanged.
class PELOR_EXPORT LocStr {
 public:
  [[nodiscard]] static String UpperCase(const String& text);
  [[nodiscard]] static String LowerCase(const String& text);
};

}  // namespace Tobri

template <>
struct std::hash<Tobri::String> {
  std::size_t operator()(const Tobri::String& text) const noexcept {
    return std::hash<std::string_view>()(text);
  }
};
