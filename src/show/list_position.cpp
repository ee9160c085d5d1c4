#include "show/list_position.h"

#include <string>

#include "base/numbers.h"
#include "process/process.h"
#include "process/rules.h"

namespace quorvale {
namespace {

std::string LastPosition(Process& process, const std::string& last) {
  const auto unstored = process.UnstoredPositions.find(last);
  return unstored != process.UnstoredPositions.end() ? unstored->second : process.Option(last, "0");
}

}  // namespace

std::int32_t NextPosition(Process& process, const std::string& reset, const std::string& last, int count) {
  std::int32_t position = 0;
  StepIf([&] { return !process.FirstTickOver && RoundToInt32(LenientParse(process.Option(reset, ""))) != 0; },
         [&] { position = 1; },
         [&] { Step([&] { position = RoundToInt32(StrictNumber(LastPosition(process, last)) + 1); }); });
  return position > count ? 1 : position;
}

void KeepPosition(Process& process, const std::string& last, std::int32_t position) {
  if (process.SetOption(last, std::to_string(position))) {
    process.UnstoredPositions.erase(last);
  } else {
    process.UnstoredPositions[last] = std::to_string(position);
  }
}

}  // namespace quorvale
