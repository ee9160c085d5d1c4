#pragma once

#include <cstdint>
#include <string>

#include "toolkit/control.h"
#include "toolkit/file_dialog.h"
#include "toolkit/units.h"

namespace quorvale {

// The file and colour dialogs of a form. Callers set all properties before each use.
class CommonDialog : public Control {
 public:
  static constexpr int kUsualMaxFileSize = 260;

  using Control::Control;

  std::string DialogTitle;
  // Before: the name to start with. After: the chosen path, or empty if cancelled. Multiple files have the form
  // "directory\0name\0name".
  std::string FileName;
  std::string Filter;
  int FilterIndex = 0;
  std::uint32_t Flags = 0;
  // Capacity for the file name, in characters. Platforms may allow more.
  int MaxFileSize = kUsualMaxFileSize;
  // If set, Cancel fails with kCancelled.
  bool CancelError = false;
  // Before: the initial colour. After: the chosen one; unchanged if cancelled.
  Colour Color = kBlack;

  void ShowOpen() { ShowFile(false); }
  void ShowSave() { ShowFile(true); }
  void ShowColor();

 private:
  void ShowFile(bool save);
};

}  // namespace quorvale
