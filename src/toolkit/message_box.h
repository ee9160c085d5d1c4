#pragma once

#include <string>

namespace quorvale {

enum class MessageBoxButtons { kOk, kYesNoCancel, kAbortRetryIgnore };
enum class MessageBoxIcon { kNone, kInformation, kExclamation, kQuestion };

// The pressed button, with the system's numbers; 0 is no button.
enum class MessageBoxAnswer { kNone = 0, kOk = 1, kCancel = 2, kAbort = 3, kRetry = 4, kIgnore = 5, kYes = 6, kNo = 7 };

// A modal box. An empty title stands for the application's.
struct MessageBox {
  std::string text;
  std::string title = {};
  MessageBoxButtons buttons = MessageBoxButtons::kOk;
  MessageBoxIcon icon = MessageBoxIcon::kNone;
};

}  // namespace quorvale
