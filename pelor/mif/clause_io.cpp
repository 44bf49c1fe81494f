#include <pelor/base/number_format.h>
#include <pelor/mif/clause_io.h>
#include <pelor/mif/object_clauses.h>

#include <array>
#include <cstddef>

namespace Pelor::MIF {

namespace {

// The stream's slot that is 1 while line ends do not flush it.
int NoFlushSlot() {
  static const int slot = std::ios_base::xalloc();
  return slot;
}

// Whether numbers can be formatted without the stream's help.
bool IsPlain(const std::ostream& out) {
  constexpr auto kSpecial = std::ios_base::floatfield | std::ios_base::showpos | std::ios_base::showpoint |
                            std::ios_base::uppercase;
  return (out.flags() & kSpecial) == 0 && out.width() == 0 && out.precision() >= 0 &&
         out.precision() <= Tobri::kMaxPrecision;
}

}  // namespace

void SetLineFlush(std::ostream& out, bool flush) {
  out.iword(NoFlushSlot()) = flush ? 0 : 1;
}

bool GetLineFlush(std::ostream& out) {
  return out.iword(NoFlushSlot()) == 0;
}

namespace Clause {

void EndLine(std::ostream& out) {
  out.put('\n');
  if (GetLineFlush(out)) out.flush();
}

void PutNumbers(std::ostream& out, std::initializer_list<double> numbers) {
  for (const double number : numbers) {
    out.put(' ');
    Tobri::PutDouble(out, number);
  }
}

void PutCount(std::ostream& out, std::size_t count) {
  out.put(' ');
  Tobri::PutInteger(out, count);
}

void PutVertices(std::ostream& out, std::span<const Vanth::PointXY> vertices) {
  if (!IsPlain(out) || GetLineFlush(out)) {
    for (const Vanth::PointXY& vertex : vertices) {
      PutNumbers(out, {vertex.x, vertex.y});
      EndLine(out);
    }
    return;
  }
  // Lines are put together here and go to the stream many at a time.
  constexpr std::size_t kLineSize = 2 * (1 + Tobri::kGeneralSize) + 1;
  std::array<char, 64 * kLineSize> buffer;
  const auto precision = static_cast<int>(out.precision());
  char* at = buffer.data();
  const auto put = [&] {
    out.write(buffer.data(), at - buffer.data());
    at = buffer.data();
  };
  for (const Vanth::PointXY& vertex : vertices) {
    *at++ = ' ';
    at = Tobri::FormatGeneral(at, vertex.x, precision);
    *at++ = ' ';
    at = Tobri::FormatGeneral(at, vertex.y, precision);
    *at++ = '\n';
    if (static_cast<std::size_t>(buffer.data() + buffer.size() - at) < kLineSize) put();
  }
  put();
}

bool Fail(const char* message, const Tobri::IxText& in) {
  Tobri::Error::Handle(SyntaxError(message, &in));
  return false;
}

bool Missing(Tobri::IxText& in) {
  Tobri::TxtRdr::SkipWS(in);
  return false;
}

bool ReadNumbers(std::span<double* const> numbers, Tobri::IxText& in) {
  Tobri::IxText::ArgSep args;
  args.Set(in, false, false, true);
  for (double* const number : numbers) {
    if (!args.ReadNext(*number, Tobri::FltFmt())) return Missing(in);
  }
  args.Skip();
  args.Release();
  return true;
}

}  // namespace Clause

}  // namespace Pelor::MIF
