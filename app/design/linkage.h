#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace App {

/// The row of a database that an element belongs to.
struct DatabaseKey {
  std::uint16_t entity = 0;
  std::uint32_t key = 0;

  friend bool operator==(const DatabaseKey&, const DatabaseKey&) = default;
};

/// The entity of the table that is written beside a design.
inline constexpr std::uint16_t kTableEntity = 1;

/// One attribute linkage.
struct Linkage {
  enum class Kind : std::uint8_t {
    kUser,       ///< of an application; `id` says which
    kDatabase4,  ///< four words, without a length of its own
    kDatabase8,  ///< a user linkage of eight words that names a row
    kFill,       ///< the colour an area is filled with
  };

  Kind kind = Kind::kUser;
  std::size_t offset = 0;       ///< in bytes, in the attribute data
  std::span<const char> bytes;  ///< header word included
  std::uint16_t id = 0;         ///< the second word of a user linkage
  DatabaseKey database;         ///< of both database kinds
  std::uint8_t fill_color = 0;  ///< a colour index
};

/// Walks over the attribute data of an element, linkage by linkage. Four-word database linkages tell no
/// length, so stepping by lengths alone gets lost behind them. Ends for any bytes.
class LinkageWalker {
 public:
  explicit LinkageWalker(std::span<const char> attributes) noexcept : bytes_(attributes) {}

  /// False at the end. A linkage that says it is longer than the rest is cut at the end.
  [[nodiscard]] bool Next(Linkage& linkage) noexcept;

 private:
  [[nodiscard]] std::uint16_t Word(std::size_t word) const noexcept;
  [[nodiscard]] std::size_t WordsLeft() const noexcept { return bytes_.size() / 2 - at_; }
  [[nodiscard]] bool IsFiller() const noexcept;

  std::span<const char> bytes_;
  std::size_t at_ = 0;  // in words
};

/// What of an element's linkages matters for its look and its row: the first of each.
struct LinkageFacts {
  std::optional<DatabaseKey> database;     ///< the first that is not all zero
  std::optional<std::uint8_t> fill_color;  ///< a colour index
};
[[nodiscard]] LinkageFacts ReadLinkages(std::span<const char> attributes) noexcept;

}  // namespace App
