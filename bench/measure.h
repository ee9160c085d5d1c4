#pragma once

#include <chrono>
#include <functional>
#include <vector>

namespace quorvale {

// Measures wall time from its construction on.
class Stopwatch {
 public:
  double Milliseconds() const {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start_).count();
  }
  double Seconds() const { return Milliseconds() / 1000; }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// The wall time of `work`.
double MillisecondsOf(const std::function<void()>& work);

// NaN for an empty list.
double Median(std::vector<double> values);

// Measures each figure once in each round, so that other work of the machine disturbs all alike. The first round is
// extra, to warm up. Returns the median of each figure.
std::vector<double> AlternatingMedians(int rounds, const std::vector<std::function<double()>>& figures);

// Fails after ten seconds, with a message that names `what`.
void WaitUntil(const char* what, const std::function<bool()>& condition);

}  // namespace quorvale
