#include <pelor/base/error.h>

#include <gtest/gtest.h>

#include <exception>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using Tobri::ArrayIndexErr;
using Tobri::ArraySizeErr;
using Tobri::ErrMsg;
using Tobri::String;
namespace Error = Tobri::Error;

class Fault : public Error::Raisable<Fault, ErrMsg> {
 public:
  using Raisable::Raisable;
};

class DeepFault : public Error::Raisable<DeepFault, Fault> {
 public:
  using Raisable::Raisable;
};

class PlainMessage : public Error::Raisable<PlainMessage, Error::Msg> {};

// What Handle throws for `message`, as its exact type and text.
template <class Message>
std::string Thrown(const Error::Msg& message) {
  try {
    Error::Handle(message);
  } catch (const Message& caught) {
    EXPECT_EQ(typeid(caught), typeid(Message));
    return caught.what();
  } catch (...) {
    return "another type";
  }
  return "nothing";
}

TEST(ErrorTest, WithoutAHandlerTheMessageIsThrownAsItsOwnType) {
  EXPECT_EQ(Thrown<ErrMsg>(ErrMsg("plain")), "plain");
  EXPECT_EQ(Thrown<Fault>(Fault("derived")), "derived");
  EXPECT_EQ(Thrown<DeepFault>(DeepFault("derived twice")), "derived twice");
  EXPECT_EQ(Thrown<PlainMessage>(PlainMessage()), "error");
  EXPECT_EQ(Thrown<Error::Msg>(Error::Msg()), "error");
}

TEST(ErrorTest, ATypeDerivedTwiceIsCaughtAsEachOfItsBases) {
  EXPECT_THROW(Error::Handle(DeepFault("x")), Fault);
  EXPECT_THROW(Error::Handle(DeepFault("x")), ErrMsg);
  EXPECT_THROW(Error::Handle(DeepFault("x")), Error::Msg);
  EXPECT_THROW(Error::Handle(DeepFault("x")), std::exception);
}

TEST(ErrorTest, AMessageCarriesItsText) {
  const Fault fault("Incorrect Element Type");
  EXPECT_EQ(fault.GetText(), String("Incorrect Element Type"));
  EXPECT_STREQ(fault.what(), "Incorrect Element Type");
  const Fault copy(fault);  // NOLINT(performance-unnecessary-copy-initialization): the copy is what is tested
  EXPECT_STREQ(copy.what(), "Incorrect Element Type");
}

TEST(ErrorTest, ArrayErrorsNameTheirNumbers) {
  const ArrayIndexErr index(7, 3);
  EXPECT_EQ(index.Index(), 7U);
  EXPECT_EQ(index.Size(), 3U);
  EXPECT_STREQ(index.what(), "Array index 7 is not below the size 3");
  const ArraySizeErr size(4294967295U, 2147483647U);
  EXPECT_EQ(size.Requested(), 4294967295U);
  EXPECT_EQ(size.Limit(), 2147483647U);
  EXPECT_STREQ(size.what(), "Array size 4294967295 exceeds the limit 2147483647");
  EXPECT_EQ(Thrown<ArrayIndexErr>(index), index.what());
  EXPECT_EQ(Thrown<ArraySizeErr>(size), size.what());
}

TEST(ErrorTest, AHandlerThatReturnsLetsTheReporterCarryOn) {
  std::vector<std::string> log;
  const Error::ScopedHandler guard([&](const Error::Msg& message) { log.emplace_back(message.what()); });
  Error::Handle(Fault("one"));
  Error::Handle(DeepFault("two"));
  EXPECT_EQ(log, (std::vector<std::string>{"one", "two"}));
}

TEST(ErrorTest, TheHandlerSeesTheMessageItselfNotACopy) {
  const Fault fault("x");
  const Error::Msg* seen = nullptr;
  const Error::ScopedHandler guard([&](const Error::Msg& message) { seen = &message; });
  Error::Handle(fault);
  EXPECT_EQ(seen, &fault);
}

TEST(ErrorTest, GuardsNestAndEndInReverseOrder) {
  std::string log;
  {
    const Error::ScopedHandler outer(
        [&](const Error::Msg& message) { log += std::string("outer ") + message.what(); });
    {
      const Error::ScopedHandler inner(
          [&](const Error::Msg& message) { log += std::string("inner ") + message.what(); });
      Error::Handle(Fault("a;"));
    }
    Error::Handle(Fault("b;"));
  }
  EXPECT_EQ(log, "inner a;outer b;");
  EXPECT_THROW(Error::Handle(Fault("c")), Fault);
}

TEST(ErrorTest, AHandlerMayThrowAndStaysInstalled) {
  int calls = 0;
  const Error::ScopedHandler guard([&](const Error::Msg& message) {
    ++calls;
    throw std::runtime_error(message.what());
  });
  EXPECT_THROW(Error::Handle(Fault("x")), std::runtime_error);
  EXPECT_THROW(Error::Handle(Fault("x")), std::runtime_error);
  EXPECT_EQ(calls, 2);
}

TEST(ErrorTest, WhatAHandlerReportsGoesToTheOneAroundIt) {
  std::string log;
  const Error::ScopedHandler outer(
      [&](const Error::Msg& message) { log += std::string("outer ") + message.what(); });
  const Error::ScopedHandler inner([&](const Error::Msg& message) {
    log += std::string("inner ") + message.what();
    Error::Handle(Fault("again;"));
  });
  Error::Handle(Fault("first;"));
  Error::Handle(Fault("second;"));
  EXPECT_EQ(log, "inner first;outer again;inner second;outer again;");
}

TEST(ErrorTest, WhatTheOutermostHandlerReportsIsThrown) {
  const Error::ScopedHandler guard([](const Error::Msg&) { Error::Handle(DeepFault("from the handler")); });
  EXPECT_THROW(Error::Handle(Fault("x")), DeepFault);
  EXPECT_THROW(Error::Handle(Fault("x")), DeepFault) << "the handler is back in force after it threw";
}

TEST(ErrorTest, AGuardInsideAHandlerEndsWithIt) {
  std::string log;
  const Error::ScopedHandler guard([&](const Error::Msg& message) {
    log += message.what();
    const Error::ScopedHandler inside([&](const Error::Msg&) { log += "inside;"; });
    Error::Handle(Fault("y"));
  });
  Error::Handle(Fault("a;"));
  Error::Handle(Fault("b;"));
  EXPECT_EQ(log, "a;inside;b;inside;");
}

TEST(ErrorTest, EveryThreadHasItsOwnHandler) {
  std::string here;
  std::string there;
  bool thrown = false;
  const Error::ScopedHandler guard([&](const Error::Msg& message) { here += message.what(); });
  std::thread([&] {
    try {
      Error::Handle(Fault("no handler on this thread"));
    } catch (const Fault&) {
      thrown = true;
    }
    const Error::ScopedHandler own([&](const Error::Msg& message) { there += message.what(); });
    Error::Handle(Fault("there"));
  }).join();
  Error::Handle(Fault("here"));
  EXPECT_TRUE(thrown);
  EXPECT_EQ(here, "here");
  EXPECT_EQ(there, "there");
}

}  // namespace
