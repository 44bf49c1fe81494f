#pragma once

#include <pelor/base/number_format.h>
#include <pelor/base/point.h>
#include <pelor/mi/brush.h>
#include <pelor/mi/font.h>
#include <pelor/mi/pen.h>
#include <pelor/mi/symbol.h>
#include <pelor/mif/keyword.h>
#include <pelor/mif/style_size.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <ostream>
#include <span>
#include <string_view>

// How the texts of clauses are put together. Not part of the library's interface.

namespace Pelor::MIF {

/// Collects the text of clauses for a stream, so that the stream is called once for many pieces. Numbers are
/// as the stream would print them in the classic locale. What is not given to the stream by Give() is lost.
class ClauseText {
 public:
  explicit ClauseText(std::ostream& out);
  ClauseText(const ClauseText&) = delete;
  ClauseText& operator=(const ClauseText&) = delete;

  /// Gives everything to the stream.
  void Give();

  void Put(char c) {
    MakeRoom(1);
    *at_++ = c;
  }
  void Put(std::string_view text) {
    if (text.size() > kSize) [[unlikely]] {
      PutLong(text);
      return;
    }
    MakeRoom(text.size());
    Copy(text);
  }
  void Put(KeyWord keyword) { Put(KeyWordText(keyword)); }
  /// In double quotes, with those inside doubled.
  void PutQuoted(std::string_view text);
  void PutNumber(double number);
  void PutInteger(long number);
  /// Ends the line, and flushes the stream unless that is switched off for it.
  void EndLine();

  /// Puts each number behind one blank.
  void PutNumbers(std::initializer_list<double> numbers);
  /// Puts each vertex on a line of its own.
  void PutVertices(std::span<const Vanth::PointXY> vertices);

 private:
  // Pieces of 1024 bytes and more would pass by a file stream's buffer.
  static constexpr std::size_t kSize = 1008;

  void MakeRoom(std::size_t size) {
    if (static_cast<std::size_t>(buffer_.data() + kSize - at_) < size) [[unlikely]]
      Give();
  }
  // Most pieces are short: two words that overlap copy them, where a call would cost more than its copy.
  void Copy(std::string_view text) {
    const char* const from = text.data();
    const std::size_t size = text.size();
    if (size > 16) {
      std::memcpy(at_, from, size);
    } else if (size >= 8) {
      CopyEnds<8>(from, size);
    } else if (size >= 4) {
      CopyEnds<4>(from, size);
    } else {
      for (std::size_t i = 0; i < size; ++i) at_[i] = from[i];
    }
    at_ += size;
  }
  template <std::size_t kWidth>
  void CopyEnds(const char* from, std::size_t size) {
    std::array<char, kWidth> first = {};
    std::array<char, kWidth> last = {};
    std::memcpy(first.data(), from, kWidth);
    std::memcpy(last.data(), from + size - kWidth, kWidth);
    std::memcpy(at_, first.data(), kWidth);
    std::memcpy(at_ + size - kWidth, last.data(), kWidth);
  }
  void PutLong(std::string_view text);

  std::ostream& out_;
  bool numbers_are_plain_;   ///< the stream's format needs no help for numbers with a point
  bool integers_are_plain_;  ///< nor for whole numbers
  bool lines_are_flushed_;
  int precision_;
  std::array<char, kSize> buffer_;
  char* at_ = buffer_.data();
};

// The texts that the writers of style_clauses.h and style_size.h give.

void Put(ClauseText& text, const StyleSize& size, MI::SLUnits default_units);
void Put(ClauseText& text, const MI::Pen& pen);
void Put(ClauseText& text, const MI::Brush& brush);
void Put(ClauseText& text, const MI::Symbol& symbol);
void Put(ClauseText& text, const MI::Font& font);

}  // namespace Pelor::MIF
