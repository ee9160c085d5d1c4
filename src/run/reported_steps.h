#pragma once

#include <functional>
#include <vector>

namespace quorvale {

class Application;

using ReportedStep = std::function<void()>;

// Runs the steps in order. A failure brings up a box with Abort, Retry and Ignore: Retry runs the failed
// step again as a whole, Ignore goes on with the next, anything else ends the run. False when it ended so.
bool RunReportedSteps(Application& app, const std::vector<ReportedStep>& steps);

}  // namespace quorvale
