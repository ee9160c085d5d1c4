#pragma once

#include <exception>
#include <utility>

namespace quorvale {

// Runs one step of the slide tick. A show must go on, so a failure in `body` ends that step only and is not
// reported. Used in the tick's own body and nowhere else, so that a reader sees where a step begins and ends.
template <typename Body>
void Step(Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (const std::exception&) {
  }
}

// A conditional step of the tick: `body` runs if `test` gives true, or fails.
template <typename Test, typename Body>
void StepIf(Test&& test, Body&& body) {
  bool take = true;
  Step([&] { take = std::forward<Test>(test)(); });
  if (take) std::forward<Body>(body)();
}

template <typename Test, typename Body, typename Otherwise>
void StepIf(Test&& test, Body&& body, Otherwise&& otherwise) {
  bool take = true;
  Step([&] { take = std::forward<Test>(test)(); });
  if (take) {
    std::forward<Body>(body)();
  } else {
    std::forward<Otherwise>(otherwise)();
  }
}

}  // namespace quorvale
