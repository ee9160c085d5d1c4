#include "platform/headless/window_table.h"

#include <utility>
#include <vector>

#include "base/failure.h"
#include "base/text.h"

namespace quorvale {
namespace {

constexpr WindowHandle kHandleStep = 4;

}  // namespace

WindowHandle WindowTable::FindWindow(const std::string& title) {
  for (const auto& [handle, window] : windows_) {
    if (window.parent == 0 && EqualsIgnoringCase(window.title, title)) return handle;
  }
  return 0;
}

void WindowTable::EnableWindow(WindowHandle window, bool enabled) {
  log_.push_back("EnableWindow " + std::to_string(window) + (enabled ? " true" : " false"));
  if (HeadlessWindow* const found = Find(window)) found->enabled = enabled;
}

void WindowTable::SetWindowPos(WindowHandle window, std::intptr_t insert_after, int x, int y, int width, int height,
                               std::uint32_t flags) {
  std::string call = "SetWindowPos " + std::to_string(window);
  for (const std::intptr_t number : {insert_after, std::intptr_t{x}, std::intptr_t{y}, std::intptr_t{width},
                                     std::intptr_t{height}, static_cast<std::intptr_t>(flags)}) {
    call += " " + std::to_string(number);
  }
  log_.push_back(std::move(call));
  HeadlessWindow* const found = Find(window);
  if (found == nullptr) return;
  if (insert_after == kHwndTopmost) found->topmost = true;
  if ((flags & kSwpNoSizeNoMove) == 0) found->bounds = {x, y, width, height};
}

void WindowTable::ActivateWindow(const std::string& title) {
  log_.push_back("ActivateWindow " + title);
  ActivateWindow(FindWindow(title));
}

void WindowTable::ActivateWindow(WindowHandle window) {
  if (!IsWindow(window)) throw Failure(FailureNumber::kNotFound, "No such window", "WindowTable");
  foreground_ = window;
  focus = window;
}

WindowHandle WindowTable::CreateForeign(const std::string& title) {
  return Create({.title = title, .bounds = {}, .visible = true});
}

WindowHandle WindowTable::Create(HeadlessWindow window) {
  last_handle_ += kHandleStep;
  windows_.emplace(last_handle_, std::move(window));
  return last_handle_;
}

void WindowTable::GetClientRect(WindowHandle window, ClientRect& rect) {
  const HeadlessWindow* const found = Find(window);
  if (found != nullptr) rect = {0, 0, found->bounds.width, found->bounds.height};
}

void WindowTable::SetParent(WindowHandle window, WindowHandle parent) {
  log_.push_back("SetParent " + std::to_string(window) + " " + std::to_string(parent));
  HeadlessWindow* const found = Find(window);
  if (found != nullptr && (parent == 0 || IsWindow(parent))) found->parent = parent;
}

void WindowTable::Destroy(WindowHandle window) {
  windows_.erase(window);
  std::vector<WindowHandle> children;
  for (const auto& [handle, child] : windows_) {
    if (child.parent == window) children.push_back(handle);
  }
  for (const WindowHandle child : children) Destroy(child);
  if (foreground_ == window) foreground_ = 0;
  if (focus == window) focus = 0;
}

HeadlessWindow* WindowTable::Find(WindowHandle window) {
  const auto found = windows_.find(window);
  return found == windows_.end() ? nullptr : &found->second;
}

}  // namespace quorvale
