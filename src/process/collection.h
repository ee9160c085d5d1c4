#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/failure.h"

namespace quorvale {

// A list of paths. Positions count from 1.
class Collection {
 public:
  Collection() = default;
  explicit Collection(std::vector<std::string> items) : items_(std::move(items)) {}

  int Count() const { return static_cast<int>(items_.size()); }
  void Add(std::string item) { items_.push_back(std::move(item)); }

  // Fails with kNoSuchEntry outside 1 to `Count`.
  const std::string& Item(int index) const {
    if (index < 1 || index > Count()) throw Failure(FailureNumber::kNoSuchEntry, "No such entry", "Collection");
    return items_[static_cast<std::size_t>(index) - 1];
  }

  std::vector<std::string> TakeItems() { return std::exchange(items_, {}); }

 private:
  std::vector<std::string> items_;
};

}  // namespace quorvale
