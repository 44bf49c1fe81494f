#include <pelor/base/text_scanner.h>

#include <algorithm>
#include <string>
#include <utility>

namespace Tobri {

namespace {

enum class Value { kNone, kPlain, kQuoted, kUnclosed };

// Appends characters up to the first one of the classes in `stops`.
void ReadRun(IBText& in, std::string& value, unsigned stops) {
  for (;;) {
    const std::string_view window = in.Window(1);
    std::size_t n = 0;
    while (n < window.size() && (in.ClassOf(window[n]) & stops) == 0) ++n;
    value.append(window.substr(0, n));
    in.Consume(n);
    if (n < window.size() || window.empty()) return;
  }
}

// Reads what stands in quotes, from the opening quote on; false when the input ends before the quote does.
bool ReadQuoted(IBText& in, std::string& value) {
  const TxtQuotes& quotes = in.Quotes();
  const char quote = in.Window(1).front();
  const char stops[] = {quote, quotes.LineEndsClose() ? '\n' : quote, quotes.LineEndsClose() ? '\r' : quote,
                        quotes.Escape() != 0 ? quotes.Escape() : quote};
  const bool quote_alone = !quotes.LineEndsClose() && quotes.Escape() == 0;
  in.Consume(1);
  for (;;) {
    const std::string_view window = in.Window(2);
    if (window.empty()) return false;
    const std::size_t n =
        quote_alone ? window.find(quote) : window.find_first_of(std::string_view(stops, sizeof stops));
    value.append(window.substr(0, n));
    if (n == std::string_view::npos) {
      in.Consume(window.size());
      continue;
    }
    in.Consume(n);
    const std::string_view rest = in.Window(2);
    if (rest[0] == quote) {
      if (quotes.Doubled() && rest.size() > 1 && rest[1] == quote) {
        value += quote;
        in.Consume(2);
        continue;
      }
      in.Consume(1);
      return true;
    }
    if (rest[0] != quotes.Escape()) return true;  // a line end, left unread
    in.Consume(1);
    if (rest.size() > 1) {
      value += rest[1];
      in.Consume(1);
    }
  }
}

// Reads one value at the position, and neither blanks before it nor what ends it.
Value ReadValue(IBText& in, std::string& value, bool quotes, bool brackets) {
  value.clear();
  const std::string_view window = in.Window(1);
  if (window.empty()) return Value::kNone;
  const bool fields = in.Separators().fields;
  const bool quoted = quotes && (in.ClassOf(window[0]) & IBText::kQuote) != 0;
  if (quoted && !ReadQuoted(in, value)) return Value::kUnclosed;
  unsigned stops = IBText::kSeparator | IBText::kLineEnd;
  if (!fields) {
    if (quoted) return Value::kQuoted;
    stops |= IBText::kBlank | IBText::kComment;
    if (brackets) stops |= IBText::kBracket;
  }
  // In a field, what stands behind a closing quote still belongs to the value.
  ReadRun(in, value, stops);
  if (quoted) return Value::kQuoted;
  return value.empty() ? Value::kNone : Value::kPlain;
}

void Trim(std::string& value) {
  const auto blank = [](char c) { return c == ' ' || c == '\t'; };
  value.erase(std::find_if_not(value.rbegin(), value.rend(), blank).base(), value.end());
  value.erase(value.begin(), std::find_if_not(value.begin(), value.end(), blank));
}

// Says what stands at the position behind a value, and reads it if it is a separator.
IBText::EndMode ReadEnd(IBText& in) {
  const bool fields = in.Separators().fields;
  if (!fields) in.SkipBlanks(false);
  const std::string_view window = in.Window(1);
  if (window.empty()) return IBText::EndInput;
  const unsigned here = in.ClassOf(window[0]);
  if ((here & IBText::kLineEnd) != 0) return IBText::EndLine;
  if ((here & IBText::kBracket) != 0) return IBText::EndBracketed;
  if ((here & IBText::kSeparator) == 0) return IBText::EndSep;  // white space parted it from the next word
  in.Consume(1);
  if (fields) return IBText::EndSep;
  const IBText::Pos behind = in.GetPos();
  in.SkipBlanks(false);
  const std::string_view next = in.Window(1);
  const bool bracket = !next.empty() && (in.ClassOf(next[0]) & IBText::kBracket) != 0;
  in.SetPos(behind);
  return bracket ? IBText::EndSepBracket : IBText::EndSep;
}

// Discards up to the end of the line and reads the line end.
void SkipLine(IBText& in) {
  for (;;) {
    const std::string_view window = in.Window(1);
    if (window.empty()) return;
    const std::size_t n = window.find_first_of("\r\n");
    in.Consume(std::min(n, window.size()));
    if (n == std::string_view::npos) continue;
    if (!in.SkipLineEnd()) in.Consume(1);  // a line end that is a separator
    return;
  }
}

const char* Parse(const char* first, const char* last, double& value, const FltFmt& /*format*/) {
  return ParseDouble(first, last, value);
}

const char* Parse(const char* first, const char* last, int& value, const IntFmt& format) {
  return ParseInteger(first, last, value, format.base);
}

// A long stands for a signed 32-bit quantity.
const char* Parse(const char* first, const char* last, long& value, const IntFmt& format) {
  std::int32_t narrow = 0;
  const char* const stop = ParseInteger(first, last, narrow, format.base);
  if (stop != nullptr) value = narrow;
  return stop;
}

}  // namespace

IRefC<ChrS<char>> TxtRdr::DefIDLetters() {
  return IRefC<ChrS<char>>(new ChrS<char>("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_"));
}

String TxtRdr::GetIdentifier(IBText& in, const IRefC<ChrS<char>>& letters, bool skip_blanks) {
  if (skip_blanks) SkipWS(in);
  std::string identifier;
  for (;;) {
    const std::string_view window = in.Window(1);
    std::size_t n = 0;
    while (n < window.size() && letters->Contains(window[n])) ++n;
    identifier.append(window.substr(0, n));
    in.Consume(n);
    if (n < window.size() || window.empty()) return String(std::move(identifier));
  }
}

bool TxtRdr::GetSep(IBText& in) {
  const IBText::Pos before = in.GetPos();
  in.SkipBlanks(false);
  const std::string_view window = in.Window(1);
  if (!window.empty() && (in.ClassOf(window[0]) & IBText::kSeparator) != 0) {
    in.Consume(1);
    return true;
  }
  in.SetPos(before);
  return false;
}

void TxtRdr::GetSeparated(IBText& in, std::string& value, EndMode& end, bool across_lines, bool quotes,
                          bool brackets, bool trim) {
  if (trim || across_lines) in.SkipBlanks(across_lines);
  const Value kind = ReadValue(in, value, quotes, brackets);
  if (trim && kind == Value::kPlain) Trim(value);
  end = kind == Value::kUnclosed ? IBText::EndNot : ReadEnd(in);
}

String TxtRdr::GetSeparated(IBText& in, EndMode& end, bool across_lines, bool quotes, bool brackets,
                            bool trim) {
  std::string value;
  GetSeparated(in, value, end, across_lines, quotes, brackets, trim);
  return String(std::move(value));
}

bool TxtRdr::LookAheadCheck(IBText& in) {
  const IBText::Pos before = in.GetPos();
  SkipWS(in);
  const bool more = !in.AtEnd();
  in.SetPos(before);
  return more;
}

void IxText::Set(std::istream& stream, const String& name) {
  Attach(stream);
  name_ = name;
}

String IxText::GetStatus() const {
  const LineState line = Line();
  return String(name_.str() + ", line " + std::to_string(line.line) + ", column " +
                std::to_string(Offset() - line.line_start + 1));
}

void IxText::SkipToValue(bool across_lines) {
  SkipBlanks(across_lines);
  if (Separators().fields) return;
  const std::string_view window = Window(1);
  if (window.empty() || (ClassOf(window[0]) & kSeparator) == 0) return;
  Consume(1);
  SkipBlanks(across_lines);
}

template <class T, class Format>
bool IxText::ReadNumberHere(T& value, const Format& format) {
  T parsed{};
  if (Separators().fields) {
    EndMode end = EndNot;
    TxtRdr::GetSeparated(*this, text_, end, false, true, false, true);
    const char* const last = text_.data() + text_.size();
    if (end == EndNot || Parse(text_.data(), last, parsed, format) != last) return false;
    value = parsed;
    return true;
  }
  // A word that reaches the end of a short window may be cut there: look again at the largest one.
  for (const std::size_t want : {std::size_t{128}, kBlock}) {
    const std::string_view window = Window(want);
    const auto word_end =
        std::find_if(window.begin(), window.end(), [this](char c) { return EndsNumber(c); });
    if (word_end == window.end() && window.size() >= want) continue;
    const auto length = static_cast<std::size_t>(word_end - window.begin());
    const char* const last = window.data() + length;
    if (Parse(window.data(), last, parsed, format) != last) return false;
    value = parsed;
    Consume(length);
    return true;
  }
  return false;
}

template <class T, class Format>
bool IxText::ReadNumber(T& value, const Format& format, bool across_lines) {
  const Pos before = GetPos();
  SkipToValue(across_lines);
  if (ReadNumberHere(value, format)) return true;
  SetPos(before);
  return false;
}

bool IxText::ReadTextHere(String& value) {
  const Value kind = ReadValue(*this, text_, true, true);
  if (kind == Value::kNone) return false;
  value = std::string_view(text_);
  return kind != Value::kUnclosed;
}

bool IxText::ReadNextSep(String& value, bool across_lines) {
  const Pos before = GetPos();
  if (Separators().fields) {
    EndMode end = EndNot;
    TxtRdr::GetSeparated(*this, text_, end, across_lines, true, false, false);
    value = std::string_view(text_);
    return end != EndNot;
  }
  SkipToValue(across_lines);
  if (ReadTextHere(value)) return true;
  if (!AtEnd()) SetPos(before);
  return false;
}

bool IxText::ReadNextSep(int& value, const IntFmt& format, bool across_lines) {
  return ReadNumber(value, format, across_lines);
}

bool IxText::ReadNextSep(long& value, const IntFmt& format, bool across_lines) {
  return ReadNumber(value, format, across_lines);
}

template bool IxText::ReadNumber(double&, const FltFmt&, bool);

bool IxText::ArgSep::Set(IxText& in, bool bracketed, bool separated, bool across_lines) {
  in_ = &in;
  bracketed_ = bracketed;
  separated_ = separated;
  across_lines_ = across_lines;
  separator_due_ = separated;
  end_ = IBText::EndNot;
  if (!bracketed) return true;
  const Pos before = in.GetPos();
  in.SkipBlanks(across_lines);
  const std::string_view window = in.Window(1);
  if (window.starts_with('(')) {
    in.Consume(1);
    return true;
  }
  in.SetPos(before);
  return false;
}

bool IxText::ArgSep::GoToArgument() {
  in_->SkipBlanks(across_lines_);
  if (!std::exchange(separator_due_, true)) return true;
  const std::string_view window = in_->Window(1);
  if (window.empty() || (in_->ClassOf(window[0]) & kSeparator) == 0) return !separated_;
  in_->Consume(1);
  in_->SkipBlanks(across_lines_);
  return true;
}

template <class T, class Format>
bool IxText::ArgSep::ReadNumberNext(T& value, const Format& format) {
  if (in_->Separators().fields) {
    String field;
    if (!ReadNext(field)) return false;
    const std::string_view text = field;
    T parsed{};
    if (Parse(text.data(), text.data() + text.size(), parsed, format) != text.data() + text.size())
      return false;
    value = parsed;
    return true;
  }
  const Pos before = in_->GetPos();
  if (GoToArgument() && in_->ReadNumberHere(value, format)) return true;
  in_->SetPos(before);
  return false;
}

bool IxText::ArgSep::ReadNext(double& value, const FltFmt& format) {
  return ReadNumberNext(value, format);
}
bool IxText::ArgSep::ReadNext(int& value, const IntFmt& format) {
  return ReadNumberNext(value, format);
}
bool IxText::ArgSep::ReadNext(long& value, const IntFmt& format) {
  return ReadNumberNext(value, format);
}

bool IxText::ArgSep::ReadNext(String& value) {
  if (in_->Separators().fields) {
    if (!std::exchange(separator_due_, true)) {
      const std::string_view window = in_->Window(1);
      if (window.empty() || (in_->ClassOf(window[0]) & kLineEnd) != 0) return false;
    } else if (end_ != EndSep) {
      return false;
    }
    TxtRdr::GetSeparated(*in_, in_->text_, end_, false, true, false, false);
    value = std::string_view(in_->text_);
    return end_ != EndNot;
  }
  const Pos before = in_->GetPos();
  if (GoToArgument() && in_->ReadTextHere(value)) return true;
  if (!in_->AtEnd()) in_->SetPos(before);
  return false;
}

bool IxText::ArgSep::Next(bool consume, bool across_lines) {
  const Pos before = in_->GetPos();
  in_->SkipBlanks(across_lines);
  const std::string_view window = in_->Window(1);
  const bool further = !window.empty() && (in_->ClassOf(window[0]) & kSeparator) != 0;
  if (further && consume) {
    in_->Consume(1);
    separator_due_ = false;
  } else {
    in_->SetPos(before);
  }
  return further;
}

bool IxText::ArgSep::Skip() {
  if (in_->Separators().fields || (!bracketed_ && !across_lines_)) {
    SkipLine(*in_);
    return true;
  }
  std::string discarded;
  for (;;) {
    in_->SkipBlanks(bracketed_ && across_lines_);
    const std::string_view window = in_->Window(1);
    if (window.empty()) return !bracketed_;
    const char c = window[0];
    const unsigned here = in_->ClassOf(c);
    if ((here & kLineEnd) != 0) return !bracketed_;
    const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
    if (!bracketed_ && letter) return true;
    if (bracketed_ && (here & kBracket) != 0) {
      if (c == ')') in_->Consume(1);
      return c == ')';
    }
    if (ReadValue(*in_, discarded, true, true) == Value::kNone) in_->Consume(1);
  }
}

}  // namespace Tobri
