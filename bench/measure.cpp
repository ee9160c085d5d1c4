#include "measure.h"

#include <algorithm>
#include <limits>
#include <string>
#include <thread>

#include "base/failure.h"

namespace quorvale {
namespace {

constexpr double kLongestWait = 10;  // seconds
// Fine enough for milliseconds, and coarse enough to leave the processors to what is measured.
constexpr std::chrono::microseconds kPoll(300);

}  // namespace

double MillisecondsOf(const std::function<void()>& work) {
  const Stopwatch watch;
  work();
  return watch.Milliseconds();
}

double Median(std::vector<double> values) {
  if (values.empty()) return std::numeric_limits<double>::quiet_NaN();
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

std::vector<double> AlternatingMedians(int rounds, const std::vector<std::function<double()>>& figures) {
  std::vector<std::vector<double>> taken(figures.size());
  for (int round = 0; round <= rounds; ++round) {
    for (std::size_t i = 0; i < figures.size(); ++i) {
      const double value = figures[i]();
      if (round > 0) taken[i].push_back(value);
    }
  }
  std::vector<double> medians;
  medians.reserve(taken.size());
  for (auto& values : taken) medians.push_back(Median(std::move(values)));
  return medians;
}

void WaitUntil(const char* what, const std::function<bool()>& condition) {
  const Stopwatch watch;
  while (!condition()) {
    if (watch.Seconds() > kLongestWait) {
      throw Failure(FailureNumber::kInternal, std::string("Waited in vain for ") + what, "bench");
    }
    std::this_thread::sleep_for(kPoll);
  }
}

}  // namespace quorvale
