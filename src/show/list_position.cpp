#include "show/list_position.h"

#include <string>

#include "base/numbers.h"
#include "process/rules.h"
#include "process/show_state.h"
#include "settings/options.h"

namespace quorvale {
namespace {

std::string LastPosition(const Options& options, const ShowState& show, const OptionRow& last) {
  const auto unstored = show.UnstoredPositions.find(last.key);
  return unstored != show.UnstoredPositions.end() ? unstored->second : options.Text(last);
}

}  // namespace

std::int32_t NextPosition(const Options& options, const ShowState& show, const OptionRow& reset, const OptionRow& last,
                          int count) {
  std::int32_t position = 0;
  StepIf([&] { return !show.FirstTickOver && options.IsAnyNumber(reset); }, [&] { position = 1; },
         [&] { Step([&] { position = RoundToInt32(StrictNumber(LastPosition(options, show, last)) + 1); }); });
  return position > count ? 1 : position;
}

void KeepPosition(Options& options, ShowState& show, const OptionRow& last, std::int32_t position) {
  if (options.SetText(last, std::to_string(position))) {
    show.UnstoredPositions.erase(last.key);
  } else {
    show.UnstoredPositions[last.key] = std::to_string(position);
  }
}

}  // namespace quorvale
