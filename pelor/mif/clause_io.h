#pragma once

#include <pelor/base/text_scanner.h>
#include <pelor/mif/keyword.h>
#include <pelor/mif/lexis.h>

#include <initializer_list>
#include <span>

// What the readers of clauses have in common. Not part of the library's interface.

namespace Pelor::MIF::Clause {

/// Reports the message with the scanner's status; false.
bool Fail(const char* message, const Tobri::IxText& in);

/// Goes to the word that stands where a number should, so that a message shows its place; false.
bool Missing(Tobri::IxText& in);

/// Reads the numbers of a clause, across line ends, and skips what is left of them. False when one is
/// missing; those before it are read.
[[nodiscard]] bool ReadNumbers(std::span<double* const> numbers, Tobri::IxText& in);
[[nodiscard]] inline bool ReadNumbers(std::initializer_list<double*> numbers, Tobri::IxText& in) {
  return ReadNumbers(std::span(numbers.begin(), numbers.size()), in);
}

[[nodiscard]] inline bool ReadNumber(double& number, Tobri::IxText& in, bool across_lines) {
  return in.ReadNextSep(number, Tobri::FltFmt(), across_lines) || Missing(in);
}
[[nodiscard]] inline bool ReadNumber(int& number, Tobri::IxText& in, bool across_lines) {
  return in.ReadNextSep(number, Tobri::IntFmt(), across_lines) || Missing(in);
}

/// Clauses that may follow, tried in a fixed order. The word that ends them is left unread.
class Optional {
 public:
  explicit Optional(Tobri::IxText& in) : in_(in) {}

  /// If the next word is `keyword`, lets `read` read the clause behind it. A clause that could not be read
  /// ends them where its reading stopped.
  template <class Reader>
  Optional& Try(KeyWord keyword, Reader&& read) {
    if (failed_ || !ReadSpecifier(in_, keyword)) return *this;
    any_ = true;
    failed_ = !read();
    return *this;
  }

  [[nodiscard]] bool Any() const { return any_; }

 private:
  Tobri::IxText& in_;
  bool any_ = false;
  bool failed_ = false;
};

}  // namespace Pelor::MIF::Clause
