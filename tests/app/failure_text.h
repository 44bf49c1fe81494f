#pragma once

#include "app/io/failure.h"

#include <string>
#include <utility>

namespace App {

/// The sentence of the failure that `action` throws; empty when it throws none.
template <class Action>
std::string FailureText(Action&& action) {
  try {
    std::forward<Action>(action)();
  } catch (const Failure& failure) {
    return failure.what();
  }
  return {};
}

}  // namespace App
