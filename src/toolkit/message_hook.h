#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "system/window_system.h"
#include "toolkit/control.h"
#include "toolkit/platform.h"

namespace quorvale {

// Numbers of window messages that hooks can report.
inline constexpr int kWmClose = 16;
inline constexpr int kWmExitMenuLoop = 530;

// Reports selected messages that arrive at one window of this program.
class MessageHook : public Control {
 public:
  MessageHook(Form& parent, std::string name) : Control(parent, std::move(name)) {}

  std::function<void(int message)> Message;

  // Watches `window` instead of any other from now on. Fails with kNotLoaded.
  void SetHwnd(WindowHandle window);
  // Adds `message` to the reported ones. Fails with kNotLoaded.
  void Report(int message);

 protected:
  void CreatePeer() override;
  void ReleasePeer() override;

 private:
  void Arrived(int message);

  std::unique_ptr<MessageHookPeer> peer_;
};

}  // namespace quorvale
