#include <pelor/mif/clause_text.h>
#include <pelor/mif/object_clauses.h>

#include <charconv>
#include <ios>
#include <limits>

namespace Pelor::MIF {

namespace {

using std::ios_base;

// The stream's slot that is 1 while line ends do not flush it.
int NoFlushSlot() {
  static const int slot = ios_base::xalloc();
  return slot;
}

constexpr std::size_t kIntegerSize = std::numeric_limits<long>::digits10 + 2;

}  // namespace

void SetLineFlush(std::ostream& out, bool flush) {
  out.iword(NoFlushSlot()) = flush ? 0 : 1;
}

bool GetLineFlush(std::ostream& out) {
  return out.iword(NoFlushSlot()) == 0;
}

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): the buffer is filled before it is given
ClauseText::ClauseText(std::ostream& out) : out_(out), lines_are_flushed_(GetLineFlush(out)) {
  const ios_base::fmtflags flags = out.flags();
  const std::streamsize precision = out.precision();
  constexpr auto kNotPlain =
      ios_base::floatfield | ios_base::showpos | ios_base::showpoint | ios_base::uppercase;
  numbers_are_plain_ =
      (flags & kNotPlain) == 0 && out.width() == 0 && precision >= 0 && precision <= Tobri::kMaxPrecision;
  integers_are_plain_ =
      (flags & ios_base::basefield) == ios_base::dec && (flags & ios_base::showpos) == 0 && out.width() == 0;
  precision_ = static_cast<int>(precision);
}

void ClauseText::Give() {
  if (at_ != buffer_.data()) out_.write(buffer_.data(), at_ - buffer_.data());
  at_ = buffer_.data();
}

void ClauseText::PutLong(std::string_view text) {
  Give();
  out_.write(text.data(), static_cast<std::streamsize>(text.size()));
}

void ClauseText::PutQuoted(std::string_view text) {
  Put('"');
  for (std::size_t quote = text.find('"'); quote != std::string_view::npos; quote = text.find('"')) {
    Put(text.substr(0, quote + 1));
    Put('"');
    text.remove_prefix(quote + 1);
  }
  Put(text);
  Put('"');
}

void ClauseText::PutNumber(double number) {
  if (!numbers_are_plain_) {
    Give();
    Tobri::PutDouble(out_, number);
    return;
  }
  MakeRoom(Tobri::kGeneralSize);
  at_ = Tobri::FormatGeneral(at_, number, precision_);
}

void ClauseText::PutInteger(long number) {
  if (!integers_are_plain_) {
    Give();
    Tobri::PutInteger(out_, number);
    return;
  }
  MakeRoom(kIntegerSize);
  at_ = std::to_chars(at_, at_ + kIntegerSize, number).ptr;
}

void ClauseText::EndLine() {
  Put('\n');
  if (!lines_are_flushed_) return;
  Give();
  out_.flush();
}

void ClauseText::PutNumbers(std::initializer_list<double> numbers) {
  for (const double number : numbers) {
    Put(' ');
    PutNumber(number);
  }
}

void ClauseText::PutVertices(std::span<const Vanth::PointXY> vertices) {
  for (const Vanth::PointXY& vertex : vertices) {
    PutNumbers({vertex.x, vertex.y});
    EndLine();
  }
}

}  // namespace Pelor::MIF
