#include "process/run_mode.h"

#include "base/text.h"

namespace quorvale {

RunMode RunModeOf(const std::string& text) {
  const std::string chosen = UpperCase(Left(text, 2));
  if (chosen.empty() || chosen == "/C") return RunMode::kConfiguration;
  if (chosen == "/S") return RunMode::kShow;
  if (chosen == "/P") return RunMode::kPreview;
  if (chosen == "/A") return RunMode::kPassword;
  return RunMode::kNone;
}

}  // namespace quorvale
