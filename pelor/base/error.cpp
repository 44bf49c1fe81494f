#include <pelor/base/error.h>

#include <string>
#include <utility>

namespace Tobri {

namespace Error {

namespace {

// One chain of guards per thread, innermost first. A plain pointer keeps thread start and end free of work.
thread_local ScopedHandler* innermost = nullptr;

}  // namespace

Msg::~Msg() = default;

const char* Msg::what() const noexcept {
  return "error";
}

void Msg::Raise() const {
  throw *this;
}

void Handle(const Msg& message) {
  ScopedHandler* const guard = innermost;
  if (guard == nullptr) message.Raise();
  // While a handler runs, the one around it is in force, so a handler that reports cannot call itself.
  struct Restore {
    ScopedHandler* guard;
    ~Restore() { innermost = guard; }
  } restore{guard};
  innermost = guard->outer_;
  guard->handler_(message);
}

ScopedHandler::ScopedHandler(Handler handler) : handler_(std::move(handler)), outer_(innermost) {
  innermost = this;
}

ScopedHandler::~ScopedHandler() {
  innermost = outer_;
}

}  // namespace Error

ErrMsg::~ErrMsg() = default;

ArrayIndexErr::ArrayIndexErr(unsigned index, unsigned size)
    : Raisable(
          String("Array index " + std::to_string(index) + " is not below the size " + std::to_string(size))),
      index_(index),
      size_(size) {}

ArrayIndexErr::~ArrayIndexErr() = default;

ArraySizeErr::ArraySizeErr(unsigned requested, unsigned limit)
    : Raisable(
          String("Array size " + std::to_string(requested) + " exceeds the limit " + std::to_string(limit))),
      requested_(requested),
      limit_(limit) {}

ArraySizeErr::~ArraySizeErr() = default;

}  // namespace Tobri
