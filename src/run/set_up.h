#pragma once

#include <string>
#include <vector>

#include "run/reported_steps.h"

namespace quorvale {

struct Process;

inline constexpr char kSetUpSwitch[] = "/INSTALL";

// The directory that stands behind the switch in `text`, without the blanks at its ends and without quotes around it;
// empty where there is none.
std::string SetUpDirectory(const std::string& text);

// The steps of the set-up: record that directory, seed both play
// lists with the samples that lie there, make this program the system's saver and open the display
// settings. The steps hold `process` by reference. The directory should end in a separator: nothing adds one.
std::vector<ReportedStep> SetUpSteps(Process& process, const std::string& text);

}  // namespace quorvale
