#pragma once

#include <string>

#include "platform/common/pacing.h"
#include "toolkit/message_box.h"

namespace quorvale {

// Shows the box above all windows of the program and waits for the answer. `application_title` stands for
// an empty title.
MessageBoxAnswer ShowWin32MessageBox(const MessageBox& box, const std::string& application_title,
                                     EndedLoops& ended_loops);

}  // namespace quorvale
