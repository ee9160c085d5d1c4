#include "platform/desktop/toolkit/focus_watch.h"

#include <QGuiApplication>
#include <chrono>
#include <cstdint>
#include <utility>

#include "platform/desktop/system/x11_windows.h"
#include "platform/desktop/toolkit/x11_session.h"

namespace quorvale {
namespace {

// A window manager takes the focus to and fro for a moment, and takes a window off the screen to frame it.
constexpr auto kUntilSettled = std::chrono::milliseconds(60);
constexpr auto kBetweenLooks = std::chrono::milliseconds(250);
// Window managers are asked first, then the server, and then the keyboard is grabbed.
constexpr int kAskedManager = 1;
constexpr int kAskedServer = 3;

}  // namespace

FocusWatch::FocusWatch(QWindow& window, std::function<void()> lost) : window_(window), lost_(std::move(lost)) {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, [this] { Look(); });
  connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this] { LookSoon(); });
}

void FocusWatch::Start() {
  runs_ = true;
  was_on_screen_ = false;
  had_focus_ = false;
  attempts_ = 0;
  LookSoon();
}

void FocusWatch::Stop() {
  runs_ = false;
  timer_.stop();
  SetGrabbed(false);
}

void FocusWatch::SetPaused(bool paused) {
  paused_ = paused;
  if (paused) SetGrabbed(false);
  LookSoon();
}

void FocusWatch::LookSoon() {
  if (runs_ && !paused_) timer_.start(kUntilSettled);
}

void FocusWatch::Look() {
  if (!runs_ || paused_) return;
  if (!IsOnScreen()) {
    if (was_on_screen_) {
      lost_();
    } else {
      timer_.start(kBetweenLooks);
    }
    return;
  }
  was_on_screen_ = true;
  const Owner owner = OwnerOfFocus();
  if (owner == Owner::kUs) {
    had_focus_ = true;
    attempts_ = 0;
    SetGrabbed(false);
    return;
  }
  timer_.start(kBetweenLooks);
  if (owner == Owner::kNobody || !had_focus_) {
    Seek();
  } else if (X11Connection() == nullptr || !IsKeyboardGrabbed(X11Connection())) {
    // Where the show goes on all the same, it tries to have the focus back.
    had_focus_ = false;
    lost_();
  }
}

void FocusWatch::Seek() {
  xcb_connection_t* const x11 = X11Connection();
  if (x11 == nullptr) return;
  ++attempts_;
  if (attempts_ <= kAskedManager) {
    window_.requestActivate();
  } else if (attempts_ <= kAskedServer) {
    TakeFocus(x11, static_cast<std::uint32_t>(window_.winId()));
  } else {
    SetGrabbed(true);
  }
}

FocusWatch::Owner FocusWatch::OwnerOfFocus() const {
  xcb_connection_t* const x11 = X11Connection();
  if (x11 == nullptr) return QGuiApplication::focusWindow() != nullptr ? Owner::kUs : Owner::kOther;
  const std::uint32_t focus = FocusedWindow(x11);
  if (focus == 0) return Owner::kNobody;
  return IsOwnWindow(x11, focus) ? Owner::kUs : Owner::kOther;
}

// Other window systems don't tell.
bool FocusWatch::IsOnScreen() const {
  xcb_connection_t* const x11 = X11Connection();
  return x11 == nullptr || IsViewable(x11, static_cast<std::uint32_t>(window_.winId()));
}

void FocusWatch::SetGrabbed(bool grabbed) {
  if (grabbed == is_grabbed_) return;
  const bool answer = window_.setKeyboardGrabEnabled(grabbed);
  is_grabbed_ = grabbed && answer;
}

}  // namespace quorvale
