#pragma once

#include <pelor/base/number.h>
#include <pelor/base/number_parse.h>
#include <pelor/base/text_input.h>

#include <istream>

namespace Tobri {

/// Reading of words and fields from a text input.
class PELOR_EXPORT TxtRdr {
 public:
  using EndMode = IBText::EndMode;

  /// Letters, digits and the underscore.
  [[nodiscard]] static IRefC<ChrS<char>> DefIDLetters();

  /// Skips white space, line ends among it if the white-space set holds them, and comments.
  static void SkipWS(IBText& in) { in.SkipBlanks(true); }
  /// The longest run of `letters`, empty if there is none; `skip_blanks` skips white space before it.
  [[nodiscard]] static String GetIdentifier(IBText& in, const IRefC<ChrS<char>>& letters, bool skip_blanks);
  /// Skips blanks on the line and reads one separator; false, with nothing read, when none follows.
  static bool GetSep(IBText& in);
  /// Reads one value. `across_lines`: line ends before it are skipped if they are white space; `quotes`:
  /// quotes are understood; `brackets`: brackets end the value; `trim`: blanks around it are dropped. White
  /// space ends a value, except in fields. `end` tells how the value ended; a value that is quoted and not
  /// closed before the input ends has all of the text, and EndNot.
  [[nodiscard]] static String GetSeparated(IBText& in, EndMode& end, bool across_lines, bool quotes,
                                           bool brackets, bool trim);
  /// The same into a text that keeps its storage from value to value.
  static void GetSeparated(IBText& in, std::string& value, EndMode& end, bool across_lines, bool quotes,
                           bool brackets, bool trim);
  /// True when the input holds more than white space from here on. Nothing is read.
  [[nodiscard]] static bool LookAheadCheck(IBText& in);
};

/// The text scanner: a text input with a name, typed values and the arguments of clauses.
class PELOR_EXPORT IxText : public IBText {
 public:
  class ArgSep;

  IxText() = default;

  /// Attaches an open stream and the name by which GetStatus calls it.
  void Set(std::istream& stream, const String& name);
  [[nodiscard]] const String& Name() const noexcept { return name_; }

  /// Read the next value: blanks, at most one separator and blanks are skipped first, line ends too with
  /// `across_lines`. True when there was a value of the type; otherwise the target is unchanged and the
  /// position is before what could not be read. Numbers are in the classic notation, with an optional sign.
  bool ReadNextSep(String& value, bool across_lines);
  bool ReadNextSep(int& value, const IntFmt& format, bool across_lines);
  bool ReadNextSep(long& value, const IntFmt& format, bool across_lines);
  bool ReadNextSep(double& value, const FltFmt& format, bool across_lines) {
    // The hot path: two numbers a vertex. The margin holds the blanks, the number and what ends it.
    constexpr std::size_t kMargin = 64;
    const std::string_view window = Window(kMargin);
    if (window.size() < kMargin || !NumbersArePlain()) [[unlikely]]
      return ReadNumber(value, format, across_lines);
    const char* p = window.data();
    const char* const margin = p + kMargin / 2;
    const unsigned skipped = across_lines ? kBlank | kSkippedEnd : unsigned{kBlank};
    while (p != margin && (ClassOf(*p) & skipped) != 0) ++p;
    double parsed = 0.0;
    const char* const stop = ParseDouble(p, window.data() + window.size(), parsed);
    if (stop == nullptr || stop >= window.data() + kMargin || !EndsNumber(*stop)) [[unlikely]] {
      return ReadNumber(value, format, across_lines);
    }
    value = parsed;
    Consume(static_cast<std::size_t>(stop - window.data()));
    return true;
  }

  /// `NAME, line L, column C` of the position.
  [[nodiscard]] String GetStatus() const;

 private:
  friend class ArgSep;

  /// Whether a number may end before `c`: it may not run into a word.
  [[nodiscard]] bool EndsNumber(char c) const noexcept {
    constexpr unsigned kEnds = kBlank | kLineEnd | kSeparator | kQuote | kBracket | kComment;
    return (ClassOf(c) & kEnds) != 0;
  }
  /// Skips what stands before a value.
  void SkipToValue(bool across_lines);
  template <class T, class Format>
  bool ReadNumber(T& value, const Format& format, bool across_lines);
  template <class T, class Format>
  bool ReadNumberHere(T& value, const Format& format);
  bool ReadTextHere(String& value);

  String name_;
  std::string text_;  ///< the value in hand; keeps its storage
};

/// The arguments of one clause, one by one.
class PELOR_EXPORT IxText::ArgSep {
 public:
  ArgSep() = default;
  ArgSep(const ArgSep&) = delete;
  ArgSep& operator=(const ArgSep&) = delete;

  /// Begins on the scanner. `bracketed`: the arguments stand in "(" and ")", and false is the answer, with
  /// nothing read, when no bracket opens; `separated`: a separator stands before the first argument too, and
  /// every argument needs one; `across_lines`: arguments go on behind line ends.
  bool Set(IxText& in, bool bracketed, bool separated, bool across_lines);

  /// Read the next argument. True when there was one and it could be converted; otherwise the target is
  /// unchanged. In fields, an argument is a whole field, and a record of no characters has none.
  bool ReadNext(double& value, const FltFmt& format);
  bool ReadNext(int& value, const IntFmt& format);
  bool ReadNext(long& value, const IntFmt& format);
  bool ReadNext(String& value);

  /// True when a separator follows, and with it a further argument; `consume` reads the separator, and
  /// `across_lines` looks for it behind line ends too.
  bool Next(bool consume, bool across_lines);
  /// Discards what is left of the clause. In brackets: all up to the closing bracket, which is read; false
  /// when there is none on the line. In fields: the rest of the record with its line end. Otherwise the rest
  /// of the line, but for arguments across lines only up to the next word, which begins another clause.
  bool Skip();
  /// Gives the scanner back.
  void Release() noexcept { in_ = nullptr; }

 private:
  template <class T, class Format>
  bool ReadNumberNext(T& value, const Format& format);
  bool GoToArgument();

  IxText* in_ = nullptr;
  bool bracketed_ = false;
  bool separated_ = false;
  bool across_lines_ = false;
  bool separator_due_ = false;            ///< an argument was read, and no separator since
  IBText::EndMode end_ = IBText::EndNot;  ///< how the last field ended
};

}  // namespace Tobri
