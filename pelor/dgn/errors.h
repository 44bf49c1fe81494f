#pragma once

#include <pelor/base/error.h>
#include <pelor/base/string.h>

namespace Pelor::DGN {

/// Base of what goes wrong with design files.
class PELOR_EXPORT Error : public Tobri::Error::Raisable<Error, Tobri::ErrMsg> {
 public:
  using Raisable::Raisable;
  ~Error() override;
};

class PELOR_EXPORT FileErr : public Tobri::Error::Raisable<FileErr, Error> {
 public:
  using Raisable::Raisable;
  ~FileErr() override;
};

/// The file has no current element. The text is "End of File", or "End of File " and what is given.
class PELOR_EXPORT EndOfFileErr : public Tobri::Error::Raisable<EndOfFileErr, FileErr> {
 public:
  EndOfFileErr() : Raisable("End of File") {}
  explicit EndOfFileErr(const Tobri::String& text);
  ~EndOfFileErr() override;
};

/// The current element is of another type than the record that was to be read or written.
class PELOR_EXPORT BadTypeErr : public Tobri::Error::Raisable<BadTypeErr, Error> {
 public:
  BadTypeErr() : Raisable("Incorrect Element Type") {}
  using Raisable::Raisable;
  ~BadTypeErr() override;
};

class PELOR_EXPORT NotDisplayableErr : public Tobri::Error::Raisable<NotDisplayableErr, Error> {
 public:
  NotDisplayableErr() : Raisable("Element is not displayable") {}
  using Raisable::Raisable;
  ~NotDisplayableErr() override;
};

class PELOR_EXPORT NoAttributesErr : public Tobri::Error::Raisable<NoAttributesErr, Error> {
 public:
  NoAttributesErr() : Raisable("Element has no attributes") {}
  using Raisable::Raisable;
  ~NoAttributesErr() override;
};

}  // namespace Pelor::DGN
