#include <pelor/mif/lexis.h>

namespace Pelor::MIF {

using Tobri::ChrS;
using Tobri::IRefC;
using Tobri::String;
using Tobri::TxtSeparators;

TxtSeparators MIFSeparators() {
  return {TxtSeparators::DefSepS(), TxtSeparators::DefWS(), ',', false};
}

TxtSeparators MIDSeparators(char delimiter) {
  return {IRefC<ChrS<char>>(new ChrS<char>(delimiter)), nullptr, delimiter, true};
}

TxtSeparators WSSeparators() {
  return {nullptr, TxtSeparators::DefWS(), ' ', false};
}

Tobri::TxtQuotes Quotes() {
  return Tobri::TxtQuotes(IRefC<ChrS<char>>(new ChrS<char>('"')), '"', 0, true, false);
}

Tobri::TxtComments MBComments() {
  return {'\'', '\n'};
}

Tobri::TxtComments NoComments() {
  return {0, 0};
}

IRefC<ChrS<char>> IDLetters() {
  return Tobri::TxtRdr::DefIDLetters();
}

namespace {

// The status follows "@ " with no blank before it, as readers of these messages expect.
String WithStatus(const String& message, const Tobri::IxText* in) {
  return in != nullptr ? String(message.str() + "@ " + in->GetStatus().str()) : message;
}

}  // namespace

Error::~Error() = default;

SyntaxError::SyntaxError(const String& message, const Tobri::IxText* in)
    : Raisable(WithStatus(message, in)) {}

SyntaxError::~SyntaxError() = default;

}  // namespace Pelor::MIF
