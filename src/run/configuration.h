#pragma once

#include <vector>

#include "run/reported_steps.h"

namespace quorvale {

struct Process;

// Disables the window in the foreground, which is the system's dialog that started the configuration. The steps keep a
// reference to `process`.
std::vector<ReportedStep> ConfigurationSteps(Process& process);

// Shows the configuration window until it is closed, then enables that dialog again.
void Configure(Process& process);

}  // namespace quorvale
