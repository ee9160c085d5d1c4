#include "playlist/shuffle.h"

#include <bit>
#include <string>
#include <utility>
#include <vector>

#include "base/numbers.h"
#include "base/random.h"

namespace quorvale {
namespace {

// The entries not drawn yet, as a binary indexed tree of counts. Finding and removing the k-th takes O(log n);
// erasing from a vector would take O(n).
class Remaining {
 public:
  explicit Remaining(std::size_t count) : counts_(count + 1), highest_step_(std::bit_floor(count)) {
    for (std::size_t node = 1; node <= count; ++node) counts_[node] = node & (~node + 1);
  }

  // Removes the entry at `position` (from 1) among those that remain. Returns its index (from 0) among all.
  std::size_t Take(std::size_t position) {
    std::size_t place = 0;
    for (std::size_t step = highest_step_; step > 0; step /= 2) {
      const std::size_t next = place + step;
      if (next < counts_.size() && counts_[next] < position) {
        place = next;
        position -= counts_[next];
      }
    }
    for (std::size_t node = place + 1; node < counts_.size(); node += node & (~node + 1)) --counts_[node];
    return place;
  }

 private:
  std::vector<std::size_t> counts_;
  std::size_t highest_step_;
};

}  // namespace

void ShuffleCollection(Collection& collection, Random& random) {
  std::vector<std::string> source = collection.TakeItems();
  Remaining remaining(source.size());
  std::vector<std::string> shuffled;
  shuffled.reserve(source.size());
  for (std::size_t count = source.size(); count > 0; --count) {
    const double position = static_cast<double>(random.Next()) * static_cast<double>(count - 1) + 1;
    shuffled.push_back(std::move(source[remaining.Take(static_cast<std::size_t>(RoundToInt32(position)))]));
  }
  collection = Collection(std::move(shuffled));
}

}  // namespace quorvale
