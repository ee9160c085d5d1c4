#include "run/reported_steps.h"

#include <exception>
#include <optional>
#include <string>

#include "base/failure.h"
#include "base/strings.h"
#include "toolkit/application.h"

namespace quorvale {
namespace {

MessageBoxAnswer Report(Application& app, const Failure& failure) {
  MessageBox box;
  box.title = strings::program_error::kTitle;
  box.buttons = MessageBoxButtons::kAbortRetryIgnore;
  box.text = strings::Fill(strings::program_error::kText, {std::to_string(static_cast<int>(failure.Number())),
                                                           failure.Description(), failure.Source()});
  return app.ShowMessageBox(box);
}

// The failure that ended the step, if any. Exceptions of libraries are reported like our own.
std::optional<Failure> Run(const ReportedStep& step) {
  try {
    step();
    return std::nullopt;
  } catch (const Failure& failure) {
    return failure;
  } catch (const std::exception& error) {
    return Failure(FailureNumber::kInternal, error.what(), "Main");
  }
}

}  // namespace

bool RunReportedSteps(Application& app, const std::vector<ReportedStep>& steps) {
  for (std::size_t i = 0; i < steps.size();) {
    const std::optional<Failure> failure = Run(steps[i]);
    if (!failure) {
      ++i;
      continue;
    }
    const MessageBoxAnswer answer = Report(app, *failure);
    if (answer == MessageBoxAnswer::kIgnore) {
      ++i;
    } else if (answer != MessageBoxAnswer::kRetry) {
      return false;
    }
  }
  return true;
}

}  // namespace quorvale
