#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/message_box.h"
#include "toolkit/platform.h"
#include "toolkit/units.h"

namespace quorvale {

class Form;

// The size of the primary monitor in twips.
struct ScreenSize {
  float Width = 0;
  float Height = 0;
  float TwipsPerPixelX = kTwipsPerPixel;
  float TwipsPerPixelY = kTwipsPerPixel;
};

// The loaded forms, in the order in which they were loaded.
class FormList {
 public:
  int Count() const { return static_cast<int>(forms_.size()); }
  // `index` from 0; fails with kNoSuchEntry.
  Form& operator[](int index) const;

 private:
  friend class Form;
  std::vector<std::shared_ptr<Form>> forms_;
};

// One running program of the toolkit: its forms and its way to the platform, which outlives it.
class Application {
 public:
  explicit Application(Platform& platform) : platform_(platform) {}
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  Platform& GetPlatform() { return platform_; }

  FormList Forms;
  ScreenSize Screen() const;
  void PumpEvents() { platform_.PumpEvents(); }
  MessageBoxAnswer ShowMessageBox(const MessageBox& box) { return platform_.ShowMessageBox(box); }

  // Runs events until that window is hidden.
  void RunModal(WindowPeer& window) { platform_.RunModal(window); }

  // The one place from which event handlers run. A failure that `handler` lets out ends it here, and a
  // box shows its description. What handlers destroy lives until the outermost one has returned, and on
  // to the next event: the platform may still be on its way out of the last one.
  void Dispatch(const std::function<void()>& handler);

  // Names the running handler from which the innermost one was called, or the innermost where there is no other; 0
  // where none runs.
  std::uint64_t CallingHandler() const;
  // Whether that handler has not returned yet. 0 never does.
  bool IsRunning(std::uint64_t handler) const;

  // Keeps `object` until no event is being delivered; lets go of it at once where none is.
  void KeepUntilIdle(std::shared_ptr<void> object);

  // Called each time the last form is gone. Platforms end their event loop with it.
  std::function<void()> LastFormGone;

 private:
  Platform& platform_;
  // Their numbers, the outermost first.
  std::vector<std::uint64_t> running_handlers_;
  std::uint64_t last_handler_ = 0;
  std::vector<std::shared_ptr<void>> kept_;
};

}  // namespace quorvale
