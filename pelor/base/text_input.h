#pragma once

#include <pelor/base/export.h>
#include <pelor/base/text_settings.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <istream>
#include <memory>
#include <span>
#include <string_view>

namespace Tobri {

/// A text input over a standard stream: a window of bytes that moves along the stream, a position in it, and
/// the conventions by which the text is read. Memory is constant whatever the size of the text.
///
/// Line ends are CR, LF and CR LF. Lines and columns count from 1, and a column is one byte. Line ends are
/// not counted while reading but when bytes leave the window, a block at a time, so the hot paths pay
/// nothing.
class PELOR_EXPORT IBText {
 public:
  /// How a value ended.
  enum EndMode : std::int32_t {
    EndNot,         ///< there was no value
    EndLine,        ///< at a line end, which is left unread
    EndInput,       ///< at the end of the input
    EndBracketed,   ///< at a bracket, which is left unread
    EndSep,         ///< at a separator, which is read
    EndSepBracket,  ///< at a separator, which is read, and which a bracket follows
  };
  /// In which mode a character was read.
  enum CharMode : std::int32_t { Normal, Quoted, Escaped, Comment };

  /// What a character means under the installed conventions: a combination of these bits.
  enum CharClass : std::uint8_t {
    kBlank = 1,    ///< white space that is no line end
    kLineEnd = 2,  ///< CR or LF, unless it is a separator
    kSeparator = 4,
    kQuote = 8,
    kBracket = 16,     ///< "(" or ")"
    kComment = 32,     ///< opens a comment
    kSkippedEnd = 64,  ///< a line end that the white-space set holds
  };

  /// The number and the start of the line that holds the byte at `offset`.
  struct LineState {
    std::uint64_t offset = 0;
    std::uint64_t line = 1;
    std::uint64_t line_start = 0;

    /// Moves on over `bytes`, which must not part a CR from its LF.
    void Advance(std::span<const char> bytes) noexcept;
  };

  /// A position to return to. It belongs to the stream that was attached when it was taken.
  struct Pos {
    std::uint64_t offset = 0;
    LineState anchor;  ///< the state at some byte before, from which the line can be counted
  };

  IBText();
  IBText(const IBText&) = delete;
  IBText& operator=(const IBText&) = delete;

  /// Back to the constructed state: no stream, default separators, no quotes, no comments.
  void init();

  /// Attaches a stream at its present position, which is line 1, column 1. The stream must stay alive. A
  /// stream that cannot seek can still be read; going back is then limited to kHistory bytes and sets its
  /// failbit beyond that.
  void Attach(std::istream& stream);

  void Def(const TxtSeparators& separators);
  void Def(const TxtQuotes& quotes);
  /// With `close_stays`, the closing character of a comment is read as what follows the comment; a comment to
  /// the end of the line then leaves the line end in place.
  void Def(const TxtComments& comments, bool close_stays);

  [[nodiscard]] const TxtSeparators& Separators() const noexcept { return separators_; }
  [[nodiscard]] const TxtQuotes& Quotes() const noexcept { return quotes_; }
  [[nodiscard]] const TxtComments& Comments() const noexcept { return comments_; }
  [[nodiscard]] bool CommentCloseStays() const noexcept { return comment_close_stays_; }

  [[nodiscard]] Pos GetPos() const noexcept { return {Offset(), anchor_}; }
  /// Returns to a position. The next read sees just what it saw before, and line and column are those of
  /// then.
  void SetPos(const Pos& pos);

  /// Bytes between where the stream was attached and the position.
  [[nodiscard]] std::uint64_t Offset() const noexcept {
    return anchor_.offset + static_cast<std::uint64_t>(position_ - begin_);
  }
  /// The line and the line start at the position. Counts the line ends of the window.
  [[nodiscard]] LineState Line() const noexcept;

  /// The bytes from the position on, `want` of them at least unless the input ends before; `want` is at most
  /// kBlock. Good until the next call that is not const.
  [[nodiscard]] std::string_view Window(std::size_t want) {
    if (static_cast<std::size_t>(end_ - position_) < want) [[unlikely]]
      Fill(want);
    return {position_, static_cast<std::size_t>(end_ - position_)};
  }
  /// Moves the position on by n bytes of the window.
  void Consume(std::size_t n) noexcept { position_ += n; }
  [[nodiscard]] bool AtEnd() { return Window(1).empty(); }

  [[nodiscard]] std::uint8_t ClassOf(char c) const noexcept {
    return classes_[static_cast<unsigned char>(c)];
  }

  /// Whether a number ends where its notation does: values are words, and no convention gives another meaning
  /// to a character that numbers are made of.
  [[nodiscard]] bool NumbersArePlain() const noexcept { return numbers_are_plain_; }

  /// Skips white space and comments; line ends only with `across_lines`, and only if they are white space.
  void SkipBlanks(bool across_lines);
  /// Reads one line end; false when the position is not at one.
  bool SkipLineEnd();

  static constexpr std::size_t kBlock = std::size_t{64} * 1024;
  static constexpr std::size_t kHistory = std::size_t{4} * 1024;

 private:
  void Fill(std::size_t want);
  void Classify();
  void SkipComment();

  std::istream* stream_ = nullptr;
  std::streamoff base_ = -1;  ///< where the stream was attached; -1 when it cannot tell
  std::unique_ptr<char[]> buffer_;
  const char* begin_ = nullptr;  ///< the window: history, position, and what is ahead
  const char* position_ = nullptr;
  const char* end_ = nullptr;
  bool exhausted_ = true;  ///< the stream has nothing behind the window
  LineState anchor_;       ///< at begin_
  std::array<std::uint8_t, 256> classes_{};
  bool numbers_are_plain_ = true;
  TxtSeparators separators_;
  TxtQuotes quotes_;
  TxtComments comments_;
  bool comment_close_stays_ = false;
};

}  // namespace Tobri
