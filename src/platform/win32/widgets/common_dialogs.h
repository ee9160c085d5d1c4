#pragma once

#include <string>

#include "platform/win32/windows_api.h"
#include "toolkit/file_dialog.h"
#include "toolkit/units.h"

namespace quorvale {

// The system's dialogs, modal to `owner`. They return what `Platform` says.
std::string ShowWin32FileDialog(HWND owner, const FileDialog& dialog);
Colour ShowWin32ColourDialog(HWND owner, Colour start);
std::string BrowseWin32Folder(HWND owner, const std::string& title);

}  // namespace quorvale
