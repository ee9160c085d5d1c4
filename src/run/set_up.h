#pragma once

#include <string>
#include <vector>

#include "run/reported_steps.h"

namespace quorvale {

struct Process;

inline constexpr char kSetUpSwitch[] = "/INSTALL";

// The directory after the switch in `text`, without surrounding blanks and quotes; empty if there is none.
std::string SetUpDirectory(const std::string& text);

// The steps of the set-up: store that directory, fill both play lists with the samples in it, make this program the
// system's saver and open the display settings. The directory should end in a separator; none is added. The steps keep
// a reference to `process`.
std::vector<ReportedStep> SetUpSteps(Process& process, const std::string& text);

}  // namespace quorvale
