#pragma once

#include <pelor/base/point.h>
#include <pelor/base/text_scanner.h>
#include <pelor/mif/keyword.h>
#include <pelor/mif/lexis.h>
#include <pelor/mif/style_clauses.h>

#include <cstddef>
#include <initializer_list>
#include <ostream>
#include <span>

// What the clauses of all object kinds have in common. Not part of the library's interface.

namespace Pelor::MIF::Clause {

/// Ends a line, and flushes the stream unless that is switched off for it.
void EndLine(std::ostream& out);

/// Puts each number behind one blank.
void PutNumbers(std::ostream& out, std::initializer_list<double> numbers);
void PutCount(std::ostream& out, std::size_t count);
/// Puts each vertex on a line of its own.
void PutVertices(std::ostream& out, std::span<const Vanth::PointXY> vertices);

/// Puts a style clause behind a blank.
template <class Style>
void PutStyle(std::ostream& out, const Style& style) {
  out.put(' ');
  Write(style, out);
}

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
  explicit Optional(Tobri::IxText& in) : in_(in) { word_.Read(in); }
  ~Optional() { in_.SetPos(word_.pos); }
  Optional(const Optional&) = delete;
  Optional& operator=(const Optional&) = delete;

  /// If the next word is `keyword`, lets `read` read the clause behind it and goes to the next word. A clause
  /// that could not be read ends them where its reading stopped.
  template <class Reader>
  Optional& Try(KeyWord keyword, Reader&& read) {
    if (word_.id != keyword) return *this;
    any_ = true;
    if (read()) {
      word_.Read(in_);
    } else {
      word_ = {{}, NoKeyWord, in_.GetPos()};
    }
    return *this;
  }

  [[nodiscard]] bool Any() const { return any_; }

 private:
  Tobri::IxText& in_;
  ReadKW word_;
  bool any_ = false;
};

}  // namespace Pelor::MIF::Clause
