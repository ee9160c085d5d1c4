#include "toolkit/application.h"

#include <exception>
#include <utility>

#include "base/failure.h"
#include "toolkit/form.h"

namespace quorvale {
namespace {

// Counts a running handler, whichever way it ends.
class RunningHandler {
 public:
  explicit RunningHandler(int& count) : count_(count) { ++count_; }
  ~RunningHandler() { --count_; }
  RunningHandler(const RunningHandler&) = delete;
  RunningHandler& operator=(const RunningHandler&) = delete;

 private:
  int& count_;
};

// Windows must go before the form whose events they deliver, hence the fixed order.
void DropInOrder(std::vector<std::shared_ptr<void>> objects) {
  for (std::shared_ptr<void>& object : objects) object.reset();
}

}  // namespace

Form& FormList::operator[](int index) const {
  if (index < 0 || index >= Count()) throw Failure(FailureNumber::kNoSuchEntry, "No such form", "FormList");
  return *forms_[static_cast<std::size_t>(index)];
}

Application::~Application() {
  LastFormGone = nullptr;
  while (Forms.Count() > 0) Forms[Forms.Count() - 1].Destroy();
  DropInOrder(std::exchange(kept_, {}));
}

ScreenSize Application::Screen() const {
  const ScreenInfo info = platform_.Screen();
  return {.Width = static_cast<float>(info.width) * kTwipsPerPixel,
          .Height = static_cast<float>(info.height) * kTwipsPerPixel};
}

void Application::Dispatch(const std::function<void()>& handler) {
  // Whatever was kept may have been delivering the last event itself, and its call has ended only now.
  if (running_handlers_ == 0) DropInOrder(std::exchange(kept_, {}));
  const RunningHandler running(running_handlers_);
  try {
    handler();
  } catch (const std::exception& failure) {
    ShowMessageBox({.text = failure.what(), .icon = MessageBoxIcon::kExclamation});
  }
}

void Application::KeepUntilIdle(std::shared_ptr<void> object) {
  if (running_handlers_ > 0) kept_.push_back(std::move(object));
}

}  // namespace quorvale
