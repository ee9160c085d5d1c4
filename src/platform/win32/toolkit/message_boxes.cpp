#include "platform/win32/toolkit/message_boxes.h"

#include <algorithm>

#include "platform/win32/toolkit/wide_text.h"
#include "platform/win32/windows_api.h"

namespace quorvale {
namespace {

UINT ToWin32(MessageBoxButtons buttons) {
  switch (buttons) {
    case MessageBoxButtons::kOk:
      return MB_OK;
    case MessageBoxButtons::kYesNoCancel:
      return MB_YESNOCANCEL;
    case MessageBoxButtons::kAbortRetryIgnore:
      return MB_ABORTRETRYIGNORE;
  }
  return MB_OK;
}

UINT ToWin32(MessageBoxIcon icon) {
  switch (icon) {
    case MessageBoxIcon::kNone:
      return 0;
    case MessageBoxIcon::kInformation:
      return MB_ICONINFORMATION;
    case MessageBoxIcon::kExclamation:
      return MB_ICONEXCLAMATION;
    case MessageBoxIcon::kQuestion:
      return MB_ICONQUESTION;
  }
  return 0;
}

// The window of ours that the user works with; it takes no input while the box is there.
HWND Owner() {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  if (GetGUIThreadInfo(GetCurrentThreadId(), &info) == 0 || info.hwndActive == nullptr) return nullptr;
  return IsWindowVisible(info.hwndActive) != 0 ? info.hwndActive : nullptr;
}

}  // namespace

MessageBoxAnswer ShowWin32MessageBox(const MessageBox& box, const std::string& application_title,
                                     EndedLoops& ended_loops) {
  std::string text = box.text;
  std::replace(text.begin(), text.end(), '\r', '\n');
  const HWND owner = Owner();
  const UINT kind = ToWin32(box.buttons) | ToWin32(box.icon) | MB_SETFOREGROUND | MB_TOPMOST |
                    (owner == nullptr ? MB_TASKMODAL : MB_APPLMODAL);
  // A box with an answer lets its owner take input again before it returns.
  const EndedLoops::Loop loop(ended_loops, [owner] { return owner != nullptr && IsWindowEnabled(owner) != 0; });
  return static_cast<MessageBoxAnswer>(MessageBoxW(
      owner, ToWide(text).c_str(), ToWide(box.title.empty() ? application_title : box.title).c_str(), kind));
}

}  // namespace quorvale
