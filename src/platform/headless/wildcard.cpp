#include "platform/headless/wildcard.h"

#include "base/text.h"

namespace quorvale {

bool MatchesWildcard(std::string_view name, std::string_view pattern) {
  if (pattern.empty()) return name.empty();
  if (pattern.front() == '*') {
    return MatchesWildcard(name, pattern.substr(1)) || (!name.empty() && MatchesWildcard(name.substr(1), pattern));
  }
  if (name.empty()) return false;
  const bool same = pattern.front() == '?' || EqualsIgnoringCase(name.substr(0, 1), pattern.substr(0, 1));
  return same && MatchesWildcard(name.substr(1), pattern.substr(1));
}

}  // namespace quorvale
