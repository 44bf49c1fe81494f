#include <pelor/mif/clause_io.h>

namespace Pelor::MIF {

namespace Clause {

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
