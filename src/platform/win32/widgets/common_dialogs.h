#pragma once

#include <string>

#include "platform/win32/windows_api.h"
#include "toolkit/file_dialog.h"
#include "toolkit/units.h"

namespace quorvale {

// The system's own dialogs above `owner`. The answers are those of `Platform`.
std::string ShowWin32FileDialog(HWND owner, const FileDialog& dialog);
Colour ShowWin32ColourDialog(HWND owner, Colour start);
std::string BrowseWin32Folder(HWND owner, const std::string& title);

}  // namespace quorvale
