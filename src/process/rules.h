#pragma once

#include <exception>
#include <utility>

namespace quorvale {

// The rule of the slide tick: a step that fails is dropped without a word, and the next one runs.
// Written at each step of the tick's own body and nowhere else, so that a reader sees what is one step.
template <typename Body>
void Step(Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (const std::exception&) {
  }
}

// A branch of the tick: `body` runs when `test` is true, and also when the test itself failed.
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
