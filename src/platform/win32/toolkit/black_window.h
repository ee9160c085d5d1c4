#pragma once

#include <memory>

#include "platform/common/black_windows.h"

namespace quorvale {

class TopWindow;

// Covers every monitor but the primary one. `saver` outlives the windows.
std::unique_ptr<BlackWindows> CoverOtherMonitors(TopWindow& saver);

}  // namespace quorvale
