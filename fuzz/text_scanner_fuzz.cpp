// Scans a text under conventions and by a program of operations that both come from the input, and checks
// what holds for every text: going back to a position and reading again gives the same; lines and columns are
// those of a plain count; numbers are what a word read a character at a time gives; and reading over the
// border of the window, from a stream that can seek or cannot, gives what reading from one window gave.

#include <pelor/base/text_scanner.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <streambuf>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using Tobri::ChrS;
using Tobri::IBText;
using Tobri::IRefC;
using Tobri::IxText;
using Tobri::TxtRdr;

constexpr std::size_t kWindow = IBText::kHistory + IBText::kBlock;
constexpr std::size_t kMaxSteps = 256;
// What stands before the text when it is to lie across the border of a window. Its first bytes are line ends.
constexpr std::string_view kPaddingStart = "\r\n\r\n\n";
constexpr std::uint64_t kPaddingLines = 3;

void Require(bool condition) {
  if (!condition) std::abort();
}

IRefC<ChrS<char>> SetOf(std::string_view members) {
  return members.empty() ? IRefC<ChrS<char>>() : IRefC<ChrS<char>>(new ChrS<char>(members));
}

/// The bytes that steer the scan: six of conventions, one of the window's border, eight operations.
struct Plan {
  static constexpr std::size_t kBytes = 15;

  explicit Plan(const std::uint8_t* data) {
    std::copy_n(data, conventions.size(), conventions.begin());
    border = data[6];
    std::copy_n(data + 7, operations.size(), operations.begin());
  }

  void Define(IxText& in) const {
    constexpr std::string_view kSeparators[] = {",", ";", "\t", "", ",;", " ", "\n", "5"};
    constexpr std::string_view kWhiteSpace[] = {" \t\r\n\v\f", " \t", "", " \t\n", "\r", " -", "e", "x\n"};
    constexpr std::string_view kQuotes[] = {"", "\"", "\"'", "(", "7", "\n", "\"", "\""};
    constexpr char kEscapes[] = {0, 0, '\\', '"'};
    constexpr Tobri::TxtComments kComments[] = {{0, 0},       {'#', '\n'}, {'{', '}'}, {'!', '\r'},
                                                {'\n', '\n'}, {'"', '"'},  {'1', '2'}, {'#', '#'}};
    const bool fields = (conventions[0] & 0x80U) != 0;
    in.Def(Tobri::TxtSeparators{SetOf(kSeparators[conventions[0] % 8]),
                                SetOf(kWhiteSpace[conventions[1] % 8]), ',', fields});
    in.Def(Tobri::TxtQuotes(SetOf(kQuotes[conventions[2] % 8]), '"', kEscapes[conventions[3] % 4],
                            (conventions[3] & 4U) != 0, (conventions[3] & 8U) != 0));
    in.Def(kComments[conventions[4] % 8], (conventions[5] & 1U) != 0);
  }

  std::array<std::uint8_t, 6> conventions{};
  std::uint8_t border = 0;
  std::array<std::uint8_t, 8> operations{};
};

/// What an operation gave. Offsets count from the start of the text.
struct Outcome {
  std::string text;
  std::uint64_t number = 0;
  std::int32_t state = 0;
  std::uint64_t offset = 0;

  friend bool operator==(const Outcome&, const Outcome&) = default;
};

enum Operation : unsigned {
  kSkipBlanks,
  kSkipLineEnd,
  kIdentifier,
  kSeparator,
  kSeparated,
  kLookAhead,
  kReadString,
  kReadInt,
  kReadLong,
  kReadDouble,
  kArguments,
};
constexpr unsigned kOperations = 11;

/// A few arguments of each kind, and what Skip makes of the rest.
void ReadArguments(IxText& in, unsigned flags, Outcome& outcome) {
  IxText::ArgSep arguments;
  const bool across_lines = (flags & 4U) != 0;
  if (!arguments.Set(in, (flags & 1U) != 0, (flags & 2U) != 0, across_lines)) return;
  for (unsigned i = 0; i < 6; ++i) {
    double number = 0.5;
    int whole = 7;
    long wide = 9;
    Tobri::String text("unread");
    bool read = false;
    switch ((flags + i) % 4) {
      case 0:
        read = arguments.ReadNext(number, Tobri::FltFmt());
        Require(read || number == 0.5);
        break;
      case 1:
        read = arguments.ReadNext(whole, Tobri::IntFmt());
        Require(read || whole == 7);
        break;
      case 2:
        read = arguments.ReadNext(wide, Tobri::IntFmt{16, 0});
        Require(read || wide == 9);
        break;
      default:
        read = arguments.ReadNext(text);
    }
    outcome.text += text.str();
    outcome.number = outcome.number * 31 + std::bit_cast<std::uint64_t>(number) +
                     static_cast<std::uint64_t>(whole) + static_cast<std::uint64_t>(wide);
    const bool further = (i & 1U) != 0 && arguments.Next((flags & 8U) != 0, across_lines);
    outcome.state = outcome.state * 4 + (read ? 1 : 0) + (further ? 2 : 0);
  }
  if ((flags & 8U) != 0) outcome.state = 2 * outcome.state + (arguments.Skip() ? 1 : 0);
  arguments.Release();
}

template <class T, class Format>
void ReadNumber(IxText& in, bool across_lines, Outcome& outcome) {
  T value = 77;
  outcome.state = in.ReadNextSep(value, Format(), across_lines) ? 1 : 0;
  outcome.number = std::bit_cast<std::uint64_t>(static_cast<double>(value));
}

Outcome Do(IxText& in, unsigned operation, unsigned flags) {
  Outcome outcome;
  const bool across_lines = (flags & 1U) != 0;
  switch (operation) {
    case kSkipBlanks:
      in.SkipBlanks(across_lines);
      break;
    case kSkipLineEnd:
      outcome.state = in.SkipLineEnd() ? 1 : 0;
      break;
    case kIdentifier:
      outcome.text = TxtRdr::GetIdentifier(in, TxtRdr::DefIDLetters(), across_lines).str();
      break;
    case kSeparator:
      outcome.state = TxtRdr::GetSep(in) ? 1 : 0;
      break;
    case kSeparated: {
      IBText::EndMode end = IBText::EndNot;
      TxtRdr::GetSeparated(in, outcome.text, end, across_lines, (flags & 2U) != 0, (flags & 4U) != 0,
                           (flags & 8U) != 0);
      outcome.state = end;
      break;
    }
    case kLookAhead:
      outcome.state = TxtRdr::LookAheadCheck(in) ? 1 : 0;
      break;
    case kReadString: {
      Tobri::String value("unread");
      outcome.state = in.ReadNextSep(value, across_lines) ? 1 : 0;
      outcome.text = value.str();
      break;
    }
    case kReadInt:
      ReadNumber<int, Tobri::IntFmt>(in, across_lines, outcome);
      break;
    case kReadLong:
      ReadNumber<long, Tobri::IntFmt>(in, across_lines, outcome);
      break;
    case kReadDouble:
      ReadNumber<double, Tobri::FltFmt>(in, across_lines, outcome);
      break;
    default:
      ReadArguments(in, flags, outcome);
  }
  outcome.offset = in.Offset();
  return outcome;
}

/// The word or field that a number is read from, a character at a time.
std::string NumberText(IxText& in, bool across_lines) {
  in.SkipBlanks(across_lines);
  std::string text;
  if (in.Separators().fields) {
    IBText::EndMode end = IBText::EndNot;
    TxtRdr::GetSeparated(in, text, end, false, true, false, true);
    return end == IBText::EndNot ? std::string() : text;
  }
  const auto here = [&] { return in.ClassOf(in.Window(1).front()); };
  if (!in.AtEnd() && (here() & IBText::kSeparator) != 0) {
    in.Consume(1);
    in.SkipBlanks(across_lines);
  }
  constexpr unsigned kEnds = IBText::kBlank | IBText::kLineEnd | IBText::kSeparator | IBText::kQuote |
                             IBText::kBracket | IBText::kComment;
  while (!in.AtEnd() && (here() & kEnds) == 0) {
    text += in.Window(1).front();
    in.Consume(1);
  }
  return text;
}

/// Checks what reading a number at `before` gave.
void CheckNumber(IxText& in, const IBText::Pos& before, unsigned operation, bool across_lines,
                 const Outcome& outcome) {
  in.SetPos(before);
  const std::string text = NumberText(in, across_lines);
  const char* const last = text.data() + text.size();
  double value = 77;
  int whole = 77;
  const bool is_number = operation == kReadDouble ? Tobri::ParseDouble(text.data(), last, value) == last
                                                  : Tobri::ParseInteger(text.data(), last, whole) == last;
  Require(outcome.state == (is_number ? 1 : 0));
  if (!is_number) {
    value = 77;
  } else if (operation != kReadDouble) {
    value = whole;
  }
  Require(outcome.number == std::bit_cast<std::uint64_t>(value));
  Require(outcome.offset == (is_number ? in.Offset() : before.offset));
}

/// A stream that can be read once and not sought, as a pipe.
class PipeBuffer : public std::streambuf {
 public:
  explicit PipeBuffer(std::string text) : text_(std::move(text)) {
    setg(text_.data(), text_.data(), text_.data() + text_.size());
  }

 private:
  std::string text_;
};

/// One scan of the text, which begins at `start` of the stream, on line `line` that begins at `line_start`.
class Scan {
 public:
  Scan(std::istream& stream, const Plan& plan, std::string_view text, std::size_t start)
      : plan_(plan), text_(text), start_(start) {
    in_.Set(stream, "text");
    plan.Define(in_);
    while (in_.Offset() < start_) in_.Consume(std::min(in_.Window(1).size(), start_ - in_.Offset()));
    if (start_ != 0) line_ = {kPaddingStart.size(), 1 + kPaddingLines, kPaddingStart.size()};
  }

  /// What all operations gave. With `checked`, each is done twice and compared with what is known of it.
  std::vector<Outcome> Run(bool checked) {
    std::vector<Outcome> outcomes;
    std::size_t idle = 0;
    for (std::size_t step = 0; step < kMaxSteps && !in_.AtEnd(); ++step) {
      const unsigned byte = plan_.operations[step % plan_.operations.size()];
      const unsigned operation = byte % 16 % kOperations;
      const IBText::Pos before = in_.GetPos();
      Outcome outcome = Do(in_, operation, byte / 16);
      Require(outcome.offset >= before.offset && outcome.offset <= start_ + text_.size());
      if (checked) Check(before, operation, byte / 16, outcome);
      // Behind the padding the scanner counts a whole window.
      if (checked && (start_ == 0 || step % 64 == 5)) CheckLine();
      idle = outcome.offset == before.offset ? idle + 1 : 0;
      if (idle == plan_.operations.size()) {
        in_.Consume(1);
        idle = 0;
      }
      outcome.offset -= start_;
      outcomes.push_back(std::move(outcome));
    }
    return outcomes;
  }

  [[nodiscard]] IBText::Pos Position() const { return in_.GetPos(); }
  void GoTo(const IBText::Pos& position) {
    in_.SetPos(position);
    Require(in_.Offset() == position.offset);
  }

 private:
  void Check(const IBText::Pos& before, unsigned operation, unsigned flags, const Outcome& outcome) {
    const bool across_lines = (flags & 1U) != 0;
    if (operation == kLookAhead) Require(outcome.offset == before.offset);
    if (operation == kReadInt || operation == kReadLong || operation == kReadDouble) {
      CheckNumber(in_, before, operation, across_lines, outcome);
    }
    in_.SetPos(before);
    Require(in_.Offset() == before.offset);
    const std::string_view rest = text_.substr(before.offset - start_);
    const std::string_view window = in_.Window(1);
    const std::size_t known = std::min({rest.size(), window.size(), std::size_t{64}});
    Require(known != 0 && rest.substr(0, known) == window.substr(0, known));
    Require(Do(in_, operation, flags) == outcome);
  }

  /// Compares the line at the position with a count that goes on from the last one.
  void CheckLine() {
    // Whether a CR at the end of the window is half of a CR LF shows behind it.
    const bool at_end = in_.AtEnd();
    const std::uint64_t offset = in_.Offset();
    Require(at_end == (offset == start_ + text_.size()));
    for (std::uint64_t at = std::max<std::uint64_t>(line_.offset, start_); at < offset; ++at) {
      const char c = text_[at - start_];
      const bool pair = c == '\r' && at + 1 < start_ + text_.size() && text_[at + 1 - start_] == '\n';
      if (c == '\n' || (c == '\r' && !pair)) {
        ++line_.line;
        line_.line_start = at + 1;
      }
    }
    line_.offset = offset;
    const IBText::LineState line = in_.Line();
    Require(line.line == line_.line && line.line_start == line_.line_start);
  }

  const Plan& plan_;
  std::string_view text_;
  std::size_t start_;
  IBText::LineState line_;
  IxText in_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size <= Plan::kBytes) return 0;
  const Plan plan(data);
  const std::string text(data + Plan::kBytes, data + size);

  std::istringstream whole(text);
  const std::vector<Outcome> expected = Scan(whole, plan, text, 0).Run(true);

  // With padding as long as a window, the first window ends within the text. That costs more than all of the
  // above, so a quarter of the inputs is scanned so.
  constexpr std::uint8_t kFirstBorder = 192;
  if (plan.border < kFirstBorder) return 0;
  const std::size_t start = kWindow - std::min<std::size_t>(plan.border - kFirstBorder, text.size());
  std::string padded(kPaddingStart);
  padded.resize(start, 'x');
  padded += text;

  // Going back works without seeking as far as the history reaches.
  if ((plan.conventions[5] & 2U) != 0 && text.size() < IBText::kHistory / 2) {
    PipeBuffer pipe(std::move(padded));
    std::istream stream(&pipe);
    Require(Scan(stream, plan, text, start).Run(true) == expected);
    return 0;
  }
  std::istringstream stream(std::move(padded));
  Scan scan(stream, plan, text, start);
  const IBText::Pos position = scan.Position();
  Require(scan.Run((plan.conventions[5] & 4U) != 0) == expected);
  scan.GoTo(IBText::Pos());
  scan.GoTo(position);
  Require(scan.Run(false) == expected);
  return 0;
}
