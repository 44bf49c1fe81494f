#include "app/pair/header_fault.h"

#include "app/io/transcoder.h"
#include <pelor/base/utf8.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <fstream>
#include <string>

namespace App {

namespace {

// A header is never longer than that.
constexpr std::size_t kMostBytes = std::size_t{1} << 20;
// So much of a text is shown.
constexpr std::size_t kMostShown = 32;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r\n\v\f";
constexpr std::array<std::string_view, 7> kColumnTypes = {"char",  "integer", "smallint", "decimal",
                                                          "float", "date",    "logical"};

std::string ReadHead(const std::filesystem::path& name) {
  std::string text(kMostBytes, '\0');
  std::ifstream in(name, std::ios::binary);
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(in.gcount()));
  return text;
}

std::string_view Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

bool IsData(std::string_view line) {
  return Lower(Trimmed(line)) == "data";
}

// The lines of a text, one by one, whether they end with CR, LF or both.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}

  [[nodiscard]] bool Next(std::string_view& line) {
    if (rest_.empty()) return false;
    const std::size_t end = std::min(rest_.find_first_of("\r\n"), rest_.size());
    line = rest_.substr(0, end);
    rest_.remove_prefix(end);
    if (!rest_.empty()) rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : 1);
    return true;
  }

 private:
  std::string_view rest_;
};

// What stands around the place of a message.
struct Spot {
  std::string_view line;         // the line of the message
  std::string_view line_before;  // the last line before it that is not blank
  std::string_view before;       // the message's line up to the place
  std::string_view rest;         // what follows the place, on its line or on the next one that is not blank
  std::int64_t rest_line = 0;
};

Spot FindSpot(std::string_view text, const LibraryMessage& message) {
  Spot spot;
  Lines lines(text);
  std::string_view line;
  spot.rest_line = message.line;
  for (std::int64_t number = 1; lines.Next(line); ++number) {
    if (number < message.line) {
      if (!Trimmed(line).empty()) spot.line_before = line;
      continue;
    }
    if (number == message.line) {
      const std::size_t split = std::min(static_cast<std::size_t>(message.column) - 1, line.size());
      spot.line = line;
      spot.before = line.substr(0, split);
      line.remove_prefix(split);
    }
    spot.rest = Trimmed(line);
    if (spot.rest.empty()) continue;
    spot.rest_line = number;
    break;
  }
  return spot;
}

// The text as a part of a message: UTF-8 without control characters, of at most kMostShown bytes.
std::string Shown(std::string_view text, std::string_view charset) {
  std::string converted(text);
  if (IsKnownCharset(charset)) {
    Transcoder transcoder(charset, Transcoder::Direction::kToUtf8);
    converted = transcoder.Convert(text);
  }
  std::string shown;
  const char* at = converted.data();
  const char* const end = at + converted.size();
  while (at != end) {
    const Tobri::Utf8Char c = Tobri::DecodeUtf8(at, end);
    const std::size_t length = std::max(c.length, 1U);
    if (shown.size() + length > kMostShown) return "\"" + shown + "...\"";
    if (c.length == 0 || c.code < ' ' || c.code == 0x7F) {
      shown += '?';
    } else {
      shown.append(at, length);
    }
    at += length;
  }
  return "\"" + shown + "\"";
}

// Takes the first word, or the first quoted text, from the line.
std::string_view TakeWord(std::string_view& line) {
  line = Trimmed(line);
  std::size_t end = 0;
  if (line.starts_with('"')) {
    end = line.find('"', 1);
    end = end == std::string_view::npos ? line.size() : end + 1;
  } else {
    end = std::min(line.find_first_of(" \t,"), line.size());
  }
  std::string_view word = line.substr(0, end);
  line.remove_prefix(end);
  if (word.size() > 1 && word.starts_with('"')) word = word.substr(1, word.size() - 2);
  return word;
}

std::string ExplainColumn(const Spot& spot, std::string_view charset) {
  if (IsData(spot.line) || IsData(spot.line_before)) {
    return "there are fewer columns than the Columns clause says";
  }
  std::string_view rest = spot.line;
  const std::string name = Shown(TakeWord(rest), charset);
  rest = Trimmed(rest);
  const std::string_view type = rest.substr(0, rest.find_first_of(" \t(,"));
  if (type.empty()) return "column " + name + " has no type";
  if (std::find(kColumnTypes.begin(), kColumnTypes.end(), Lower(type)) != kColumnTypes.end()) {
    return "column " + name + " has a malformed width: " + Shown(rest, charset);
  }
  return "column " + name + " has the type " + Shown(type, charset) +
         ", which is none of Char, Integer, SmallInt, Decimal, Float, Date and Logical";
}

std::string ExplainClause(const Spot& spot, std::string_view charset) {
  if (spot.rest.empty()) return "the header ends before its Data clause";
  return "the header is malformed at " + Shown(spot.rest, charset);
}

}  // namespace

Failure ExplainHeaderFault(const std::filesystem::path& mif, const LibraryMessage& message,
                           std::string_view charset) {
  const std::string text = ReadHead(mif);
  if (text.starts_with(kByteOrderMark)) {
    return Failure(mif.string() + " begins with a byte order mark, which a MIF file must not have");
  }
  const Spot spot = FindSpot(text, message);
  const auto at_line = [&mif](std::int64_t line) {
    return mif.string() + ", line " + std::to_string(line) + ": ";
  };
  if (message.text == "Invalid Column") return Failure(at_line(message.line) + ExplainColumn(spot, charset));
  if (IsData(spot.before)) {
    return Failure(at_line(message.line) + "the Unique or the Index clause names a column that is not there");
  }
  if (message.text == "Invalid MIF") return Failure(at_line(spot.rest_line) + ExplainClause(spot, charset));
  return Failure(at_line(message.line) + message.text + " before column " + std::to_string(message.column) +
                 " of " + Shown(Trimmed(spot.line), charset));
}

}  // namespace App
