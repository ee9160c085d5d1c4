#pragma once

#include <algorithm>
#include <optional>
#include <vector>

namespace quorvale {

// Which of the calls to come fail. `Kind` is an enumeration of calls; its `kAny` stands for all of them.
template <typename Kind>
class FailureScript {
 public:
  // The `count`-th call of that kind from now on gives `result`; 1 is the next one.
  void FailCall(Kind kind, int count, int result) { rules_.push_back({kind, count, result}); }
  // Every call of that kind gives `result`.
  void FailEvery(Kind kind, int result) { rules_.push_back({kind, 0, result}); }
  void Forget() { rules_.clear(); }

  // Counts a call: the result that it must give, or none when it is to work.
  std::optional<int> Next(Kind kind) {
    std::optional<int> result;
    for (Rule& rule : rules_) {
      if (rule.kind != kind && rule.kind != Kind::kAny) continue;
      if (rule.left == 0 || --rule.left == 0) {
        result = rule.result;
        rule.spent = rule.spent || !rule.every;
      }
    }
    std::erase_if(rules_, [](const Rule& rule) { return rule.spent; });
    return result;
  }

 private:
  struct Rule {
    Kind kind;
    int left;
    int result;
    bool every = left == 0;
    bool spent = false;
  };

  std::vector<Rule> rules_;
};

}  // namespace quorvale
