#include "toolkit/message_hook.h"

#include "toolkit/form.h"

namespace quorvale {

void MessageHook::SetHwnd(WindowHandle window) {
  RequireLoaded();
  peer_->Watch(window);
}

void MessageHook::Report(int message) {
  RequireLoaded();
  peer_->Report(message);
}

void MessageHook::CreatePeer() {
  peer_ = App().GetPlatform().CreateMessageHookPeer([this](int message) { Arrived(message); });
}

void MessageHook::ReleasePeer() {
  if (peer_) App().KeepUntilIdle(std::move(peer_));
}

void MessageHook::Arrived(int message) {
  if (!Parent().IsLoaded() || !Message) return;
  App().Dispatch([this, message, form = Parent().shared_from_this()] { Message(message); });
}

}  // namespace quorvale
