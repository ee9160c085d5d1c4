#pragma once

#include <chrono>
#include <functional>
#include <vector>

namespace quorvale {

// A time on the wall, from its construction on.
class Stopwatch {
 public:
  double Milliseconds() const {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start_).count();
  }
  double Seconds() const { return Milliseconds() / 1000; }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// How long `work` takes, in milliseconds.
double MillisecondsOf(const std::function<void()>& work);

// Of an empty list, no number.
double Median(std::vector<double> values);

// Takes each of the figures once in each round, so that what else the machine does meets all alike. A round
// more, the first, only warms up. Gives each figure's median.
std::vector<double> AlternatingMedians(int rounds, const std::vector<std::function<double()>>& figures);

// Gives up after ten seconds, with a failure that says what it waited for.
void WaitUntil(const char* what, const std::function<bool()>& condition);

}  // namespace quorvale
