#include "platform/win32/toolkit/message_boxes.h"

#include <algorithm>
#include <iterator>
#include <string_view>

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

BOOL CALLBACK StopAtVisibleDialog(HWND window, LPARAM found) {
  wchar_t name[8] = {};
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  // The class of the system's own dialogs.
  if (IsWindowVisible(window) == 0 || std::wstring_view(name) != L"#32770") return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

// The uppermost of the system's dialogs that this program shows, or null.
HWND TopmostDialog() {
  HWND dialog = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), &StopAtVisibleDialog, reinterpret_cast<LPARAM>(&dialog));
  return dialog;
}

}  // namespace

MessageBoxAnswer ShowWin32MessageBox(const MessageBox& box, const std::string& application_title,
                                     EndedLoops& ended_loops) {
  std::string text = box.text;
  std::replace(text.begin(), text.end(), '\r', '\n');
  const HWND owner = Owner();
  const UINT kind = ToWin32(box.buttons) | ToWin32(box.icon) | MB_SETFOREGROUND | MB_TOPMOST |
                    (owner == nullptr ? MB_TASKMODAL : MB_APPLMODAL);
  // Asked for the first time while the box is on the screen; with its answer it goes from there before it returns.
  const EndedLoops::Loop loop(ended_loops, [shown = HWND()]() mutable {
    if (shown == nullptr) shown = TopmostDialog();
    return shown != nullptr && IsWindowVisible(shown) == 0;
  });
  return static_cast<MessageBoxAnswer>(MessageBoxW(
      owner, ToWide(text).c_str(), ToWide(box.title.empty() ? application_title : box.title).c_str(), kind));
}

}  // namespace quorvale
