#pragma once

#include <cstdint>
#include <string>

#include "toolkit/control.h"
#include "toolkit/file_dialog.h"
#include "toolkit/units.h"

namespace quorvale {

// The file and colour dialogs of a form. Everything is set anew before each use.
class CommonDialog : public Control {
 public:
  static constexpr int kUsualMaxFileSize = 260;

  using Control::Control;

  std::string DialogTitle;
  // The start name goes in, the chosen path comes out. Several files come out as their directory, a NUL,
  // the first name, a NUL and so on; after Cancel it is empty.
  std::string FileName;
  std::string Filter;
  int FilterIndex = 0;
  std::uint32_t Flags = 0;
  // Room for the file name, in characters. A platform may give more.
  int MaxFileSize = kUsualMaxFileSize;
  // Cancel is then a failure with kCancelled.
  bool CancelError = false;
  // The colour to start from; the chosen one comes out, and after Cancel the same.
  Colour Color = kBlack;

  void ShowOpen() { ShowFile(false); }
  void ShowSave() { ShowFile(true); }
  void ShowColor();

 private:
  void ShowFile(bool save);
};

}  // namespace quorvale
