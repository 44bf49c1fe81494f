#pragma once

#include <pelor/base/handle.h>
#include <pelor/mi/object_body.h>

namespace Pelor::MI {

template <class T>
class WObjRf;

/// Shared handle of a map object of any kind; may be null. A change through it goes to the shared body: who
/// wants a private one calls Copy() first.
template <>
class WObjRf<WObjBody> : public Tobri::ICARef<WObjBody> {
 public:
  using Tobri::ICARef<WObjBody>::ICARef;
};

/// Shared handle of a map object of one kind.
template <class T>
class WObjRf : public Tobri::ICARef<T> {
 public:
  using Tobri::ICARef<T>::ICARef;
  WObjRf() noexcept = default;
  /// Shares the body if it is a T; null otherwise.
  WObjRf(const WObjRf<WObjBody>& object) noexcept : Tobri::ICARef<T>(dynamic_cast<T*>(object.Get())) {}

  operator WObjRf<WObjBody>() const noexcept { return WObjRf<WObjBody>(this->Get()); }
};

}  // namespace Pelor::MI
