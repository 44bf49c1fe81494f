#pragma once

#include <pelor/base/error.h>
#include <pelor/base/export.h>
#include <pelor/base/text_scanner.h>

namespace Pelor::MIF {

/// The conventions by which MIF and MID texts are read. Each call gives a fresh value.

/// MIF: the comma and white space part values.
[[nodiscard]] PELOR_EXPORT Tobri::TxtSeparators MIFSeparators();
/// MID: only the delimiter parts values, and blanks belong to them.
[[nodiscard]] PELOR_EXPORT Tobri::TxtSeparators MIDSeparators(char delimiter);
/// Plain text: only white space parts values.
[[nodiscard]] PELOR_EXPORT Tobri::TxtSeparators WSSeparators();
/// Double quotes; a doubled one inside stands for one.
[[nodiscard]] PELOR_EXPORT Tobri::TxtQuotes Quotes();
/// From an apostrophe to the end of the line.
[[nodiscard]] PELOR_EXPORT Tobri::TxtComments MBComments();
[[nodiscard]] PELOR_EXPORT Tobri::TxtComments NoComments();
/// What keywords are made of.
[[nodiscard]] PELOR_EXPORT Tobri::IRefC<Tobri::ChrS<char>> IDLetters();

/// Base of the MIF messages.
class PELOR_EXPORT Error : public Tobri::Error::Raisable<Error, Tobri::ErrMsg> {
 public:
  using Raisable::Raisable;
  ~Error() override;
};

/// A text that breaks the MIF grammar: the message, and "@ " with the scanner's status where there is one.
class PELOR_EXPORT SyntaxError : public Tobri::Error::Raisable<SyntaxError, Error> {
 public:
  SyntaxError(const Tobri::String& message, const Tobri::IxText* in);
  ~SyntaxError() override;
};

}  // namespace Pelor::MIF
