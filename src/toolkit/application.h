#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/dialogs.h"
#include "toolkit/platform.h"
#include "toolkit/units.h"

namespace quorvale {

class Form;

// The size of the primary monitor in twips.
struct ScreenSize {
  float width = 0;
  float height = 0;
  float twips_per_pixel_x = kTwipsPerPixel;
  float twips_per_pixel_y = kTwipsPerPixel;
};

// The loaded forms, in the order in which they were loaded, without those of the kind `kMonitor`.
class FormList {
 public:
  int Count() const { return static_cast<int>(forms_.size()); }
  // `index` from 0; fails with kNoSuchEntry.
  Form& operator[](int index) const;

 private:
  friend class Form;
  std::vector<std::shared_ptr<Form>> forms_;
};

// A running program: its forms and its platform, which must outlive it.
class Application {
 public:
  explicit Application(Platform& platform) : platform_(platform) {}
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  Platform& GetPlatform() { return platform_; }

  FormList forms;
  ScreenSize Screen() const;
  void PumpEvents() { platform_.PumpEvents(); }
  MessageBoxAnswer ShowMessageBox(const MessageBox& box) { return platform_.ShowMessageBox(box); }

  // Runs events until that window is hidden.
  void RunModal(WindowPeer& window) { platform_.RunModal(window); }

  // Runs an event handler; no handler is run otherwise. Shows the description of a `Failure` that it throws in a box.
  // What handlers destroy is kept until the event after the outermost handler's, since the platform may still be
  // using it.
  void Dispatch(const std::function<void()>& handler);

  // An identifier of the running handler that called the innermost one, or of the only one; 0 if no handler runs.
  std::uint64_t CallingHandler() const;
  // Whether that handler is still running. False for 0.
  bool IsRunning(std::uint64_t handler) const;

  // Keeps `object` alive while an event is being delivered; otherwise releases it at once.
  void KeepUntilIdle(std::shared_ptr<void> object);

  // Lets events arrive while a picture takes long to decode. May end the process.
  std::function<void()> while_waiting;

  // Called when the last form has been unloaded. Platforms end their event loop here.
  std::function<void()> last_form_gone;

 private:
  Platform& platform_;
  // Identifiers, outermost first.
  std::vector<std::uint64_t> running_handlers_;
  std::uint64_t last_handler_ = 0;
  std::vector<std::shared_ptr<void>> kept_;
};

}  // namespace quorvale
