#pragma once

#include <vector>

#include "run/reported_steps.h"

namespace quorvale {

struct Process;

// Holds the window in the foreground disabled: the dialog from which the system starts configuration. The
// steps hold `process` by reference.
std::vector<ReportedStep> ConfigurationSteps(Process& process);

// Shows the configuration window until it is closed, and gives that dialog back to the user.
void Configure(Process& process);

}  // namespace quorvale
