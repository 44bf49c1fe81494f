#pragma once

#include <pelor/base/export.h>
#include <pelor/base/string.h>

#include <exception>
#include <functional>

namespace Tobri {

/// Error reporting. Whatever goes wrong in the library becomes a message object that is handed to Handle; the
/// thread's handler decides whether that throws. After a handler that returns, the reporting function carries
/// on with its fall-back.
namespace Error {

/// Base of all messages.
class PELOR_EXPORT Msg : public std::exception {
 public:
  Msg() = default;
  Msg(const Msg&) = default;
  Msg& operator=(const Msg&) = default;
  ~Msg() override;

  [[nodiscard]] const char* what() const noexcept override;

  /// Throws this message as its own dynamic type. A class that derives from Raisable has it from there.
  [[noreturn]] virtual void Raise() const;
};

/// Derives a message class from `Base` so that it is thrown as `Self`:
/// `class Fault : public Error::Raisable<Fault, ErrMsg> { ... };`
template <class Self, class Base>
class Raisable : public Base {
 public:
  using Base::Base;
  [[noreturn]] void Raise() const override { throw static_cast<const Self&>(*this); }
};

/// Gives the message to this thread's innermost handler; without one it is thrown.
PELOR_EXPORT void Handle(const Msg& message);

/// Installs a handler on this thread until the guard ends. Guards nest and end in reverse order. The handler
/// may throw; what it reports itself goes to the handler around it.
class PELOR_EXPORT ScopedHandler {
 public:
  using Handler = std::function<void(const Msg&)>;

  explicit ScopedHandler(Handler handler);
  ~ScopedHandler();
  ScopedHandler(const ScopedHandler&) = delete;
  ScopedHandler& operator=(const ScopedHandler&) = delete;

 private:
  friend void Handle(const Msg& message);

  Handler handler_;
  ScopedHandler* outer_;
};

}  // namespace Error

/// A message that carries its text.
class PELOR_EXPORT ErrMsg : public Error::Raisable<ErrMsg, Error::Msg> {
 public:
  explicit ErrMsg(String text) : text_(std::move(text)) {}
  ~ErrMsg() override;

  [[nodiscard]] const String& GetText() const noexcept { return text_; }
  [[nodiscard]] const char* what() const noexcept override { return text_.c_str(); }

 private:
  String text_;
};

/// An index that is not below the array's size.
class PELOR_EXPORT ArrayIndexErr : public Error::Raisable<ArrayIndexErr, ErrMsg> {
 public:
  ArrayIndexErr(unsigned index, unsigned size);
  ~ArrayIndexErr() override;

  [[nodiscard]] unsigned Index() const noexcept { return index_; }
  [[nodiscard]] unsigned Size() const noexcept { return size_; }

 private:
  unsigned index_;
  unsigned size_;
};

/// A requested size beyond what the array can hold.
class PELOR_EXPORT ArraySizeErr : public Error::Raisable<ArraySizeErr, ErrMsg> {
 public:
  ArraySizeErr(unsigned requested, unsigned limit);
  ~ArraySizeErr() override;

  [[nodiscard]] unsigned Requested() const noexcept { return requested_; }
  [[nodiscard]] unsigned Limit() const noexcept { return limit_; }

 private:
  unsigned requested_;
  unsigned limit_;
};

}  // namespace Tobri
