#pragma once

#include <cstdint>
#include <string>

#include "toolkit/control.h"
#include "toolkit/units.h"

namespace quorvale {

inline constexpr std::uint32_t kOfnOverwritePrompt = 0x2;
inline constexpr std::uint32_t kOfnHideReadOnly = 0x4;
inline constexpr std::uint32_t kOfnAllowMultiSelect = 0x200;
inline constexpr std::uint32_t kOfnFileMustExist = 0x1000;
inline constexpr std::uint32_t kOfnExplorer = 0x80000;
inline constexpr std::uint32_t kOfnLongNames = 0x200000;

// What a file dialog is asked for.
struct FileDialog {
  bool save = false;
  std::string title;
  std::string start_name;
  // Pairs of a description and patterns divided by ";", all divided by "|".
  std::string filter;
  int filter_index = 0;
  std::uint32_t flags = 0;
};

// The file and colour dialogs of a form. Everything is set anew before each use.
class CommonDialog : public Control {
 public:
  using Control::Control;

  std::string DialogTitle;
  // The start name goes in, the chosen path comes out. Several files come out as their directory, a NUL,
  // the first name, a NUL and so on; after Cancel it is empty.
  std::string FileName;
  std::string Filter;
  int FilterIndex = 0;
  std::uint32_t Flags = 0;
  // Room for the file name, in characters. A platform may give more.
  int MaxFileSize = 260;
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
