#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "system/window_system.h"
#include "toolkit/control.h"
#include "toolkit/platform.h"

namespace quorvale {

// The system's numbers of the messages that hooks report.
inline constexpr int kWmClose = 16;
inline constexpr int kWmExitMenuLoop = 530;

// Tells a form that one of the messages that it chose has arrived at a window of this program.
class MessageHook : public Control {
 public:
  MessageHook(Form& parent, std::string name) : Control(parent, std::move(name)) {}

  std::function<void(int message)> Message;

  // Watches that window from now on, in place of any before. Fails with kNotLoaded.
  void SetHwnd(WindowHandle window);
  // Reports that message from now on. Fails with kNotLoaded.
  void Report(int message);

 protected:
  void CreatePeer() override;
  void ReleasePeer() override;

 private:
  void Arrived(int message);

  std::unique_ptr<MessageHookPeer> peer_;
};

}  // namespace quorvale
