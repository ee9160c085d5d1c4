#include "platform/headless/headless_desktop.h"

#include <functional>
#include <set>
#include <utility>
#include <vector>

#include "base/failure.h"

namespace quorvale {

class HeadlessDesktop::FormWindow : public WindowPeer {
 public:
  FormWindow(WindowTable& windows, WindowKind kind, WindowEvents& events)
      : windows_(windows), handle_(windows.Create({.title = {}, .bounds = {}, .kind = kind, .events = &events})) {}
  ~FormWindow() override { windows_.Destroy(handle_); }
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  WindowHandle Handle() const override { return handle_; }
  void SetCaption(const std::string& caption) override { Window().title = caption; }
  void SetBounds(const PixelRect& bounds) override { Window().bounds = bounds; }
  void SetIcon(const Artwork& /*icon*/) override {}
  void SetVisible(bool visible) override {
    Window().visible = visible;
    if (!visible) return;
    windows_.SetForeground(handle_);
    if (windows_.shown) windows_.shown(handle_);
  }

 private:
  HeadlessWindow& Window() { return *windows_.Find(handle_); }

  WindowTable& windows_;
  WindowHandle handle_;
};

class HeadlessDesktop::BoxWindow : public SurfacePeer {
 public:
  BoxWindow(HeadlessDesktop& desktop, WindowHandle parent, Surface& surface, SurfaceEvents& events)
      : desktop_(desktop),
        handle_(desktop.windows.Create({.parent = parent,
                                        .title = {},
                                        .bounds = {},
                                        .visible = true,
                                        .surface_events = &events,
                                        .surface = &surface})) {}
  ~BoxWindow() override { desktop_.windows.Destroy(handle_); }
  BoxWindow(const BoxWindow&) = delete;
  BoxWindow& operator=(const BoxWindow&) = delete;

  WindowHandle Handle() const override { return handle_; }
  float Scale() const override { return desktop_.screen_.scale; }
  // The window is destroyed together with the host window that contains it.
  void SetBounds(const PixelRect& bounds) override {
    if (HeadlessWindow* const window = Window()) window->bounds = bounds;
  }
  void Invalidate() override {
    if (HeadlessWindow* const window = Window()) window->invalidated = true;
  }
  void Present() override { desktop_.Present(handle_); }
  void TakeFocus() override { desktop_.windows.focus = handle_; }

 private:
  HeadlessWindow* Window() { return desktop_.windows.Find(handle_); }

  HeadlessDesktop& desktop_;
  WindowHandle handle_;
};

class HeadlessDesktop::Hook : public MessageHookPeer {
 public:
  Hook(HeadlessDesktop& desktop, std::function<void(int message)> arrived)
      : desktop_(desktop), arrived_(std::move(arrived)) {
    desktop.hooks_.push_back(this);
  }
  ~Hook() override { std::erase(desktop_.hooks_, this); }
  Hook(const Hook&) = delete;
  Hook& operator=(const Hook&) = delete;

  void Watch(WindowHandle window) override { window_ = window; }
  void Report(int message) override { reported_.insert(message); }
  void Deliver(WindowHandle window, int message) {
    if (window == window_ && reported_.contains(message)) arrived_(message);
  }

 private:
  HeadlessDesktop& desktop_;
  std::function<void(int message)> arrived_;
  WindowHandle window_ = 0;
  std::set<int> reported_;
};

class HeadlessDesktop::LoggedRun : public PacedRun {
 public:
  LoggedRun(HeadlessDesktop& desktop, WindowHandle surface) : desktop_(desktop), index_(desktop.paced_runs.size()) {
    desktop.paced_runs.push_back({.surface = surface});
  }
  ~LoggedRun() override { Log().open = false; }
  LoggedRun(const LoggedRun&) = delete;
  LoggedRun& operator=(const LoggedRun&) = delete;

  void PumpEvents() override {
    ++Log().pumps;
    desktop_.PumpEvents();
  }

 private:
  PacedRunLog& Log() { return desktop_.paced_runs[index_]; }

  HeadlessDesktop& desktop_;
  std::size_t index_;
};

HeadlessDesktop::HeadlessDesktop() {
  queue.pass_ending = [this] { PresentAll(); };
}

System HeadlessDesktop::Services() { return {registry, files, windows, sound, programs, host, password}; }

std::unique_ptr<WindowPeer> HeadlessDesktop::CreateWindowPeer(WindowKind kind, WindowEvents& events) {
  return std::make_unique<FormWindow>(windows, kind, events);
}

std::unique_ptr<SurfacePeer> HeadlessDesktop::CreateSurfacePeer(WindowPeer& window, Surface& surface,
                                                                SurfaceEvents& events) {
  return std::make_unique<BoxWindow>(*this, window.Handle(), surface, events);
}

std::unique_ptr<MessageHookPeer> HeadlessDesktop::CreateMessageHookPeer(std::function<void(int message)> arrived) {
  return std::make_unique<Hook>(*this, std::move(arrived));
}

void HeadlessDesktop::SendMessage(WindowHandle window, int message) {
  const std::vector<Hook*> hooks = hooks_;
  for (Hook* const hook : hooks) hook->Deliver(window, message);
}

std::unique_ptr<TimerPeer> HeadlessDesktop::CreateTimerPeer(std::function<void()> fired) {
  return queue.CreateTimer(std::move(fired));
}

std::unique_ptr<PacedRun> HeadlessDesktop::OpenPacedRun(SurfacePeer& surface) {
  return std::make_unique<LoggedRun>(*this, surface.Handle());
}

void HeadlessDesktop::SetScreen(int width, int height, float scale) {
  screen_ = {.width = width, .height = height, .scale = scale};
  NotifyOfScreen();
}

void HeadlessDesktop::SetFurtherMonitors(std::vector<PixelRect> monitors) {
  further_monitors_ = std::move(monitors);
  NotifyOfScreen();
}

// A notified form may make and remove windows.
void HeadlessDesktop::NotifyOfScreen() {
  std::vector<WindowHandle> handles;
  for (const auto& [handle, window] : windows.All()) handles.push_back(handle);
  for (const WindowHandle handle : handles) {
    const HeadlessWindow* const window = windows.Find(handle);
    if (window == nullptr) continue;
    if (window->surface_events != nullptr) {
      window->surface_events->OnScaleChanged();
    } else if (window->events != nullptr && IsSaver(window->kind)) {
      window->events->OnScreenChanged();
    }
  }
}

bool HeadlessDesktop::PressKey(WindowHandle window, int key) {
  return Deliver(
      window, [key](SurfaceEvents& box) { box.OnKeyDown(key); }, [key](WindowEvents& form) { form.OnKeyDown(key); });
}

bool HeadlessDesktop::MoveMouse(WindowHandle window, int x, int y) {
  return Deliver(
      window, [x, y](SurfaceEvents& box) { box.OnMouseMove(x, y); }, [](WindowEvents& form) { form.OnMouseMove(); });
}

bool HeadlessDesktop::PressMouse(WindowHandle window, int x, int y) {
  return Deliver(
      window, [x, y](SurfaceEvents& box) { box.OnMouseDown(x, y); }, [](WindowEvents& form) { form.OnMouseDown(); });
}

bool HeadlessDesktop::RequestClose(WindowHandle window) {
  return Deliver(
      window, [](SurfaceEvents& /*box*/) {}, [](WindowEvents& form) { form.OnCloseRequested(); });
}

bool HeadlessDesktop::RequestHelp(WindowHandle window) {
  return Deliver(
      window, [](SurfaceEvents& /*box*/) {}, [](WindowEvents& form) { form.OnHelpRequested(); });
}

bool HeadlessDesktop::Deactivate(WindowHandle window) {
  windows.SetForeground(windows.CreateForeign("Another program"));
  return Deliver(
      window, [](SurfaceEvents& /*box*/) {}, [](WindowEvents& form) { form.OnDeactivated(); });
}

void HeadlessDesktop::RunModal(WindowPeer& window) {
  const WindowHandle handle = window.Handle();
  std::vector<WindowHandle> disabled;
  for (const auto& [other, other_window] : windows.All()) {
    if (other != handle && other_window.events != nullptr && other_window.enabled) disabled.push_back(other);
  }
  for (const WindowHandle other : disabled) windows.Find(other)->enabled = false;
  dialogs.Modal(handle);
  const HeadlessWindow* const left = windows.Find(handle);
  if (left != nullptr && left->visible) RequestClose(handle);
  for (const WindowHandle other : disabled) {
    if (HeadlessWindow* const found = windows.Find(other)) found->enabled = true;
  }
}

template <typename ToBox, typename ToForm>
bool HeadlessDesktop::Deliver(WindowHandle window, ToBox to_box, ToForm to_form) {
  const HeadlessWindow* const target = windows.Find(window);
  if (target == nullptr) throw Failure(FailureNumber::kInvalidArgument, "No such window", "HeadlessDesktop");
  const HeadlessWindow* const parent = windows.Find(target->parent);
  if (!target->enabled || (parent != nullptr && !parent->enabled)) return false;
  // The event may destroy the window.
  if (target->surface_events != nullptr) {
    to_box(*target->surface_events);
  } else if (target->events != nullptr) {
    to_form(*target->events);
  }
  return true;
}

void HeadlessDesktop::Present(WindowHandle window) {
  HeadlessWindow* const shown = windows.Find(window);
  if (shown == nullptr) return;
  shown->invalidated = false;
  if (!shown->surface->Dirty().IsEmpty()) presentations.push_back({window, shown->surface->Dirty().Take()});
}

void HeadlessDesktop::PresentAll() {
  for (const auto& [handle, window] : windows.All()) {
    if (window.invalidated) Present(handle);
  }
}

}  // namespace quorvale
