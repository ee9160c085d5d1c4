#pragma once

#include "platform/common/pacing.h"
#include "toolkit/dialogs.h"

namespace quorvale {

// Shows the box above all windows of the program and waits for the answer. An empty title becomes
// `application_title`.
MessageBoxAnswer ShowQtMessageBox(const MessageBox& box, const std::string& application_title, EndedLoops& ended_loops);

}  // namespace quorvale
