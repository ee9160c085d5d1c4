#pragma once

#include <cstdint>
#include <string>

#include "toolkit/control.h"
#include "toolkit/units.h"

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

inline constexpr std::uint32_t kOfnOverwritePrompt = 0x2;
inline constexpr std::uint32_t kOfnHideReadOnly = 0x4;
inline constexpr std::uint32_t kOfnAllowMultiSelect = 0x200;
inline constexpr std::uint32_t kOfnFileMustExist = 0x1000;
inline constexpr std::uint32_t kOfnExplorer = 0x80000;
inline constexpr std::uint32_t kOfnLongNames = 0x200000;

// The properties of a file dialog.
struct FileDialog {
  bool save = false;
  std::string title = {};
  std::string start_name = {};
  // Pairs "description|patterns", joined by "|"; patterns are separated by ";".
  std::string filter = {};
  int filter_index = 0;  // from 1; 0 is the first as well
  std::uint32_t flags = 0;
  // Capacity for the answer, in characters. Platforms may allow more.
  int max_file_size = 260;
};

// The file and colour dialogs of a form. Callers set all properties before each use.
class CommonDialog : public Control {
 public:
  static constexpr int kUsualMaxFileSize = 260;

  using Control::Control;

  std::string title;
  // Before: the name to start with. After: the chosen path, or empty if cancelled. Multiple files have the form
  // "directory\0name\0name".
  std::string file_name;
  std::string filter;
  int filter_index = 0;
  std::uint32_t flags = 0;
  // Capacity for the file name, in characters. Platforms may allow more.
  int max_file_size = kUsualMaxFileSize;
  // If set, Cancel fails with kCancelled.
  bool cancel_error = false;
  // Before: the initial colour. After: the chosen one; unchanged if cancelled.
  Colour colour = kBlack;

  void ShowOpen() { ShowFile(false); }
  void ShowSave() { ShowFile(true); }
  void ShowColor();

 private:
  void ShowFile(bool save);
};

}  // namespace quorvale
