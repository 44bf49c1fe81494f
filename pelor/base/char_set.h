#pragma once

#include <pelor/base/handle.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace Tobri {

/// A set of 8-bit characters, such as separators or the letters of identifiers; shared through
/// IRefC<ChrS<char>>. Any byte may be a member, NUL included.
template <class Ch>
class ChrS : public Rep {
  static_assert(sizeof(Ch) == 1, "a set of 8-bit characters");
  using Words = std::array<std::uint64_t, 4>;

 public:
  /// Walks the members in ascending order of their unsigned codes. It holds its own copy of the set, so it
  /// may outlive it and sees no later change. It ends by comparing equal to std::default_sentinel.
  class Iter {
   public:
    using value_type = Ch;
    using difference_type = std::ptrdiff_t;
    using iterator_concept = std::forward_iterator_tag;
    using iterator_category = std::input_iterator_tag;  // the reference is a value
    using pointer = void;
    using reference = Ch;

    constexpr Iter() noexcept = default;
    explicit constexpr Iter(const Words& members) noexcept : rest_(members), word_(0) { SkipEmptyWords(); }

    /// The present member; there must be one.
    [[nodiscard]] constexpr Ch operator*() const noexcept {
      return static_cast<Ch>(static_cast<unsigned char>(word_ * 64 + FirstBit()));
    }
    constexpr Iter& operator++() noexcept {
      rest_[word_] &= rest_[word_] - 1;
      SkipEmptyWords();
      return *this;
    }
    constexpr Iter operator++(int) noexcept {
      const Iter before = *this;
      ++*this;
      return before;
    }
    /// True while there is a present member.
    explicit constexpr operator bool() const noexcept { return word_ < rest_.size(); }

    friend constexpr bool operator==(const Iter& a, const Iter& b) noexcept { return a.rest_ == b.rest_; }
    friend constexpr bool operator==(const Iter& a, std::default_sentinel_t) noexcept { return !a; }

   private:
    constexpr unsigned FirstBit() const noexcept {
      return static_cast<unsigned>(std::countr_zero(rest_[word_]));
    }
    constexpr void SkipEmptyWords() noexcept {
      while (word_ < rest_.size() && rest_[word_] == 0) ++word_;
    }

    Words rest_{};  // the members not yet passed, the present one included
    unsigned word_ = static_cast<unsigned>(Words().size());
  };

  ChrS() noexcept = default;
  explicit ChrS(Ch member) noexcept { Add(member); }
  /// The set of the characters that occur in `members`.
  explicit ChrS(std::basic_string_view<Ch> members) noexcept { Add(members); }

  [[nodiscard]] bool Contains(Ch c) const noexcept {
    const unsigned code = static_cast<unsigned char>(c);
    return ((members_[code / 64] >> (code % 64)) & 1U) != 0;
  }
  [[nodiscard]] bool IsEmpty() const noexcept {
    return (members_[0] | members_[1] | members_[2] | members_[3]) == 0;
  }

  void Add(Ch member) noexcept {
    const unsigned code = static_cast<unsigned char>(member);
    members_[code / 64] |= std::uint64_t{1} << (code % 64);
  }
  void Add(std::basic_string_view<Ch> members) noexcept {
    for (const Ch member : members) Add(member);
  }

  [[nodiscard]] Iter GetIter() const noexcept { return Iter(members_); }
  [[nodiscard]] Iter begin() const noexcept { return GetIter(); }
  [[nodiscard]] std::default_sentinel_t end() const noexcept { return {}; }

  friend bool operator==(const ChrS& a, const ChrS& b) noexcept { return a.members_ == b.members_; }

 private:
  Words members_{};
};

/// A map from 8-bit characters to 8-bit characters; shared through IRefC<ChrM<char>>. A new map leaves every
/// character as it is.
template <class Ch>
class ChrM : public Rep {
  static_assert(sizeof(Ch) == 1, "a map of 8-bit characters");

 public:
  ChrM() noexcept {
    for (unsigned code = 0; code < images_.size(); ++code) images_[code] = static_cast<Ch>(code);
  }

  /// The character that `c` is mapped to.
  [[nodiscard]] Ch operator[](Ch c) const noexcept { return images_[static_cast<unsigned char>(c)]; }
  void Set(Ch from, Ch to) noexcept { images_[static_cast<unsigned char>(from)] = to; }

  friend bool operator==(const ChrM& a, const ChrM& b) noexcept { return a.images_ == b.images_; }

 private:
  std::array<Ch, 256> images_{};
};

}  // namespace Tobri
