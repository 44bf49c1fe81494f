#pragma once

#include <bitset>
#include <functional>
#include <optional>
#include <string_view>

namespace App {

/// A set of numbers from 0 to 127 as users write it: "1,3-5". Levels, element types and classes are such.
class NumberSet {
 public:
  static constexpr unsigned kLimit = 128;

  /// What a word in the place of a number stands for, if anything.
  using Words = std::function<std::optional<unsigned>(std::string_view word)>;

  /// No numbers.
  NumberSet() = default;
  /// Takes numbers, ranges and, where `words` is given, words, separated by commas, with or without blanks
  /// around them. `what` names the thing in the singular for the `Failure` that is thrown for anything else
  /// and for numbers beyond `highest`.
  [[nodiscard]] static NumberSet Parse(std::string_view text, unsigned highest, std::string_view what,
                                       const Words& words = {});
  [[nodiscard]] static NumberSet All();

  [[nodiscard]] bool Contains(unsigned number) const noexcept { return number < kLimit && members_[number]; }
  [[nodiscard]] bool IsAll() const noexcept { return members_.all(); }

 private:
  std::bitset<kLimit> members_;
};

/// Design levels, 0 to 63.
[[nodiscard]] NumberSet ParseLevels(std::string_view text);
/// Element types by number or by name in any case, blanks written as hyphens: "3,text,line-string".
[[nodiscard]] NumberSet ParseElementTypes(std::string_view text);
/// Element classes by number, 0 to 15, or by name: "0,construction-element".
[[nodiscard]] NumberSet ParseElementClasses(std::string_view text);

}  // namespace App
