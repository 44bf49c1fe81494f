#include "app/pair/value_writer.h"

#include <algorithm>
#include <cstddef>

namespace App {

namespace {

// Puts a value into quotes, and doubles those in it.
std::string Quoted(std::string_view value) {
  std::string quoted = "\"";
  for (const char c : value) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted += '"';
}

}  // namespace

ValueWriter::ValueWriter(Transcoder& transcoder, char delimiter)
    : transcoder_(transcoder), delimiter_(delimiter) {
  specials_['\r'] = kLineEnd;
  specials_['\n'] = kLineEnd;
  specials_['"'] = kQuote;
  specials_[static_cast<unsigned char>(delimiter)] |= kDelimiter;
}

const Tobri::String& ValueWriter::Fit(const Tobri::String& value) {
  std::string_view text = value;
  const unsigned specials = SpecialsOf(text);
  const bool has_quote = (specials & kQuote) != 0;
  if (has_quote) NoteBesideQuotes(text);
  if ((specials & kLineEnd) != 0 || (has_quote && (specials & kDelimiter) != 0)) {
    plain_ = text;
    Replace(specials);
    text = plain_;
  }
  const std::string_view converted = transcoder_.Convert(text);
  if (has_quote) {
    NoteBesideQuotes(converted);
    // A delimiter may have come anew, as a part of a character of several bytes.
    if (converted.find(delimiter_) == std::string_view::npos) {
      // The library writes a value without the delimiter as it is, so the quotes are made here.
      fitted_ = Quoted(converted);
    } else {
      plain_ = converted;
      std::replace(plain_.begin(), plain_.end(), '"', '\'');
      fitted_ = std::string_view(plain_);
      ++changed_;
    }
    return fitted_;
  }
  if (converted.data() == value.c_str()) return value;
  fitted_ = converted;
  return fitted_;
}

unsigned ValueWriter::SpecialsOf(std::string_view value) const noexcept {
  unsigned specials = 0;
  for (const char c : value) specials |= specials_[static_cast<unsigned char>(c)];
  return specials;
}

void ValueWriter::NoteBesideQuotes(std::string_view text) noexcept {
  for (const char c : text) beside_quotes_[static_cast<unsigned char>(c)] = true;
}

// Makes a line end one blank. Beside a quote, it makes the delimiter a blank as well: the library's writer
// would send a value with both to the wrong file.
void ValueWriter::Replace(unsigned specials) {
  if ((specials & kLineEnd) != 0) {
    std::size_t end = 0;
    for (std::size_t i = 0; i < plain_.size(); ++i) {
      const bool is_pair = plain_[i] == '\r' && i + 1 < plain_.size() && plain_[i + 1] == '\n';
      if (is_pair) ++i;
      const bool is_line_end = plain_[i] == '\r' || plain_[i] == '\n';
      plain_[end++] = is_line_end ? ' ' : plain_[i];
    }
    plain_.resize(end);
    ++joined_;
  }
  if ((specials & kQuote) != 0 && (specials & kDelimiter) != 0) {
    // In the middle of digits and words a blank is the least harm.
    std::replace(plain_.begin(), plain_.end(), delimiter_, ' ');
    ++changed_;
  }
}

}  // namespace App
