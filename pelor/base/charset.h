#pragma once

#include <pelor/base/export.h>
#include <pelor/base/string.h>

#include <cstdint>

namespace Tobri {

/// An 8-bit character set, and the conversion of texts between it and the local set, UTF-8. The codes below
/// 0x80 are ASCII in every set.
class PELOR_EXPORT Chr8C {
 public:
  /// Numbers without a name stand for a set like the neutral one.
  enum Id : std::int32_t {
    Neutral = 0,        ///< no conversion
    Iso8859_1 = 2,      ///< ISO 8859-1
    WindowsLatin1 = 3,  ///< code page 1252
    CodePage437 = 4,
    CodePage850 = 5,
  };

  Chr8C() noexcept = default;
  explicit Chr8C(Id id) noexcept : id_(id) {}

  [[nodiscard]] static Chr8C ById(Id id) noexcept { return Chr8C(id); }

  /// The number the set was made with, whether it has a name or not.
  [[nodiscard]] Id GetId() const noexcept { return id_; }
  /// False for the neutral set and for unknown numbers: both conversions give the text as it is.
  [[nodiscard]] bool HasTable() const noexcept;

  /// Converts a local text into this set. A character that the set lacks becomes '?'; a byte that is not part
  /// of valid UTF-8 passes unchanged.
  [[nodiscard]] String FromLoc(const String& text) const;
  /// Converts a text of this set into a local one. Every code has a character, so nothing is lost.
  [[nodiscard]] String ToLoc(const String& text) const;

  friend bool operator==(const Chr8C&, const Chr8C&) noexcept = default;

 private:
  Id id_ = Neutral;
};

}  // namespace Tobri
