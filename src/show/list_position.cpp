#include "show/list_position.h"

#include "base/numbers.h"
#include "process/process.h"
#include "process/rules.h"

namespace quorvale {

std::int32_t NextPosition(Process& process, const std::string& reset, const std::string& last, int count) {
  std::int32_t position = 0;
  StepIf([&] { return !process.FirstTickOver && RoundToInt32(LenientParse(process.Option(reset, ""))) != 0; },
         [&] { position = 1; },
         [&] { Step([&] { position = RoundToInt32(StrictNumber(process.Option(last, "0")) + 1); }); });
  return position > count ? 1 : position;
}

}  // namespace quorvale
