#include "platform/desktop/toolkit/focus_watch.h"

#include <QGuiApplication>
#include <chrono>
#include <cstdint>
#include <utility>

#include "platform/desktop/system/x11_windows.h"
#include "platform/desktop/toolkit/x11_session.h"

namespace quorvale {
namespace {

// A window manager moves the focus back and forth for a moment, and unmaps a window to put a frame around it.
constexpr auto kUntilSettled = std::chrono::milliseconds(60);
constexpr auto kBetweenChecks = std::chrono::milliseconds(250);
// Attempts by the window manager come first, then attempts by the server, and then the keyboard is grabbed.
constexpr int kManagerAttempts = 1;
constexpr int kServerAttempts = 3;

}  // namespace

FocusWatch::FocusWatch(QWindow& window, std::function<void()> lost) : window_(window), lost_(std::move(lost)) {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, [this] { Check(); });
  connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this] { CheckSoon(); });
}

void FocusWatch::Start() {
  runs_ = true;
  was_on_screen_ = false;
  had_focus_ = false;
  attempts_ = 0;
  CheckSoon();
}

void FocusWatch::Stop() {
  runs_ = false;
  timer_.stop();
  SetGrabbed(false);
}

void FocusWatch::SetPaused(bool paused) {
  paused_ = paused;
  if (paused) SetGrabbed(false);
  CheckSoon();
}

void FocusWatch::CheckSoon() {
  if (runs_ && !paused_) timer_.start(kUntilSettled);
}

void FocusWatch::Check() {
  if (!runs_ || paused_) return;
  if (!IsOnScreen()) {
    if (was_on_screen_) {
      lost_();
    } else {
      timer_.start(kBetweenChecks);
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
  timer_.start(kBetweenChecks);
  if (owner == Owner::kNobody || !had_focus_) {
    RequestFocus();
  } else if (X11Connection() == nullptr || !IsKeyboardGrabbed(X11Connection())) {
    // If the show goes on, it requests the focus again.
    had_focus_ = false;
    lost_();
  }
}

void FocusWatch::RequestFocus() {
  xcb_connection_t* const x11 = X11Connection();
  if (x11 == nullptr) return;
  ++attempts_;
  if (attempts_ <= kManagerAttempts) {
    window_.requestActivate();
  } else if (attempts_ <= kServerAttempts) {
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

// Other window systems don't report it.
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
