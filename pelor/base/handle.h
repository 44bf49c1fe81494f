#pragma once

#include <pelor/base/export.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace Tobri {

/// The counting part of bodies that handles share. The count is a plain integer: an object graph belongs to
/// one thread at a time.
class RefCommon {
 public:
  enum FromFreeStore_t { FromFreeStore };  ///< the body is new and nobody holds it yet
  enum FromRef_t { FromRef };              ///< the body is held by another handle already

  RefCommon() noexcept = default;
  /// A copy of a body is a body of its own: counts are never copied.
  RefCommon(const RefCommon&) noexcept {}
  RefCommon& operator=(const RefCommon&) noexcept { return *this; }

  [[nodiscard]] std::uint32_t RefCount() const noexcept { return count_; }

  /// Takes the first share of a new body, or one more share of a body that is held already.
  void Assign(FromFreeStore_t) const noexcept { count_ = 1; }
  void Assign(FromRef_t) const noexcept { ++count_; }
  /// Gives up a share; true when it was the last one and the caller has to delete the body.
  [[nodiscard]] bool deref() const noexcept { return --count_ == 0; }

 protected:
  ~RefCommon() = default;

 private:
  mutable std::uint32_t count_ = 0;
};

/// Base of every body that shared handles point to. A new body has the count 0; the first handle makes it 1.
class Rep : public RefCommon {
 protected:
  ~Rep() = default;
};

/// The untyped part of all handles.
class IRefCommon {
 public:
  /// Exchanges a share of `old_rep` for one of `new_rep`; either may be null. The new share is taken before
  /// the old one is given up. True when `old_rep` has lost its last share: the caller deletes it.
  static bool assign(const Rep* old_rep, const Rep* new_rep) noexcept {
    if (new_rep != nullptr) new_rep->Assign(RefCommon::FromRef);
    return old_rep != nullptr && old_rep->deref();
  }

 protected:
  IRefCommon() noexcept = default;
  explicit IRefCommon(const Rep* rep) noexcept {
    if (rep != nullptr) rep->Assign(RefCommon::FromRef);
  }
  IRefCommon(const IRefCommon&) noexcept = default;
  IRefCommon& operator=(const IRefCommon&) noexcept = default;
  ~IRefCommon() = default;
};

/// What IRef and IRefC have in common; `T` is const for the latter.
template <class T>
class BasicRef : public IRefCommon {
 public:
  BasicRef() noexcept = default;
  BasicRef(std::nullptr_t) noexcept {}
  /// Shares the body; a new body belongs to its handles from here on.
  explicit BasicRef(T* body) noexcept : IRefCommon(body), body_(body) {}
  BasicRef(const BasicRef& other) noexcept : IRefCommon(other.body_), body_(other.body_) {}
  BasicRef(BasicRef&& other) noexcept : IRefCommon(), body_(std::exchange(other.body_, nullptr)) {}
  ~BasicRef() { Hold(nullptr); }

  // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): Hold takes the new body before it lets the old one go
  BasicRef& operator=(const BasicRef& other) noexcept {
    Hold(other.body_);
    return *this;
  }
  BasicRef& operator=(BasicRef&& other) noexcept {
    if (this != &other) {
      // Taken out first: `other` may stand inside the body that goes away here.
      T* const body = std::exchange(other.body_, nullptr);
      Hold(nullptr);
      body_ = body;
    }
    return *this;
  }

  void AssignNull() noexcept { Hold(nullptr); }
  void Assign(T* body) noexcept { Hold(body); }
  void Assign(const BasicRef& other) noexcept { Hold(other.body_); }
  /// Shares `body`, which was obtained from `other`, by a checked down-cast for instance.
  void Assign(const IRefCommon& /*other*/, T* body) noexcept { Hold(body); }

  [[nodiscard]] T* Get() const noexcept { return body_; }
  T* operator->() const noexcept { return body_; }
  T& operator*() const noexcept { return *body_; }
  explicit operator bool() const noexcept { return body_ != nullptr; }

  friend bool operator==(const BasicRef& a, const BasicRef& b) noexcept { return a.body_ == b.body_; }
  friend bool operator==(const BasicRef& a, std::nullptr_t) noexcept { return a.body_ == nullptr; }

 protected:
  void Hold(T* body) noexcept {
    T* const old = std::exchange(body_, body);
    if (assign(old, body)) delete old;
  }
  /// Takes the first share of a new body, which nobody but its maker holds.
  void TakeOver(T* body) noexcept {
    Hold(nullptr);
    if (body != nullptr) body->Assign(RefCommon::FromFreeStore);
    body_ = body;
  }

 private:
  T* body_ = nullptr;
};

/// Shared ownership of a body that its holders may change in place: every holder sees the change.
template <class T>
class IRef : public BasicRef<T> {
 public:
  using BasicRef<T>::BasicRef;
};

/// Shared ownership of a body that its holders only read.
template <class T>
class IRefC : public BasicRef<const T> {
 public:
  using BasicRef<const T>::BasicRef;
  using BasicRef<const T>::Assign;
  IRefC() noexcept = default;
  IRefC(const IRef<T>& other) noexcept : BasicRef<const T>(other.Get()) {}
  void Assign(const IRef<T>& other) noexcept { this->Hold(other.Get()); }
};

/// Copy-on-change handle of a polymorphic body: Copy() clones a shared body through its virtual Clone(), and
/// takes over the share that a clone may come with.
template <class T>
class ICARef : public IRef<T> {
 public:
  using IRef<T>::IRef;
  ICARef() noexcept = default;
  ICARef(const IRef<T>& other) noexcept : IRef<T>(other.Get()) {}

  /// Makes this handle the only owner. A null handle and an only owner are left as they are.
  void Copy() {
    if (this->Get() != nullptr && this->Get()->RefCount() != 1)
      this->TakeOver(static_cast<T*>(this->Get()->Clone()));
  }
};

/// ICARef for a body that is only read.
template <class T>
class ICARefC : public IRefC<T> {
 public:
  using IRefC<T>::IRefC;
  ICARefC() noexcept = default;
  ICARefC(const IRefC<T>& other) noexcept : IRefC<T>(other) {}

  void Copy() {
    if (this->Get() != nullptr && this->Get()->RefCount() != 1) {
      this->TakeOver(static_cast<const T*>(this->Get()->Clone()));
    }
  }
};

/// Copy-on-change handle of a body that is copied by value, such as an array.
template <class T>
class ICCRef : public IRef<T> {
 public:
  using IRef<T>::IRef;
  ICCRef() noexcept = default;
  ICCRef(const IRef<T>& other) noexcept : IRef<T>(other.Get()) {}

  void Copy() {
    if (this->Get() != nullptr && this->Get()->RefCount() != 1) this->Hold(new T(*this->Get()));
  }
};

}  // namespace Tobri
