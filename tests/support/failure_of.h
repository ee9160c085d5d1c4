#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "base/failure.h"

namespace quorvale {

// The number of the failure that `body` ends with.
inline FailureNumber FailureOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const Failure& failure) {
    return failure.Number();
  }
  ADD_FAILURE() << "no failure";
  return FailureNumber::kInternal;
}

}  // namespace quorvale
