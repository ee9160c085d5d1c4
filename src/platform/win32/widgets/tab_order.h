#pragma once

#include "platform/win32/windows_api.h"

namespace quorvale {

// Brings the controls on `parent`, and those on its frames, into the order of their tab indices, which for
// the system is the order in which windows lie on each other. Pictures lie above all controls, and what is
// in no order below those that are.
void ArrangeTabOrder(HWND parent);

// The control that the Tab key leads to, in the order of the tab indices across all frames: the one after
// `from`, or before it; the first where `from` is no control. Null when none can take the focus.
HWND NextTabStop(HWND dialog, HWND from, bool backwards);

}  // namespace quorvale
