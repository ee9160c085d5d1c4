#pragma once

#include <functional>
#include <vector>

namespace quorvale {

class Application;

using ReportedStep = std::function<void()>;

// Runs the steps in order. After a failure a message box lets the user repeat the step (Retry), go on with the next
// (Ignore) or give up (Abort). Returns false if the user gave up.
bool RunReportedSteps(Application& app, const std::vector<ReportedStep>& steps);

}  // namespace quorvale
