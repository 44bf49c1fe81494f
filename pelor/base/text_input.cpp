#include <pelor/base/text_input.h>

#include <algorithm>
#include <cstring>

namespace Tobri {

IRefC<ChrS<char>> TxtSeparators::DefWS() {
  return IRefC<ChrS<char>>(new ChrS<char>(" \t\r\n\v\f"));
}

IRefC<ChrS<char>> TxtSeparators::DefSepS() {
  return IRefC<ChrS<char>>(new ChrS<char>(','));
}

void IBText::LineState::Advance(std::span<const char> bytes) noexcept {
  // Three plain counts vectorise; one loop that looks at CR LF pairs as it goes does not.
  const auto lf = static_cast<std::uint64_t>(std::count(bytes.begin(), bytes.end(), '\n'));
  const auto cr = static_cast<std::uint64_t>(std::count(bytes.begin(), bytes.end(), '\r'));
  std::uint64_t pairs = 0;
  if (cr != 0) {
    for (std::size_t i = 1; i < bytes.size(); ++i) {
      pairs += static_cast<std::uint64_t>(bytes[i - 1] == '\r' && bytes[i] == '\n');
    }
  }
  line += lf + cr - pairs;
  if (lf + cr != 0) {
    const auto last =
        std::find_if(bytes.rbegin(), bytes.rend(), [](char c) { return c == '\n' || c == '\r'; });
    line_start = offset + static_cast<std::uint64_t>(bytes.rend() - last);
  }
  offset += bytes.size();
}

IBText::IBText() {
  init();
}

void IBText::init() {
  stream_ = nullptr;
  base_ = -1;
  begin_ = position_ = end_ = buffer_.get();
  exhausted_ = true;
  anchor_ = {};
  separators_ = {TxtSeparators::DefSepS(), TxtSeparators::DefWS(), ',', false};
  quotes_ = {};
  comments_ = {};
  comment_close_stays_ = false;
  Classify();
}

void IBText::Attach(std::istream& stream) {
  if (buffer_ == nullptr) buffer_ = std::make_unique_for_overwrite<char[]>(kHistory + kBlock);
  stream_ = &stream;
  base_ = stream.good() ? std::streamoff(stream.tellg()) : -1;
  if (base_ < 0 && !stream.bad()) stream.clear();  // a stream that cannot tell its position can still be read
  begin_ = position_ = end_ = buffer_.get();
  exhausted_ = false;
  anchor_ = {};
}

void IBText::Def(const TxtSeparators& separators) {
  separators_ = separators;
  Classify();
}

void IBText::Def(const TxtQuotes& quotes) {
  quotes_ = quotes;
  Classify();
}

void IBText::Def(const TxtComments& comments, bool close_stays) {
  comments_ = comments;
  comment_close_stays_ = close_stays;
  Classify();
}

void IBText::Classify() {
  const auto in = [](const IRefC<ChrS<char>>& set, char c) { return set != nullptr && set->Contains(c); };
  for (unsigned code = 0; code < classes_.size(); ++code) {
    const char c = static_cast<char>(code);
    std::uint8_t bits = 0;
    if (in(separators_.separators, c)) {
      bits = kSeparator;
    } else if (c == '\r' || c == '\n') {
      bits = in(separators_.whitespace, c) ? kLineEnd | kSkippedEnd : kLineEnd;
    } else if (in(separators_.whitespace, c)) {
      bits = kBlank;
    } else if (in(quotes_.Characters(), c)) {
      bits = kQuote;
    } else if (c == comments_.open && c != 0) {
      bits = kComment;
    } else if ((c == '(' || c == ')') && !separators_.fields) {
      bits = kBracket;
    }
    classes_[code] = bits;
  }
  constexpr std::string_view kNumberCharacters = "0123456789+-.eE";
  numbers_are_plain_ = !separators_.fields && std::none_of(kNumberCharacters.begin(), kNumberCharacters.end(),
                                                           [this](char c) { return ClassOf(c) != 0; });
}

void IBText::SetPos(const Pos& pos) {
  const std::uint64_t window_end = anchor_.offset + static_cast<std::uint64_t>(end_ - begin_);
  if (pos.offset >= anchor_.offset && pos.offset <= window_end) {
    position_ = begin_ + (pos.offset - anchor_.offset);
    return;
  }
  if (stream_ == nullptr) return;
  // Outside the window: lay a new one from the anchor on.
  begin_ = position_ = end_ = buffer_.get();
  anchor_ = pos.anchor;
  exhausted_ = base_ < 0;
  if (exhausted_) {
    stream_->setstate(std::ios_base::failbit);
    return;
  }
  stream_->clear();
  stream_->seekg(base_ + static_cast<std::streamoff>(anchor_.offset));
  const auto ahead = static_cast<std::size_t>(pos.offset - anchor_.offset);
  Fill(ahead);
  position_ += std::min(ahead, static_cast<std::size_t>(end_ - position_));
}

IBText::LineState IBText::Line() const noexcept {
  LineState state = anchor_;
  const char* stop = position_;
  // Between a CR and its LF the line has not ended yet.
  const bool inside_pair = stop != begin_ && stop != end_ && stop[-1] == '\r' && *stop == '\n';
  state.Advance({begin_, inside_pair ? stop - 1 : stop});
  return state;
}

void IBText::Fill(std::size_t want) {
  if (stream_ == nullptr || exhausted_) return;
  const char* keep = position_ - std::min<std::ptrdiff_t>(position_ - begin_, kHistory - 1);
  if (keep != begin_ && keep[-1] == '\r') --keep;
  anchor_.Advance({begin_, keep});
  char* const buffer = buffer_.get();
  const auto kept = static_cast<std::size_t>(end_ - keep);
  std::memmove(buffer, keep, kept);
  position_ = buffer + (position_ - keep);
  begin_ = buffer;
  end_ = buffer + kept;
  while (!exhausted_ && static_cast<std::size_t>(end_ - position_) < want) {
    const auto room = static_cast<std::streamsize>(buffer + kHistory + kBlock - end_);
    if (room == 0) return;
    // istream::read and not the buffer's sgetn: it turns an exception of the buffer into badbit.
    stream_->read(buffer + (end_ - buffer), room);
    const std::streamsize got = stream_->gcount();
    end_ += got;
    if (got < room) {
      exhausted_ = true;
      if (stream_->eof() && !stream_->bad()) stream_->clear(std::ios_base::eofbit);
    }
  }
}

void IBText::SkipBlanks(bool across_lines) {
  const unsigned skipped = across_lines ? kBlank | kSkippedEnd : unsigned{kBlank};
  for (;;) {
    const std::string_view window = Window(1);
    if (window.empty()) return;
    std::size_t n = 0;
    while (n < window.size() && (ClassOf(window[n]) & skipped) != 0) ++n;
    Consume(n);
    if (n == window.size()) continue;
    if (ClassOf(window[n]) != kComment) return;
    SkipComment();
  }
}

void IBText::SkipComment() {
  // A comment that closes at the line feed closes at any line end.
  const bool to_line_end = comments_.close == '\n';
  Consume(1);
  for (;;) {
    const std::string_view window = Window(1);
    if (window.empty()) return;
    const std::size_t close = to_line_end ? window.find_first_of("\r\n") : window.find(comments_.close);
    if (close == std::string_view::npos) {
      Consume(window.size());
      continue;
    }
    Consume(close);
    if (comment_close_stays_) return;
    if (!to_line_end || !SkipLineEnd()) Consume(1);
    return;
  }
}

bool IBText::SkipLineEnd() {
  const std::string_view window = Window(2);
  if (window.empty() || (ClassOf(window[0]) & kLineEnd) == 0) return false;
  Consume(window[0] == '\r' && window.size() > 1 && window[1] == '\n' ? 2 : 1);
  return true;
}

}  // namespace Tobri
