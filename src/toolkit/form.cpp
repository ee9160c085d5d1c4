#include "toolkit/form.h"

#include <algorithm>
#include <utility>

#include "base/failure.h"
#include "base/text.h"
#include "toolkit/control.h"
#include "toolkit/menu.h"

namespace quorvale {
namespace {

// A dialog's nominal frame in pixels: left and right edges, title bar with top and bottom edges, menu bar.
constexpr int kFrameWidth = 6;
constexpr int kCaptionHeight = 25;
constexpr int kMenuHeight = 19;

}  // namespace

Form::Form(Application& application, std::string name, WindowKind kind, std::string caption)
    : application_(application), name_(std::move(name)), kind_(kind), caption_(std::move(caption)) {}

Form::~Form() = default;

void Form::Load() {
  if (IsLoaded()) return;
  const auto self = shared_from_this();
  state_ = State::kLoading;
  try {
    window_ = application_.GetPlatform().CreateWindowPeer(kind_, *this);
    window_->SetCaption(caption_);
    if (icon_) window_->SetIcon(icon_);
    SendBounds();
    for (Control* const control : controls_) control->CreatePeer();
    if (kind_ != WindowKind::kMonitor) application_.forms.forms_.push_back(self);
    Form_Load();
  } catch (...) {
    Destroy();
    throw;
  }
  // The handler may have unloaded the form.
  if (state_ == State::kLoading) state_ = State::kLoaded;
}

void Form::Show() {
  Load();
  if (!IsLoaded()) return;
  visible_ = true;
  window_->SetVisible(true);
}

void Form::ShowModal() {
  Show();
  if (!IsLoaded()) return;
  const auto self = shared_from_this();
  application_.RunModal(*window_);
}

void Form::Unload() {
  if (state_ == State::kUnloaded || state_ == State::kUnloading) return;
  const auto self = shared_from_this();
  const State before = std::exchange(state_, State::kUnloading);
  bool cancel = false;
  try {
    Form_QueryUnload(cancel);
  } catch (...) {
    state_ = before;
    throw;
  }
  if (cancel) {
    state_ = before;
    return;
  }
  // There is no second chance to unload, so a failure of the handler does not keep the form loaded.
  try {
    Form_Unload();
  } catch (...) {
    Destroy();
    throw;
  }
  Destroy();
}

bool Form::Visible() const {
  RequireLoaded();
  return visible_;
}

WindowHandle Form::Hwnd() const { return Window().Handle(); }

void Form::SetCaption(std::string caption) {
  caption_ = std::move(caption);
  if (window_) window_->SetCaption(caption_);
}

void Form::Move(float left, float top, float width, float height) {
  bounds_ = {left, top, width, height};
  if (window_) SendBounds();
}

void Form::CenterOnScreen() {
  const ScreenSize screen = application_.Screen();
  Move(screen.width / 2 - bounds_.width / 2, screen.height / 2 - bounds_.height / 2, bounds_.width, bounds_.height);
}

void Form::SetClientSize(float width, float height) {
  const PixelRect frame = NominalFrame();
  Move(bounds_.left, bounds_.top, width + static_cast<float>(frame.width) * kTwipsPerPixel,
       height + static_cast<float>(frame.height) * kTwipsPerPixel);
}

void Form::SetIcon(Artwork icon) {
  icon_ = std::move(icon);
  if (window_) window_->SetIcon(icon_);
}

void Form::RequireLoaded() const {
  if (!IsLoaded()) throw Failure(FailureNumber::kNotLoaded, "The form is not loaded", name_);
}

WindowPeer& Form::Window() const {
  RequireLoaded();
  return *window_;
}

void Form::OnKeyDown(int key) {
  if (!IsLoaded()) return;
  application_.Dispatch([self = shared_from_this(), key] { self->Form_KeyDown(key); });
}

void Form::OnMouseDown() {
  if (!IsLoaded()) return;
  application_.Dispatch([self = shared_from_this()] { self->Form_MouseDown(); });
}

void Form::OnMouseMove() {
  if (!IsLoaded()) return;
  application_.Dispatch([self = shared_from_this()] { self->Form_MouseMove(); });
}

void Form::OnCloseRequested() {
  if (!IsLoaded()) return;
  application_.Dispatch([self = shared_from_this()] { self->Unload(); });
}

void Form::OnHelpRequested() {
  if (!IsLoaded()) return;
  application_.Dispatch([self = shared_from_this()] { self->Form_Help(); });
}

void Form::OnDeactivated() {
  if (!IsLoaded()) return;
  application_.Dispatch([self = shared_from_this()] { self->Form_Deactivate(); });
}

void Form::OnScreenChanged() {
  if (!IsLoaded()) return;
  application_.Dispatch([self = shared_from_this()] { self->Form_ScreenChange(); });
}

PixelRect Form::NominalFrame() const {
  if (kind_ != WindowKind::kDialog) return {};
  PixelRect frame = {.width = kFrameWidth, .height = kCaptionHeight};
  ForEach<MenuBar>([&frame](const MenuBar&) { frame.height += kMenuHeight; });
  return frame;
}

void Form::SendBounds() {
  PixelRect bounds = ToPixels(bounds_, 1);
  const PixelRect frame = NominalFrame();
  bounds.width = std::max(bounds.width - frame.width, 0);
  bounds.height = std::max(bounds.height - frame.height, 0);
  window_->SetBounds(bounds);
}

const Widget* Form::FocusedControl() const {
  const Widget* focused = nullptr;
  ForEach<Widget>([&focused](const Widget& control) {
    if (control.HasFocus()) focused = &control;
  });
  return focused;
}

void Form::RecordFocusLoss(const Widget& control) {
  if (lost_focus_.now_at != &control || !application_.IsRunning(lost_focus_.handler)) {
    lost_focus_ = {.by = {}, .now_at = nullptr, .handler = application_.CallingHandler()};
  }
  lost_focus_.by.push_back(&control);
  lost_focus_.now_at = FocusedControl();
}

bool Form::ReclaimFocus(const Widget& control) {
  if (lost_focus_.now_at != FocusedControl() || !application_.IsRunning(lost_focus_.handler)) return false;
  const auto claim = std::ranges::find(lost_focus_.by, &control);
  if (claim == lost_focus_.by.end()) return false;
  lost_focus_.by.erase(claim, lost_focus_.by.end());
  lost_focus_.now_at = &control;
  return true;
}

Control* Form::FindControl(std::string_view control_name) const {
  for (Control* const control : controls_) {
    if (EqualsIgnoringCase(control->Name(), control_name)) return control;
  }
  return nullptr;
}

void Form::ThrowNoSuchControl(std::string_view control_name) const {
  throw Failure(FailureNumber::kNoSuchEntry, "No control " + std::string(control_name), name_);
}

void Form::Destroy() {
  if (!IsLoaded()) return;
  const auto self = shared_from_this();
  state_ = State::kUnloaded;
  visible_ = false;
  if (window_) window_->SetVisible(false);
  for (Control* const control : controls_) control->ReleasePeer();
  application_.KeepUntilIdle(std::move(window_));
  application_.KeepUntilIdle(self);
  const bool was_listed = std::erase(application_.forms.forms_, self) > 0;
  if (was_listed && application_.forms.Count() == 0 && application_.last_form_gone) application_.last_form_gone();
}

}  // namespace quorvale
