#include "config/told_failure.h"

#include <exception>

#include "base/failure.h"
#include "toolkit/application.h"

namespace quorvale {
namespace {

void Tell(Application& app, const std::string& procedure, FailureNumber number, const std::string& source) {
  app.ShowMessageBox(
      {.text = "sProcNm=" + procedure + " Num=" + std::to_string(static_cast<int>(number)) + " Src=" + source});
}

}  // namespace

void TellFailure(Application& app, const std::string& procedure, const std::function<void()>& statement) {
  try {
    statement();
  } catch (const Failure& failure) {
    Tell(app, procedure, failure.Number(), failure.Source());
  } catch (const std::exception& error) {
    Tell(app, procedure, FailureNumber::kInternal, error.what());
  }
}

}  // namespace quorvale
