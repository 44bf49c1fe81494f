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
  WObjRf() noexcept = default;
  /// Takes the first share of a new body, as `new` or Clone() give it. A body that has a handle already is
  /// shared through that handle, or with Assign().
  explicit WObjRf(WObjBody* body) noexcept { this->TakeOver(body); }
};

/// Shared handle of a map object of one kind.
template <class T>
class WObjRf : public Tobri::ICARef<T> {
 public:
  using Tobri::ICARef<T>::ICARef;
  WObjRf() noexcept = default;
  /// As for an object of any kind: `body` is new.
  explicit WObjRf(T* body) noexcept { this->TakeOver(body); }
  /// Shares the body if it is a T; null otherwise.
  WObjRf(const WObjRf<WObjBody>& object) noexcept { this->Assign(object, dynamic_cast<T*>(object.Get())); }

  operator WObjRf<WObjBody>() const noexcept {
    WObjRf<WObjBody> object;
    object.Assign(*this, this->Get());
    return object;
  }
};

}  // namespace Pelor::MI
