#pragma once

#include "platform/win32/windows_api.h"

namespace quorvale {

// Tells screen readers what the controls on that window are called that don't show their names themselves. Does nothing
// where the system has no such service.
void NameControls(HWND dialog);

}  // namespace quorvale
