#pragma once

#include <algorithm>
#include <optional>
#include <vector>

namespace quorvale {

// Makes future calls fail. `Kind` is an enumeration of calls; `kAny` in it stands for all of them.
template <typename Kind>
class FailureScript {
 public:
  // The `count`-th call of that kind from now on returns `result`; 1 is the next one.
  void FailCall(Kind kind, int count, int result) { rules_.push_back({.kind = kind, .left = count, .result = result}); }
  // Every call of that kind returns `result`.
  void FailEvery(Kind kind, int result) { rules_.push_back({.kind = kind, .result = result, .every = true}); }
  void Forget() { rules_.clear(); }

  // Counts a call. Returns the result if it must fail, otherwise nothing.
  std::optional<int> Next(Kind kind) {
    std::optional<int> result;
    for (Rule& rule : rules_) {
      if (rule.kind != kind && rule.kind != Kind::kAny) continue;
      if (!rule.every) rule.spent = --rule.left == 0;
      if (rule.every || rule.spent) result = rule.result;
    }
    std::erase_if(rules_, [](const Rule& rule) { return rule.spent; });
    return result;
  }

 private:
  struct Rule {
    Kind kind = Kind::kAny;
    int left = 0;
    int result = 0;
    bool every = false;
    bool spent = false;
  };

  std::vector<Rule> rules_;
};

}  // namespace quorvale
