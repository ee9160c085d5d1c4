#include "run/reported_steps.h"

#include <string>

#include "base/failure.h"
#include "toolkit/application.h"

namespace quorvale {
namespace {

MessageBoxAnswer Report(Application& app, const Failure& failure) {
  MessageBox box;
  box.title = "Program Error";
  box.buttons = MessageBoxButtons::kAbortRetryIgnore;
  box.text = "The following error was encountered:\r" + std::to_string(static_cast<int>(failure.Number())) + ": " +
             failure.Description() + failure.Source() + "\rPlease report this error to the manufacturer.";
  return app.ShowMessageBox(box);
}

}  // namespace

bool RunReportedSteps(Application& app, const std::vector<ReportedStep>& steps) {
  for (std::size_t i = 0; i < steps.size();) {
    try {
      steps[i]();
      ++i;
    } catch (const Failure& failure) {
      const MessageBoxAnswer answer = Report(app, failure);
      if (answer == MessageBoxAnswer::kIgnore) {
        ++i;
      } else if (answer != MessageBoxAnswer::kRetry) {
        return false;
      }
    }
  }
  return true;
}

}  // namespace quorvale
