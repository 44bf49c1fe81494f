#pragma once

#include <pelor/base/error.h>

#include <string>
#include <vector>

namespace dgn_test {

/// The texts that `action` reports to a handler that returns.
template <class Action>
std::vector<std::string> Reported(Action action) {
  std::vector<std::string> texts;
  const Tobri::Error::ScopedHandler guard(
      [&texts](const Tobri::Error::Msg& message) { texts.emplace_back(message.what()); });
  action();
  return texts;
}

using Texts = std::vector<std::string>;

}  // namespace dgn_test
