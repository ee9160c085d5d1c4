// Calls a fuzzer's target with every truncation of each file, and with every bit flipped. Fails if an input takes too
// long; the sanitizers find the other faults.

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "libfuzzer.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr double kLongest = 5000;  // ms, under the sanitizers

class Sweep {
 public:
  void Try(const Bytes& bytes) {
    const auto start = std::chrono::steady_clock::now();
    // A copy of just that size, so that the sanitizer sees reads beyond the end.
    LLVMFuzzerTestOneInput(Bytes(bytes).data(), bytes.size());
    longest_ = std::max(longest_, Milliseconds(std::chrono::steady_clock::now() - start).count());
    ++count_;
  }

  void TryAll(Bytes bytes) {
    for (std::size_t size = 0; size <= bytes.size(); ++size)
      Try(Bytes(bytes.begin(), std::next(bytes.begin(), static_cast<std::ptrdiff_t>(size))));
    for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
      const auto mask = static_cast<std::uint8_t>(1U << bit % 8);
      bytes[bit / 8] ^= mask;
      Try(bytes);
      bytes[bit / 8] ^= mask;
    }
  }

  bool Report(const char* path) const {
    std::printf("%s: %zu inputs, the longest took %.0f ms\n", path, count_, longest_);
    std::fflush(stdout);
    return longest_ <= kLongest;
  }

 private:
  std::size_t count_ = 0;
  double longest_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  LLVMFuzzerInitialize(&argc, &argv);
  bool good = true;
  for (int i = 1; i < argc; ++i) {
    std::ifstream file(argv[i], std::ios::binary);
    Sweep sweep;
    sweep.TryAll(Bytes(std::istreambuf_iterator<char>(file), {}));
    good = sweep.Report(argv[i]) && good;
  }
  return good ? 0 : 1;
}
