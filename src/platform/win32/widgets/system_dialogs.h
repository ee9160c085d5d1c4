#pragma once

#include <array>
#include <string>

#include "platform/common/pacing.h"
#include "platform/win32/windows_api.h"
#include "toolkit/dialogs.h"
#include "toolkit/units.h"

namespace quorvale {

// The places for the user's own colours in the colour dialog.
using OwnColours = std::array<COLORREF, 16>;
inline OwnColours EmptyOwnColours() {
  OwnColours colours;
  colours.fill(kWhite);
  return colours;
}

// Shows the box above all windows of the program and waits for the answer. An empty title is replaced by
// `application_title`.
MessageBoxAnswer ShowWin32MessageBox(const MessageBox& box, const std::string& application_title,
                                     EndedLoops& ended_loops);

// The system's dialogs, modal to `owner`. They return what `Platform` says.
std::string ShowWin32FileDialog(HWND owner, const FileDialog& dialog);
// The colours that the user mixes are kept in `own_colours`.
Colour ShowWin32ColourDialog(HWND owner, Colour start, OwnColours& own_colours);
std::string BrowseWin32Folder(HWND owner, const std::string& title);

}  // namespace quorvale
