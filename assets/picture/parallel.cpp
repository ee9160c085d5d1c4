#include "picture/parallel.h"

#include <algorithm>
#include <atomic>
#include <functional>
#include <thread>
#include <vector>

namespace quorvale::samples {

void InParallel(int count, const std::function<void(int begin, int end)>& work) {
  const int threads = std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, 16);
  // Small pieces, so that a core which somebody else keeps busy holds up no one.
  const int piece = std::max(1, count / (threads * 16));
  std::atomic<int> next = 0;
  const auto take_pieces = [&] {
    for (int begin = next.fetch_add(piece); begin < count; begin = next.fetch_add(piece))
      work(begin, std::min(begin + piece, count));
  };
  std::vector<std::jthread> helpers;
  for (int i = 1; i < threads; ++i) helpers.emplace_back(take_pieces);
  take_pieces();
}

}  // namespace quorvale::samples
