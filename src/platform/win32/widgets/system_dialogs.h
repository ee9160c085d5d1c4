#pragma once

#include <string>

#include "platform/common/pacing.h"
#include "platform/win32/windows_api.h"
#include "toolkit/dialogs.h"
#include "toolkit/units.h"

namespace quorvale {

// Shows the box above all windows of the program and waits for the answer. An empty title is replaced by
// `application_title`.
MessageBoxAnswer ShowWin32MessageBox(const MessageBox& box, const std::string& application_title,
                                     EndedLoops& ended_loops);

// The system's dialogs, modal to `owner`. They return what `Platform` says.
std::string ShowWin32FileDialog(HWND owner, const FileDialog& dialog);
Colour ShowWin32ColourDialog(HWND owner, Colour start);
std::string BrowseWin32Folder(HWND owner, const std::string& title);

}  // namespace quorvale
