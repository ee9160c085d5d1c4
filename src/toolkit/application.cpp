#include "toolkit/application.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "base/failure.h"
#include "toolkit/form.h"

namespace quorvale {
namespace {

// Registers a running handler for the time of its scope.
class RunningHandler {
 public:
  RunningHandler(std::vector<std::uint64_t>& running, std::uint64_t number) : running_(running) {
    running_.push_back(number);
  }
  ~RunningHandler() { running_.pop_back(); }
  RunningHandler(const RunningHandler&) = delete;
  RunningHandler& operator=(const RunningHandler&) = delete;

 private:
  std::vector<std::uint64_t>& running_;
};

// Destroys in a fixed order, because a window must be destroyed before the form to which it delivers events.
void DropInOrder(std::vector<std::shared_ptr<void>> objects) {
  for (std::shared_ptr<void>& object : objects) object.reset();
}

}  // namespace

Form& FormList::operator[](int index) const {
  if (index < 0 || index >= Count()) throw Failure(FailureNumber::kNoSuchEntry, "No such form", "FormList");
  return *forms_[static_cast<std::size_t>(index)];
}

Application::~Application() {
  last_form_gone = nullptr;
  while (forms.Count() > 0) forms[forms.Count() - 1].Destroy();
  DropInOrder(std::exchange(kept_, {}));
}

ScreenSize Application::Screen() const {
  const ScreenInfo info = platform_.Screen();
  return {.width = static_cast<float>(info.width) * kTwipsPerPixel,
          .height = static_cast<float>(info.height) * kTwipsPerPixel};
}

void Application::Dispatch(const std::function<void()>& handler) {
  // A kept object may itself have delivered the last event; that call has ended by now.
  if (running_handlers_.empty()) DropInOrder(std::exchange(kept_, {}));
  const RunningHandler running(running_handlers_, ++last_handler_);
  try {
    handler();
  } catch (const std::exception& failure) {
    ShowMessageBox({.text = failure.what(), .icon = MessageBoxIcon::kExclamation});
  }
}

std::uint64_t Application::CallingHandler() const {
  if (running_handlers_.empty()) return 0;
  return running_handlers_.size() == 1 ? running_handlers_.front() : *(running_handlers_.end() - 2);
}

bool Application::IsRunning(std::uint64_t handler) const {
  return handler == 0 || std::ranges::find(running_handlers_, handler) != running_handlers_.end();
}

void Application::KeepUntilIdle(std::shared_ptr<void> object) {
  if (!running_handlers_.empty()) kept_.push_back(std::move(object));
}

}  // namespace quorvale
